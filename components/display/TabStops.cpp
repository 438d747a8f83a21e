#include "TabStops.h"

#include <algorithm>

namespace lm {

namespace {

constexpr int NoTab = -1;

/// The width of what stands before each line's first tab, or NoTab.
std::vector<int> widthsBeforeTab(const std::vector<std::string>& lines, const std::function<int(const std::string&)>& widthOf)
{
    std::vector<int> widths;
    for (const std::string& line : lines) {
        const auto tab = line.find('\t');
        widths.push_back(tab == std::string::npos ? NoTab : tab == 0 ? 0 : widthOf(line.substr(0, tab)));
    }
    return widths;
}

}   // namespace

bool expandTabs(std::vector<std::string>& lines, const std::function<int(const std::string&)>& widthOf)
{
    const int blank = std::max(1, widthOf(" "));
    bool expanded = false;
    for (;;) {
        const std::vector<int> widths = widthsBeforeTab(lines, widthOf);
        const int widest = widths.empty() ? NoTab : *std::max_element(widths.begin(), widths.end());
        if (widest == NoTab)
            return expanded;
        expanded = true;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (widths[i] == NoTab)
                continue;
            const int blanks = (widest - widths[i] + blank / 2) / blank + 1;
            lines[i].replace(lines[i].find('\t'), 1, std::string(static_cast<std::size_t>(blanks), ' '));
        }
    }
}

}   // namespace lm
