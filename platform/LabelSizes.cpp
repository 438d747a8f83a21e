#include "LabelSizes.h"

#include "support/handles.h"

#include <algorithm>
#include <climits>
#include <numeric>

namespace lm {

namespace {

LabelSize measured(XmFontList font, XmString label)
{
    LabelSize size;
    XmStringExtent(font, label, &size.width, &size.height);
    return size;
}

LabelSize measured(XmFontList font, const char* text)
{
    const XmText label(XmStringCreateLocalized(const_cast<char*>(text)));
    return measured(font, label.get());
}

}   // namespace

void LabelSizes::use(XmFontList font)
{
    _font = font;
    std::array<char, Last - First + 2> all{};
    std::iota(all.begin(), all.end() - 1, static_cast<char>(First));
    bool even = true;
    const LabelSize together = measured(font, all.data());
    for (std::size_t i = 0; i < _widths.size(); ++i) {
        const std::array<char, 2> one{all[i], '\0'};
        const LabelSize size = measured(font, one.data());
        _widths[i] = size.width;
        even = even && size.height == together.height;
    }
    _height = together.height;
    _additive = even && std::accumulate(_widths.begin(), _widths.end(), 0) == together.width;
}

LabelSize LabelSizes::of(XmString label, const char* text) const
{
    if (!text || !_additive || !*text)
        return measured(_font, label);
    int width = 0;
    for (; *text; ++text) {
        if (*text < First || *text > Last)
            return measured(_font, label);
        width += _widths[static_cast<std::size_t>(*text - First)];
        if (width > USHRT_MAX)
            return measured(_font, label);
    }
    return {static_cast<Dimension>(width), static_cast<Dimension>(_height)};
}

}   // namespace lm
