// SearchPath.h: where application defaults are looked for, for this process and for its children.
#pragma once

#include <X11/Intrinsic.h>

#include <optional>
#include <string>

namespace lm {

/// Appends our pattern to XFILESEARCHPATH, unless it is there.
void extendSearchPath();

/// XFILESEARCHPATH as the process was started with it; children get this one. Nothing: it was not set.
std::optional<std::string> originalSearchPath();

/// Setting XFILESEARCHPATH hides libXt's own default path, where some systems keep application defaults. When the class
/// file of the display's application is not on the former, this merges the one of the latter, without overriding.
void loadClassFileFromDefaultPath(Display* display);

}   // namespace lm
