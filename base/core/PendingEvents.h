// PendingEvents.h: everything that is pending now, and not for ever what keeps coming.
#pragma once

#include "support/handles.h"

#include <X11/Intrinsic.h>

namespace lm {

/// One handling of what is pending. A source that never dries up (a pipe that is always readable, a timer of 0 ms) must
/// not keep the caller for ever, yet nothing that was pending at the start may be left. So after half a second markers
/// are put behind what is pending then, and the handling ends when it has come to all of them.
class PendingEvents {
public:
    explicit PendingEvents(XtAppContext context) : _context(context) {}
    PendingEvents(const PendingEvents&) = delete;
    PendingEvents& operator=(const PendingEvents&) = delete;

    void handle();

private:
    void setMarkers();
    void timersHandled();
    void inputRoundBegins();
    bool cameToMarkers() const { return _marked && _eventsLeft <= 0 && !_timerMarker && !_inputMarker; }

    XtAppContext _context;
    bool _marked = false;
    int _eventsLeft = 0;           // X events that were queued when the markers were set
    TimerHandle _timerMarker;      // runs after every timer that was due then
    FileDescriptor _alwaysReady;   // Xt serves the ready inputs in rounds: its second turn ends the first round
    InputHandle _inputMarker;
    int _inputRounds = 0;
};

}   // namespace lm
