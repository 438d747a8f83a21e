#include "LmGangedGroup.h"

#include <Xm/Scale.h>
#include <Xm/ScrollBar.h>

LmGangedGroup::~LmGangedGroup()
{
    for (int i = 0; i < size(); ++i)
        leave((*this)[i]);
}

void LmGangedGroup::add(Widget w)
{
    if (!w)
        return;
    if (!XmIsScale(w) && !XmIsScrollBar(w)) {
        XtAppWarning(XtWidgetToApplicationContext(w), "Only scales and scrollbars buttons can be in a Ganged group");
        return;
    }
    LmWidgetList::add(w);
    XtAddCallback(w, XmNvalueChangedCallback, valueChangedCallback, this);
    XtAddCallback(w, XmNdragCallback, valueChangedCallback, this);
}

void LmGangedGroup::leave(Widget w)
{
    XtRemoveCallback(w, XmNvalueChangedCallback, valueChangedCallback, this);
    XtRemoveCallback(w, XmNdragCallback, valueChangedCallback, this);
}

void LmGangedGroup::remove(Widget w)
{
    if (!w || !exists(w))
        return;
    leave(w);
    LmWidgetList::remove(w);
}

void LmGangedGroup::valueChangedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    const int value = XmIsScale(w) ? static_cast<XmScaleCallbackStruct*>(callData)->value
                                   : static_cast<XmScrollBarCallbackStruct*>(callData)->value;
    static_cast<LmGangedGroup*>(clientData)->valueChanged(w, value);
}

void LmGangedGroup::valueChanged(Widget w, int value)
{
    for (int i = 0; i < size(); ++i) {
        int maximum = 0;
        XtVaGetValues((*this)[i], XmNmaximum, &maximum, nullptr);
        if ((*this)[i] != w && maximum >= value)
            XtVaSetValues((*this)[i], XmNvalue, value, nullptr);
    }
}
