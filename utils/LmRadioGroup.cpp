#include "LmRadioGroup.h"

#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/ToggleB.h>
#include <Xm/ToggleBG.h>

#include <utility>

static bool isToggle(Widget w) { return XmIsToggleButton(w) || XmIsToggleButtonGadget(w); }

static bool isPushButton(Widget w) { return XmIsPushButton(w) || XmIsPushButtonGadget(w); }

LmRadioGroup::~LmRadioGroup()
{
    for (int i = 0; i < size(); ++i)
        leave((*this)[i]);
}

void LmRadioGroup::add(Widget w)
{
    if (!w)
        return;
    if (!isToggle(w) && !isPushButton(w)) {
        XtAppWarning(XtWidgetToApplicationContext(w), "Only toggle and push buttons can be in a radio group");
        return;
    }
    LmWidgetList::add(w);
    if (isToggle(w)) {
        XtVaSetValues(w, XmNindicatorType, XmONE_OF_MANY, nullptr);
        XtAddCallback(w, XmNvalueChangedCallback, valueChangedCallback, this);
    } else {
        XtAddCallback(w, XmNactivateCallback, armCallback, this);
    }
}

void LmRadioGroup::leave(Widget w)
{
    if (isToggle(w))
        XtRemoveCallback(w, XmNvalueChangedCallback, valueChangedCallback, this);
    else
        XtRemoveCallback(w, XmNactivateCallback, armCallback, this);
}

/// Also what a destroyed member comes to.
void LmRadioGroup::remove(Widget w)
{
    if (!w || !exists(w))
        return;
    leave(w);
    LmWidgetList::remove(w);
    if (_selected == w)
        _selected = nullptr;
}

void LmRadioGroup::valueChangedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmRadioGroup*>(clientData)->valueChanged(w, callData);
}

void LmRadioGroup::armCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmRadioGroup*>(clientData)->arm(w, callData);
}

void LmRadioGroup::valueChanged(Widget w, void* callData)
{
    if (!static_cast<XmToggleButtonCallbackStruct*>(callData)->set)
        return;
    updateSelected(w);
    _selected = w;
}

void LmRadioGroup::arm(Widget w, void*)
{
    if (_selected == w)
        return;   // pressed in already: its saved look is the real one
    updateSelected(w);
    _selected = w;
    pressIn(w);
}

void LmRadioGroup::updateSelected(Widget w)
{
    if (!_selected || _selected == w)
        return;
    Widget before = std::exchange(_selected, nullptr);
    if (XmIsToggleButton(before))
        XmToggleButtonSetState(before, False, True);
    else if (XmIsToggleButtonGadget(before))
        XmToggleButtonGadgetSetState(before, False, True);
    else
        release(before);
}

/// Exchanges the shadows and takes the colour and picture of an armed button.
void LmRadioGroup::pressIn(Widget w)
{
    Pixel armColor = 0;
    unsigned char labelType = XmSTRING;
    Pixmap armPixmap = None;
    XtVaGetValues(w, XmNtopShadowColor, &_savedTopShadow, XmNbottomShadowColor, &_savedBottomShadow, XmNbackground,
                  &_savedBackground, XmNarmColor, &armColor, XmNlabelType, &labelType, nullptr);
    XtVaSetValues(w, XmNtopShadowColor, _savedBottomShadow, XmNbottomShadowColor, _savedTopShadow, XmNbackground, armColor,
                  nullptr);
    if (labelType != XmPIXMAP)
        return;
    XtVaGetValues(w, XmNlabelPixmap, &_savedLabelPixmap, XmNarmPixmap, &armPixmap, nullptr);
    XtVaSetValues(w, XmNlabelPixmap, armPixmap, nullptr);
}

void LmRadioGroup::release(Widget w)
{
    XtVaSetValues(w, XmNtopShadowColor, _savedTopShadow, XmNbottomShadowColor, _savedBottomShadow, XmNbackground,
                  _savedBackground, nullptr);
    unsigned char labelType = XmSTRING;
    XtVaGetValues(w, XmNlabelType, &labelType, nullptr);
    if (const Pixmap saved = std::exchange(_savedLabelPixmap, None); labelType == XmPIXMAP && saved)
        XtVaSetValues(w, XmNlabelPixmap, saved, nullptr);
}
