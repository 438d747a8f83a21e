#include "LmPrefGroup.h"

#include <Xm/Form.h>
#include <Xm/RowColumn.h>

#include <algorithm>

static constexpr int margin = 10;   // pixels around a group that has a label

LmPrefGroup::LmPrefGroup(const char* name, char horizontal, char noLabel)
    : LmPrefItem(name),
      _horizontal(horizontal),
      _noLabel(noLabel)
{}

LmPrefGroup::~LmPrefGroup()
{
    if (_baseWidget)
        XtRemoveEventHandler(_baseWidget, StructureNotifyMask, False, mapHandler, this);
}

void LmPrefGroup::widgetDestroyed()
{
    _leftStuff = _rightStuff = nullptr;
    LmPrefItem::widgetDestroyed();
}

// --- the items ---------------------------------------------------------------------------------------------------------

void LmPrefGroup::addItem(LmPrefItem* item)
{
    if (!item)
        return;
    _items.push_back(item);
    item->addCallback(deleteCallback, this, &LmPrefGroup::itemDeleted, nullptr);
    item->setActivated(_activated);
}

void LmPrefGroup::itemDeleted(LmCallbackObject* item, void*, void*)
{
    std::erase_if(_items, [item](LmPrefItem* one) { return static_cast<LmCallbackObject*>(one) == item; });
}

LmPrefItem* LmPrefGroup::item(int i) const { return i >= 0 && i < size() ? _items[static_cast<size_t>(i)] : nullptr; }

void LmPrefGroup::deleteChildren()
{
    while (!_items.empty()) {
        LmPrefItem* item = _items.front();
        item->deleteChildren();
        delete item;   // and it leaves the group
    }
}

void LmPrefGroup::checkHomogeneous()
{
    const auto differs = [this](LmPrefItem* item) { return item->type() != _items.front()->type(); };
    _homogeneous = std::ranges::none_of(_items, differs);
    if (_homogeneous)
        return;
    for (LmPrefItem* item : _items)
        item->setHomogeneous(false);
}

// --- building ----------------------------------------------------------------------------------------------------------

void LmPrefGroup::build(Widget labelParent, Widget baseParent)
{
    if (!_noLabel)
        buildLabel(labelParent);
    checkHomogeneous();
    if (_horizontal)
        buildHorizontal(baseParent);
    else
        buildVertical(baseParent);
}

void LmPrefGroup::buildVertical(Widget parent)
{
    const int side = _noLabel ? 0 : margin;
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmFormWidgetClass, parent, nullptr);
    _leftStuff = XtVaCreateManagedWidget("leftStuff", xmRowColumnWidgetClass, _baseWidget, XmNtopAttachment, XmATTACH_FORM,
                                         XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, side, XmNmarginWidth, 0,
                                         XmNmarginHeight, 0, XmNorientation, XmVERTICAL, XmNpacking, XmPACK_COLUMN,
                                         XmNentryAlignment, XmALIGNMENT_END, XmNwidth, 1, XmNheight, 1, nullptr);
    _rightStuff = XtVaCreateManagedWidget("rightStuff", xmRowColumnWidgetClass, _baseWidget, XmNtopAttachment, XmATTACH_FORM,
                                          XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, _leftStuff, XmNrightAttachment,
                                          XmATTACH_FORM, XmNrightOffset, side, XmNmarginWidth, 0, XmNmarginHeight, 0,
                                          XmNorientation, XmVERTICAL, XmNpacking, XmPACK_COLUMN, nullptr);
    for (LmPrefItem* item : _items)
        item->build(_leftStuff, _rightStuff);
    XtAddEventHandler(_baseWidget, StructureNotifyMask, False, mapHandler, this);
    installDestroyHandlers();
}

/// Both columns pack every row as high as their highest entry; the first two rows at one height give all rows one.
void LmPrefGroup::mapHandler(Widget w, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    if (event->type != MapNotify)
        return;
    auto* group = static_cast<LmPrefGroup*>(clientData);
    for (int i = 0; i < std::min(group->size(), 2); ++i) {
        LmPrefItem* item = group->item(i);
        const Dimension height = std::max(item->labelHeight(), item->baseHeight());
        item->setLabelHeight(height);
        item->setBaseHeight(height);
    }
    XtRemoveEventHandler(w, StructureNotifyMask, False, mapHandler, clientData);
}

void LmPrefGroup::buildHorizontal(Widget parent)
{
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmRowColumnWidgetClass, parent, XmNmarginWidth, _noLabel ? 0 : margin,
                                   XmNmarginHeight, 0, XmNorientation, XmHORIZONTAL, XmNpacking,
                                   _homogeneous ? XmPACK_COLUMN : XmPACK_TIGHT, nullptr);
    for (LmPrefItem* item : _items) {
        Widget cell = _baseWidget;
        if (_homogeneous)
            cell = XtVaCreateManagedWidget("container", xmRowColumnWidgetClass, _baseWidget, XmNmarginWidth, 0, XmNmarginHeight,
                                           0, XmNorientation, XmHORIZONTAL, XmNpacking, XmPACK_TIGHT, nullptr);
        item->build(cell);
    }
    installDestroyHandlers();
}

void LmPrefGroup::buildItems(Widget parent)
{
    for (LmPrefItem* item : _items)
        item->build(parent);
}

Dimension LmPrefGroup::baseHeight()
{
    if (_items.empty())
        return 0;
    LmPrefItem* first = _items.front();
    if (_horizontal)
        return std::max(first->labelHeight(), first->baseHeight());
    Dimension spacing = 0;
    if (_leftStuff)
        XtVaGetValues(_leftStuff, XmNspacing, &spacing, nullptr);
    return static_cast<Dimension>(first->labelHeight() * size() + (size() - 1) * spacing);
}

// --- forwarding --------------------------------------------------------------------------------------------------------

void LmPrefGroup::show()
{
    for (LmPrefItem* item : _items)
        item->show();
    LmPrefItem::show();
}

Boolean LmPrefGroup::okToQuit()
{
    return std::ranges::all_of(_items, [](LmPrefItem* item) { return item->okToQuit() != False; });
}

char LmPrefGroup::changed()
{
    return std::ranges::any_of(_items, [](LmPrefItem* item) { return item->changed() != 0; });
}

void LmPrefGroup::updateValue()
{
    for (LmPrefItem* item : _items)
        item->updateValue();
}

void LmPrefGroup::revertValue()
{
    for (int i = 0; i < size(); ++i)   // a toggle's own callbacks run
        item(i)->revertValue();
}

void LmPrefGroup::setActivated(char activated)
{
    if (activated == _activated)
        return;
    _activated = activated;
    for (LmPrefItem* item : _items)
        item->setActivated(activated);
}
