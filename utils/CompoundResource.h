// CompoundResource.h: texts that users may replace by resources.
#pragma once

#include "support/handles.h"

namespace lm {

/// The compound string that the resource `name` of `cls` gives on the widget; default the text itself.
XmText compoundResource(Widget w, const char* name, const char* cls, const char* fallback);

/// A label that is the name of the resource that may replace it, class "LabelString".
XmText labelResource(Widget w, const char* text);

}   // namespace lm
