// PendingEvents.h: everything that is pending now, and not for ever what keeps coming.
#pragma once

#include "support/handles.h"

#include <X11/Intrinsic.h>

#include <chrono>

namespace lm {

/// One handling of what is pending. A source that never dries up (a pipe that is always readable, a timer of 0 ms) must
/// not keep the caller for ever, yet nothing that was pending at the start may be left: markers behind it tell.
class PendingEvents {
public:
    PendingEvents(Display* display, XtAppContext context);
    PendingEvents(const PendingEvents&) = delete;
    PendingEvents& operator=(const PendingEvents&) = delete;

    void handle();

private:
    void timersHandled();
    void inputRoundBegins();
    bool firstOnesHandled() const { return _eventsLeft <= 0 && !_timerMarker && !_inputMarker; }

    XtAppContext _context;
    std::chrono::steady_clock::time_point _end;
    int _eventsLeft;               // X events that were queued at the start
    TimerHandle _timerMarker;      // runs after every timer that was due at the start
    FileDescriptor _alwaysReady;   // Xt serves the ready inputs in rounds: its second turn ends the first round
    InputHandle _inputMarker;
    int _inputRounds = 0;
};

}   // namespace lm
