#include "base/core/WindowProperties.h"

#include "support/resources.h"
#include "support/text.h"

#include <X11/Xatom.h>

#include <iterator>

#include <unistd.h>

static lm::WindowAtoms internAtoms(Display* display)
{
    char* names[] = {lm::xtText("WM_PROTOCOLS"), lm::xtText("WM_DELETE_WINDOW"), lm::xtText("_WM_QUIT_APP"),
                     lm::xtText("UTF8_STRING"),  lm::xtText("_NET_WM_NAME"),     lm::xtText("_NET_WM_ICON_NAME"),
                     lm::xtText("_NET_WM_PID")};
    Atom atoms[std::size(names)] = {};
    XInternAtoms(display, names, static_cast<int>(std::size(names)), False, atoms);
    return {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5], atoms[6]};
}

const lm::WindowAtoms& lm::windowAtoms(Display* display)
{
    static const WindowAtoms atoms = internAtoms(display);
    return atoms;
}

void lm::setUtf8Property(Widget shell, Atom property, const char* text)
{
    if (!text)
        return;
    const std::string utf8 = toUtf8(text);
    XChangeProperty(XtDisplay(shell), XtWindow(shell), property, windowAtoms(XtDisplay(shell)).utf8String, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(utf8.data()), static_cast<int>(utf8.size()));
}

void lm::setProcessId(Widget shell)
{
    const long pid = getpid();
    XChangeProperty(XtDisplay(shell), XtWindow(shell), windowAtoms(XtDisplay(shell)).netWmPid, XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&pid), 1);
}
