// Bells.h: how often the bell rang.
#pragma once

#include "tests/support/OnScreen.h"

#include <X11/XKBlib.h>

namespace lmtest {

/// Listens to the server's bell on a connection of its own.
struct Bells {
    Bells()
    {
        XkbSelectEvents(display, XkbUseCoreKbd, XkbBellNotifyMask, XkbBellNotifyMask);
        XSync(display, False);
    }
    ~Bells() { XCloseDisplay(display); }
    /// How often it rang since the last call; the first call counts from the construction.
    int rung()
    {
        settle();
        XSync(display, False);
        int count = 0;
        for (XEvent event; XPending(display) > 0; ++count)
            XNextEvent(display, &event);
        return count;
    }
    Display* display = XkbOpenDisplay(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
};

}   // namespace lmtest
