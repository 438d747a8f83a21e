// TabStops.h: tabs in lines that stand below each other.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace lm {

/// Replaces the tabs by blanks, column by column, so that what follows a tab starts about one blank behind the widest
/// text before it. `widthOf` tells how wide a text is, in pixels. Returns whether there was a tab.
bool expandTabs(std::vector<std::string>& lines, const std::function<int(const std::string&)>& widthOf);

}   // namespace lm
