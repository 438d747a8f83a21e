#include "utils/CompoundResource.h"

#include "LmResource.h"

lm::XmText lm::compoundResource(Widget w, const char* name, const char* cls, const char* fallback)
{
    return XmText(static_cast<XmString>(LmGetResource(w, name, cls, XmRXmString, fallback)));
}

lm::XmText lm::labelResource(Widget w, const char* text) { return compoundResource(w, text, XmCLabelString, text); }
