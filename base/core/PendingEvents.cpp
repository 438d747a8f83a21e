#include "base/core/PendingEvents.h"

#include "LmApp.h"
#include "base/core/EventLoop.h"
#include "support/xt.h"

#include <sys/eventfd.h>

#include <chrono>

static constexpr auto extension = std::chrono::milliseconds(500);   // how long newcomers are served
static constexpr XtInputMask otherThanEvents = XtIMTimer | XtIMAlternateInput | XtIMSignal;

void lm::PendingEvents::setMarkers()
{
    _marked = true;
    _eventsLeft = XQLength(theApplication->display());
    _timerMarker = TimerHandle(after<&PendingEvents::timersHandled>(_context, 0, this));
    _alwaysReady = FileDescriptor(eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK));
    if (_alwaysReady)
        _inputMarker =
            InputHandle(whenReady<&PendingEvents::inputRoundBegins>(_context, _alwaysReady.get(), XtInputReadMask, this));
}

void lm::PendingEvents::timersHandled() { _timerMarker.fired(); }

void lm::PendingEvents::inputRoundBegins()
{
    if (++_inputRounds == 2)
        _inputMarker = {};
}

void lm::PendingEvents::handle()
{
    const auto end = std::chrono::steady_clock::now() + extension;
    bool eventsTurn = false;   // events and the rest take turns, so that neither starves the other
    while (const XtInputMask pending = XtAppPending(_context)) {
        if (cameToMarkers())
            return;
        if (!_marked && std::chrono::steady_clock::now() >= end)
            setMarkers();
        eventsTurn = !eventsTurn;
        if ((pending & otherThanEvents) && !((pending & XtIMXEvent) && eventsTurn)) {
            XtAppProcessEvent(_context, pending & otherThanEvents);
            continue;
        }
        --_eventsLeft;
        dispatchNextEvent();
    }
}
