// EventLoop.h: one event, as every loop of the library handles it.
#pragma once

#include <X11/Intrinsic.h>

#include <functional>

namespace lm {

/// Dispatches an event, and offers it to the windows when no widget takes it.
void dispatch(XEvent* event);

/// Waits for the next event and dispatches it. Timers, inputs and work procedures run meanwhile.
void dispatchNextEvent();

/// Dispatches events until the condition holds, whoever made it hold: also a timer, an input or a work procedure, which
/// alone do not end a wait for events. The condition is asked often and must be cheap. Such loops nest. `seen`, if any, is
/// shown each event before it is dispatched.
void dispatchUntil(const std::function<bool()>& over, const std::function<void(const XEvent&)>& seen = {});

}   // namespace lm
