// XErrorTrap.h: X requests on windows that others own and may destroy at any moment.
#pragma once

#include "LmExport.h"

#include <X11/Xlib.h>

namespace lm {

/// While a trap lives, protocol errors of requests made since then on its display are remembered instead of ending
/// the program; errors of earlier requests and of other displays still go to the handler in force. Traps nest.
/// Leaving costs a round trip only when a request was made that had no reply yet.
class LM_API XErrorTrap {
public:
    explicit XErrorTrap(Display* display);
    XErrorTrap(const XErrorTrap&) = delete;
    XErrorTrap& operator=(const XErrorTrap&) = delete;
    ~XErrorTrap();

    /// The code of the first error trapped so far (BadWindow ...), 0 when there was none. Waits for the server.
    int error();

private:
    static int handle(Display* display, XErrorEvent* event);
    bool covers(Display* display, unsigned long serial) const { return display == _display && serial >= _firstRequest; }

    Display* _display;
    unsigned long _firstRequest;   // errors of earlier requests are not ours
    int _error = 0;
    XErrorTrap* _outer;
    XErrorHandler _previous;
};

}   // namespace lm
