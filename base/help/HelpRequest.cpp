#include "base/help/HelpRequest.h"

#include "LmHelpPane.h"

#include <Xm/Xm.h>

namespace lm {

Time timeOf(const XEvent* event)
{
    switch (event ? event->type : 0) {
    case KeyPress:
    case KeyRelease:
        return event->xkey.time;
    case ButtonPress:
    case ButtonRelease:
        return event->xbutton.time;
    case MotionNotify:
        return event->xmotion.time;
    case EnterNotify:
    case LeaveNotify:
        return event->xcrossing.time;
    default:
        return 0;
    }
}

Time timeOfCall(XtPointer callData) { return callData ? timeOf(static_cast<XmAnyCallbackStruct*>(callData)->event) : 0; }

void requestHelp(std::string key, Time time, Widget w)
{
    if (LmHelpPane::HelpFunc)
        LmHelpPane::HelpFunc(key.data(), time, w);
}

}   // namespace lm
