// WindowTitle.h: what a window's title says.
#pragma once

#include <string>

namespace lm {

/// The title, followed by the last component of the development tree's path in parentheses: "Editor (alpha)" for
/// "/views/alpha". A path that is null or has no '/' changes nothing. At most 1023 bytes, never half a character.
std::string titleInTree(const char* title, const char* treePath);

}   // namespace lm
