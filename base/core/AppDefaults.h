// AppDefaults.h: the library's own default resource lines.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

/// Default resource lines in the form of LmComponent::setDefaultResources(), ended by null: the texts of help panes.
const String* applicationDefaults();

}   // namespace lm
