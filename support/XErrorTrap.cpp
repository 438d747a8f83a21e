#include "support/XErrorTrap.h"

namespace {
lm::XErrorTrap* innermost = nullptr;
}   // namespace

lm::XErrorTrap::XErrorTrap(Display* display)
    : _display(display),
      _firstRequest(NextRequest(display)),
      _outer(innermost),
      _previous(XSetErrorHandler(handle))
{
    innermost = this;
}

lm::XErrorTrap::~XErrorTrap()
{
    error();
    innermost = _outer;
    XSetErrorHandler(_previous);
}

int lm::XErrorTrap::error()
{
    const bool everythingAnswered = LastKnownRequestProcessed(_display) + 1 >= NextRequest(_display);
    if (!everythingAnswered)
        XSync(_display, False);
    return _error;
}

int lm::XErrorTrap::handle(Display* display, XErrorEvent* event)
{
    XErrorTrap* outermost = innermost;
    for (XErrorTrap* trap = innermost; trap; trap = trap->_outer) {
        outermost = trap;
        if (!trap->covers(display, event->serial))
            continue;
        if (!trap->_error)
            trap->_error = event->error_code;
        return 0;
    }
    return outermost->_previous ? outermost->_previous(display, event) : 0;
}
