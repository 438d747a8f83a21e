#include "base/help/HelpRequest.h"

#include "LmHelpPane.h"
#include "support/xt.h"

#include <Xm/Xm.h>

namespace lm {

Time timeOfCall(XtPointer callData) { return callData ? timeOf(static_cast<XmAnyCallbackStruct*>(callData)->event) : 0; }

void requestHelp(std::string key, Time time, Widget w)
{
    if (LmHelpPane::HelpFunc)
        LmHelpPane::HelpFunc(key.data(), time, w);
}

}   // namespace lm
