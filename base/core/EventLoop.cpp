#include "base/core/EventLoop.h"

#include "LmApp.h"
#include "support/xt.h"

#include <sys/eventfd.h>

void lm::dispatch(XEvent* event)
{
    if (!XtDispatchEvent(event))
        theApplication->handleRawEvent(event);
}

void lm::dispatchNextEvent()
{
    XEvent event;
    XtAppNextEvent(theApplication->appContext(), &event);
    dispatch(&event);
}

lm::Deadline::Deadline(unsigned long milliseconds)
    : _timer(after<&Deadline::passed>(theApplication->appContext(), milliseconds, this)),
      _wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (_wakeUp)
        _input = InputHandle(whenReady<&Deadline::wake>(theApplication->appContext(), _wakeUp.get(), XtInputReadMask, this));
}

void lm::Deadline::passed()
{
    _timer.fired();
    _passed = true;
    if (_wakeUp)
        eventfd_write(_wakeUp.get(), 1);
}

bool lm::Deadline::nextEvent(XEvent* event)
{
    XtAppContext context = theApplication->appContext();
    while (!_passed) {
        if (XtAppPeekEvent(context, event)) {
            XtAppNextEvent(context, event);
            return true;
        }
        if (!_passed)
            XtAppProcessEvent(context, XtIMAlternateInput);
    }
    return false;
}
