#include "LmPrefItem.h"

#include <Xm/LabelG.h>

#include <utility>

LmPrefItem::LmPrefItem(const char* name)
    : LmComponent(name),
      _baseName(std::string(this->name()) + "Base"),
      _labelName(std::string(this->name()) + "Label")
{}

LmPrefItem::~LmPrefItem()
{
    if (Widget label = std::exchange(_labelWidget, nullptr)) {
        XtRemoveCallback(label, XmNdestroyCallback, labelDestroyedCallback, this);
        XtDestroyWidget(label);
    }
}

void LmPrefItem::buildLabel(Widget parent)
{
    _labelWidget = XtVaCreateManagedWidget(_labelName.c_str(), xmLabelGadgetClass, parent, XmNrecomputeSize, False, XmNsensitive,
                                           _activated, nullptr);
}

void LmPrefItem::installDestroyHandlers()
{
    installDestroyHandler();
    if (!_labelWidget)
        return;
    XtRemoveCallback(_labelWidget, XmNdestroyCallback, labelDestroyedCallback, this);   // never twice
    XtAddCallback(_labelWidget, XmNdestroyCallback, labelDestroyedCallback, this);
}

void LmPrefItem::labelDestroyedCallback(Widget w, XtPointer clientData, XtPointer) noexcept
{
    auto* item = static_cast<LmPrefItem*>(clientData);
    if (item->_labelWidget == w)
        item->_labelWidget = nullptr;
}

Dimension LmPrefItem::getHeight(Widget w)
{
    Dimension height = 0;
    if (w)
        XtVaGetValues(w, XmNheight, &height, nullptr);
    return height;
}

void LmPrefItem::setHeight(Widget w, Dimension height)
{
    if (w)
        XtVaSetValues(w, XmNheight, height, nullptr);
}

void LmPrefItem::setActivated(char activated)
{
    if (activated == _activated)
        return;
    _activated = activated;
    for (Widget w : {_baseWidget, _labelWidget}) {
        if (w)
            XtSetSensitive(w, activated);
    }
}
