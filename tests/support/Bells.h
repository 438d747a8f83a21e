// Bells.h: how often the bell rang.
#pragma once

#include "tests/support/OnScreen.h"

#include <X11/XKBlib.h>

namespace lmtest {

/// Listens to the server's bell on a connection of its own.
class Bells {
public:
    Bells() : _display(XkbOpenDisplay(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr))
    {
        XkbSelectEvents(_display, XkbUseCoreKbd, XkbBellNotifyMask, XkbBellNotifyMask);
        XSync(_display, False);
    }
    Bells(const Bells&) = delete;
    Bells& operator=(const Bells&) = delete;
    ~Bells() { XCloseDisplay(_display); }

    /// How often it rang since the last call.
    int rung()
    {
        settle();
        XSync(_display, False);
        int count = 0;
        for (; XPending(_display) > 0; ++count) {
            XEvent event;
            XNextEvent(_display, &event);
        }
        return count;
    }

private:
    Display* _display;
};

}   // namespace lmtest
