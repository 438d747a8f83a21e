// EventLoop.h: one event, as every loop of the library handles it.
#pragma once

#include "support/handles.h"

#include <X11/Intrinsic.h>

#include <functional>

namespace lm {

/// Dispatches an event, and offers it to the windows when no widget takes it.
void dispatch(XEvent* event);

/// Waits for the next event and dispatches it. Timers, inputs and work procedures run meanwhile.
void dispatchNextEvent();

/// Dispatches events until the condition holds, whoever made it hold: also a timer, an input or a work procedure, which
/// alone do not end a wait for events. The condition is asked often and must be cheap. Such loops nest.
void dispatchUntil(const std::function<bool()>& over);

/// A moment that a wait for events does not pass.
class Deadline {
public:
    explicit Deadline(unsigned long milliseconds);
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

    /// Waits for the next event; false when the moment came first.
    bool nextEvent(XEvent* event);

private:
    void passed();
    void wake() {}

    bool _passed = false;
    TimerHandle _timer;
    FileDescriptor _wakeUp;   // Xt runs timers while it waits for an event, but only a ready input ends the wait
    InputHandle _input;
};

}   // namespace lm
