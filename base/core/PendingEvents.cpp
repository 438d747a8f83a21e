#include "base/core/PendingEvents.h"

#include "base/core/EventLoop.h"
#include "support/xt.h"

#include <sys/eventfd.h>

static constexpr auto extension = std::chrono::milliseconds(500);   // how long newcomers are still served
static constexpr XtInputMask otherThanEvents = XtIMTimer | XtIMAlternateInput | XtIMSignal;

static int queuedEvents(Display* display)
{
    XSync(display, False);
    return XQLength(display);
}

lm::PendingEvents::PendingEvents(Display* display, XtAppContext context)
    : _context(context),
      _end(std::chrono::steady_clock::now() + extension),
      _eventsLeft(queuedEvents(display)),
      _timerMarker(after<&PendingEvents::timersHandled>(context, 0, this)),
      _alwaysReady(eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (_alwaysReady)
        _inputMarker =
            InputHandle(whenReady<&PendingEvents::inputRoundBegins>(context, _alwaysReady.get(), XtInputReadMask, this));
}

void lm::PendingEvents::timersHandled() { _timerMarker.fired(); }

void lm::PendingEvents::inputRoundBegins()
{
    if (++_inputRounds == 2)
        _inputMarker = {};
}

void lm::PendingEvents::handle()
{
    bool eventsTurn = false;   // events and the rest take turns, so that neither starves the other
    while (const XtInputMask pending = XtAppPending(_context)) {
        if (firstOnesHandled() && std::chrono::steady_clock::now() >= _end)
            return;
        eventsTurn = !eventsTurn;
        if ((pending & otherThanEvents) && !((pending & XtIMXEvent) && eventsTurn)) {
            XtAppProcessEvent(_context, pending & otherThanEvents);
            continue;
        }
        --_eventsLeft;
        dispatchNextEvent();
    }
}
