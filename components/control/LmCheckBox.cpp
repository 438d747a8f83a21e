#include "LmCheckBox.h"

#include "support/WidgetWatch.h"
#include "support/calldata.h"

#include <Xm/Frame.h>
#include <Xm/LabelG.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleBG.h>

const char* const LmCheckBox::itemChangedCallback = "valueChangedCallback";

LmCheckBox::LmCheckBox(const char* name, Widget parent) : LmComponent(name)
{
    _w = XtVaCreateWidget(LmComponent::name(), xmFrameWidgetClass, parent, nullptr);
    installDestroyHandler();
    _rc = XtVaCreateManagedWidget("rc", xmRowColumnWidgetClass, _w, nullptr);
    _label = XtVaCreateManagedWidget("label", xmLabelGadgetClass, _w, XmNchildType, XmFRAME_TITLE_CHILD, nullptr);
}

LmCheckBox::~LmCheckBox()
{
    for (int i = 0; i < size(); ++i)
        XtRemoveCallback((*_toggles)[i], XmNvalueChangedCallback, toggleChanged, this);
}

void LmCheckBox::widgetDestroyed()
{
    _rc = _label = nullptr;
    LmComponent::widgetDestroyed();
}

void LmCheckBox::valueChanged(int, char) {}

Widget LmCheckBox::addItem(const char* name, char state, XtCallbackProc callback, XtPointer clientData)
{
    if (!_rc)
        return nullptr;
    if (!_toggles)
        _toggles = std::make_unique<LmWidgetList>();
    Widget toggle = XtVaCreateWidget(name, xmToggleButtonGadgetClass, _rc, nullptr);
    _toggles->add(toggle);
    if (callback)
        XtAddCallback(toggle, XmNvalueChangedCallback, callback, clientData);
    XtAddCallback(toggle, XmNvalueChangedCallback, toggleChanged, this);
    const lm::WidgetWatch there(toggle);
    XmToggleButtonGadgetSetState(toggle, state != 0, True);
    if (!there)
        return nullptr;
    XtManageChild(toggle);
    return toggle;
}

void LmCheckBox::toggleChanged(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmCheckBox*>(clientData)->changed(w, callData);
}

void LmCheckBox::changed(Widget toggle, XtPointer callData)
{
    const bool set = static_cast<XmToggleButtonCallbackStruct*>(callData)->set != XmUNSET;
    int index = 0;
    while (index < size() && (*_toggles)[index] != toggle)
        ++index;
    if (index == size())
        return;
    const lm::Watch here(_alive);
    callCallbacks(itemChangedCallback, lm::asPointer(index));
    if (here)
        valueChanged(index, set);
}

void LmCheckBox::setValue(int index, char state)
{
    if (index >= 0 && index < size())
        XmToggleButtonGadgetSetState((*_toggles)[index], state != 0, True);
}

void LmCheckBox::setValues(const char* states, int count)
{
    const lm::Watch here(_alive);
    for (int i = 0; here && i < count; ++i)
        setValue(i, states[i]);
}

int LmCheckBox::getValue(int index)
{
    return index >= 0 && index < size() && XmToggleButtonGadgetGetState((*_toggles)[index]) ? 1 : 0;
}

LmRadioBox::LmRadioBox(const char* name, Widget parent) : LmCheckBox(name, parent)
{
    XtVaSetValues(_rc, XmNradioBehavior, True, nullptr);
}
