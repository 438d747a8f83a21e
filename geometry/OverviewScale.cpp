#include "geometry/OverviewScale.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double drawable = 32000;   // X counts pixels in 16 bits

int rounded(double value) { return static_cast<int>(std::lround(value)); }
int onScreen(double value) { return rounded(std::clamp(value, -drawable, drawable)); }

}   // namespace

lm::OverviewScale::OverviewScale(Point areaSize, Point viewSize, int margin, bool skewed)
{
    const double width = std::max(areaSize.x, 1), height = std::max(areaSize.y, 1);
    const double viewWidth = std::max(viewSize.x - 2 * margin, 1), viewHeight = std::max(viewSize.y - 2 * margin, 1);
    _across = viewWidth / width;
    _down = viewHeight / height;
    if (!skewed)
        _across = _down = std::min(_across, _down);
    _left = margin + (viewWidth - width * _across) / 2;
    _top = margin + (viewHeight - height * _down) / 2;
}

lm::Point lm::OverviewScale::shown(Point inArea) const
{
    return {onScreen(_left + inArea.x * _across), onScreen(_top + inArea.y * _down)};
}

// Edges are rounded, not sizes: what touches in the area touches in the view.
lm::Rect lm::OverviewScale::shown(const Rect& inArea) const
{
    const Point from = shown(Point{inArea.x, inArea.y});
    const Point to = shown(Point{inArea.x + inArea.width, inArea.y + inArea.height});
    return {from.x, from.y, std::max(to.x - from.x, 1), std::max(to.y - from.y, 1)};
}

lm::Point lm::OverviewScale::inArea(Point shown) const
{
    return {rounded((shown.x - _left) / _across), rounded((shown.y - _top) / _down)};
}

lm::Point lm::middleOf(const Rect& rect) { return {rect.x + rect.width / 2, rect.y + rect.height / 2}; }

int lm::scrollValue(int middle, int length, int first, int end)
{
    return std::max(first, std::min(middle - length / 2, end - length));
}
