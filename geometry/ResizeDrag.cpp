#include "geometry/ResizeDrag.h"

#include <algorithm>

namespace lm {

int snapped(int distance, int increment) { return increment == 0 ? 0 : distance - distance % increment; }

ResizeFrame ResizeFrame::around(const Rect& widget, int highlight, int parentWidth, int parentHeight, int inset)
{
    Rect area = {widget.x + highlight, widget.y + highlight, widget.width - 2 * highlight, widget.height - 2 * highlight};
    if (area.x + area.width + inset > parentWidth)
        area.width -= inset;
    if (area.y + area.height + inset > parentHeight)
        area.height -= inset;
    area.width = std::max(area.width, 1);
    area.height = std::max(area.height, 1);
    return {area,
            {area.x - inset, area.y - inset, area.width + 2 * inset, area.height + 2 * inset},
            widget.width > parentWidth || widget.height > parentHeight};
}

// The edges that follow the pointer; the opposite corner stays:
//
//        top >+--------[#]            +----------+
//             |         |      or     |          |
//             +---------+       left >[#]--------+
//                       ^ right                  ^ bottom is its lower edge
Rect ResizeDrag::resized(int x, int y, int xIncrement, int yIncrement) const
{
    const int dx = snapped(x - startX, xIncrement), dy = snapped(y - startY, yIncrement);
    const int width = frame.width + (upperRight ? dx : -dx), height = frame.height + (upperRight ? -dy : dy);
    if (width <= 2 * inset || height <= 2 * inset)
        return frame;
    return {frame.x + (upperRight ? 0 : dx), frame.y + (upperRight ? dy : 0), width, height};
}

Rect ResizeDrag::moved(int x, int y, int xIncrement, int yIncrement) const
{
    return {frame.x + snapped(x - startX, xIncrement), frame.y + snapped(y - startY, yIncrement), frame.width, frame.height};
}

}   // namespace lm
