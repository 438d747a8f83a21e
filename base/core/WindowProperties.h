// WindowProperties.h: what a top-level window tells the window manager beside what Xt and Motif say.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

/// The atoms of top-level windows.
struct WindowAtoms {
    Atom wmProtocols, wmDeleteWindow, wmQuitApp;
    Atom utf8String, netWmName, netWmIconName, netWmPid;
};

/// The atoms, asked for once, in one request.
const WindowAtoms& windowAtoms(Display* display);

/// Sets a text property of a realized shell to the text as UTF8_STRING; invalid bytes become U+FFFD. Null: nothing.
void setUtf8Property(Widget shell, Atom property, const char* text);

/// Tells which process the realized shell belongs to, and on which host.
void setProcessId(Widget shell);

}   // namespace lm
