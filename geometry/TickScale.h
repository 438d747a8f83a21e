// TickScale.h: where the marks and labels of a vertical scale stand.
#pragma once

#include <vector>

namespace lm {

/// A vertical scale in a drawing area, in pixels from the top; the maximum is at the top.
struct TickScale {
    int height = 0, marginTop = 0, marginBottom = 0;
    int minimum = 0, maximum = 0;
    int lineThickness = 1;

    /// The pixels between the margins; 0 or less: nothing is drawn.
    int span() const { return height - marginTop - marginBottom; }
    /// The y of every mark of an interval, from the minimum upwards. None for an interval, a range or a span of 0 or less;
    /// never more than four for each pixel.
    std::vector<int> marks(int interval) const;
    /// The y of the upper edge of a text `textHeight` high that stands level with a value. The labels of both ends keep
    /// within the area.
    int labelOfMinimum(int textHeight) const;
    int labelOfMaximum(int textHeight) const;
    int labelOf(int value, int textHeight) const;
};

}   // namespace lm
