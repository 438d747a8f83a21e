#include "LmRepeatButton.h"

#include "LmApp.h"
#include "LmResource.h"
#include "support/calldata.h"
#include "support/xt.h"

#include <Xm/ArrowB.h>
#include <Xm/ArrowBG.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>

#include <algorithm>

const char* const LmRepeatButton::buttonCallback = "buttonCallback";

static int delay(Widget parent, const char* name, const char* className, const char* fallback)
{
    return std::max(lm::asInt(LmGetResource(parent, name, className, XtRInt, sizeof(int), fallback)), 0);
}

LmRepeatButton::LmRepeatButton(const char* name, Widget parent, LmRepeatButtonType type) : LmComponent(name), _type(type)
{
    makeButton(parent);
    if (!_w)
        return;
    installDestroyHandler();
    lm::on<&LmRepeatButton::arm>(_w, XmNarmCallback, this);
    lm::on<&LmRepeatButton::disarm>(_w, XmNdisarmCallback, this);
    lm::on<&LmRepeatButton::note>(_w, XmNactivateCallback, this);
    _initialDelay = delay(parent, "initialDelay", "InitialDelay", "1000");
    _repeatDelay = delay(parent, "repeatDelay", "RepeatDelay", "200");
}

void LmRepeatButton::makeButton(Widget parent)
{
    const WidgetClass classes[] = {xmPushButtonWidgetClass, xmPushButtonGadgetClass, xmArrowButtonWidgetClass,
                                   xmArrowButtonGadgetClass};   // by type
    if (_type >= LmRB_PushButton && _type <= LmRB_ArrowButtonGadget)
        _w = XtCreateWidget(name(), classes[_type], parent, nullptr, 0);
}

/// The button's destruction may be put off; nothing of ours may be called meanwhile.
LmRepeatButton::~LmRepeatButton()
{
    if (!_w)
        return;
    lm::off<&LmRepeatButton::arm>(_w, XmNarmCallback, this);
    lm::off<&LmRepeatButton::disarm>(_w, XmNdisarmCallback, this);
    lm::off<&LmRepeatButton::note>(_w, XmNactivateCallback, this);
}

void LmRepeatButton::widgetDestroyed()
{
    disarm();
    LmComponent::widgetDestroyed();
}

/// Keeps what a callback record says. The copy outlives the record, for the repeats.
void LmRepeatButton::note(XmAnyCallbackStruct* record)
{
    _reason = record->reason;
    _hasEvent = record->event != nullptr;
    if (_hasEvent)
        _event = *record->event;
}

void LmRepeatButton::arm(XmAnyCallbackStruct* record)
{
    note(record);
    disarm();
    _initialTimer = lm::TimerHandle(lm::after<&LmRepeatButton::initialDelayOver>(
        XtWidgetToApplicationContext(_w), static_cast<unsigned long>(_initialDelay), this));
    act();
}

void LmRepeatButton::disarm()
{
    _initialTimer = {};
    _repeatTimer = {};
}

void LmRepeatButton::initialDelayOver()
{
    _initialTimer.fired();
    doRepeat();
}

void LmRepeatButton::repeatDelayOver()
{
    _repeatTimer.fired();
    doRepeat();
}

/// Asks the server for the button: the release may have gone elsewhere.
void LmRepeatButton::doRepeat()
{
    disarm();
    Window root = None, child = None;
    int rootX = 0, rootY = 0, x = 0, y = 0;
    unsigned state = 0;
    XQueryPointer(XtDisplayOfObject(_w), RootWindowOfScreen(XtScreenOfObject(_w)), &root, &child, &rootX, &rootY, &x, &y, &state);
    if (!(state & Button1Mask))
        return;
    _repeatTimer = lm::TimerHandle(lm::after<&LmRepeatButton::repeatDelayOver>(XtWidgetToApplicationContext(_w),
                                                                               static_cast<unsigned long>(_repeatDelay), this));
    act();
}

/// Ours may be gone afterwards.
void LmRepeatButton::act()
{
    LmRepeatButtonCallbackStruct data = {_reason, _hasEvent ? &_event : nullptr};
    callCallbacks(buttonCallback, &data);
}
