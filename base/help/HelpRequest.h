// HelpRequest.h: how the help service of the program is asked.
#pragma once

#include <X11/Intrinsic.h>

#include <string>

namespace lm {

/// When the event of a callback happened. The call data may be null, or starts as an XmAnyCallbackStruct.
Time timeOfCall(XtPointer callData);

/// Calls the installed help function, if any, with a copy of the key that lives as long as the call. May destroy anything.
void requestHelp(std::string key, Time time, Widget w);

}   // namespace lm
