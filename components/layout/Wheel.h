// Wheel.h: the wheel of the mouse over a widget and all that lies in it.
#pragma once

#include <X11/Intrinsic.h>

#include <initializer_list>

namespace lm {

inline constexpr unsigned wheelUp = Button4, wheelDown = Button5;

/// Has the presses of the wheel over a widget's window, and over the windows in it, come to the widget. Widgets in it select
/// presses of every button, so that none would propagate; a passive grab costs nothing for each of them. Xt must see the
/// release, too, or it takes the grab for active for ever.
inline void grabWheel(Widget w)
{
    for (const unsigned button : {wheelUp, wheelDown})
        XtGrabButton(w, static_cast<int>(button), AnyModifier, False, ButtonPressMask | ButtonReleaseMask, GrabModeAsync,
                     GrabModeAsync, None, None);
}

/// Which way a press turns the wheel: 1 down, -1 up; 0 for another button.
inline int wheelDirection(const XEvent* event)
{
    const unsigned button = event->xbutton.button;
    return button == wheelDown ? 1 : button == wheelUp ? -1 : 0;
}

}   // namespace lm
