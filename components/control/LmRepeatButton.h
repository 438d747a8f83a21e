// LmRepeatButton: a button that repeats its action while it is held.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

/// What a repeat button is.
enum LmRepeatButtonType : int {
    LmRB_PushButton = 0,         ///< XmPushButton
    LmRB_PushButtonGadget = 1,   ///< XmPushButtonGadget
    LmRB_ArrowButton = 2,        ///< XmArrowButton
    LmRB_ArrowButtonGadget = 3   ///< XmArrowButtonGadget
};

/// Call data of LmRepeatButton::buttonCallback.
struct LmRepeatButtonCallbackStruct {
    int reason;      ///< of the arming, XmCR_ARM
    XEvent* event;   ///< a copy of the event that armed the button, the component's own; null when there was none
};

/// A button that acts when it is pressed, again after a delay, and then over and over while button 1 of the mouse is held.
///
///   Widgets    the button, of the component's name (base widget)
///   Resources  of the parent: initialDelay  InitialDelay  Int  1000  milliseconds
///                             repeatDelay   RepeatDelay   Int  200   milliseconds
///   Callbacks  buttonCallback, for each action; call data: LmRepeatButtonCallbackStruct
///   Errors     a type that there is none of makes no widget
class LM_API LmRepeatButton : public LmComponent {
public:
    static const char* const buttonCallback;   ///< "buttonCallback"

    /// The delays are read from the resources here, once.
    LmRepeatButton(const char* name, Widget parent, LmRepeatButtonType type);
    ~LmRepeatButton() override;

    const char* className() override { return "LmRepeatButton"; }
    void widgetDestroyed() override;

    /// Milliseconds.
    int initialDelay() const { return _initialDelay; }
    int repeatDelay() const { return _repeatDelay; }   ///< Milliseconds between two repetitions.

private:
    void makeButton(Widget parent);
    void note(XmAnyCallbackStruct* record);
    void arm(XmAnyCallbackStruct* record);
    void disarm();
    void initialDelayOver();
    void repeatDelayOver();
    void doRepeat();
    void act();

    LmRepeatButtonType _type;
    int _reason = 0;
    XEvent _event = {};
    bool _hasEvent = false;
    int _initialDelay = 0, _repeatDelay = 0;
    lm::TimerHandle _initialTimer, _repeatTimer;
};
