// LabelSizes.h: the sizes of one-line labels in one font, without asking Motif for each.
#pragma once

#include <Xm/Xm.h>

#include <array>

namespace lm {

/// Width and height, in pixels.
struct LabelSize {
    Dimension width = 0;
    Dimension height = 0;
};

/// The sizes of labels in one font. The width of a line of ASCII is the sum of its characters' in every font where that
/// holds for all 95 of them together; a hundred thousand labels are measured so in the time Motif needs for four thousand.
class LabelSizes {
public:
    /// Measures in `font` from now on, which must live until the next call.
    void use(XmFontList font);

    /// The size of the label, whose text is `text` when that is not null; then it must be of one line and without tabs.
    LabelSize of(XmString label, const char* text) const;

private:
    static constexpr int First = ' ', Last = '~';

    XmFontList _font = nullptr;
    bool _additive = false;
    int _height = 0;
    std::array<int, Last - First + 1> _widths{};
};

}   // namespace lm
