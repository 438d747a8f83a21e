// OverviewScale.h: a large area shown in a small one.
#pragma once

#include "geometry/Placement.h"

namespace lm {

/// How an area is scaled into a view: a point (x, y) of the area is shown at (left + x * across, top + y * down).
class OverviewScale {
public:
    /// The whole of an area in a view, both by their sizes in pixels (less than 1 counts as 1), with `margin` pixels free on all
    /// four sides. `skewed`: filling the view, with a scale for each direction; else with one scale for both, in its middle.
    OverviewScale(Point areaSize, Point viewSize, int margin, bool skewed);

    /// Where a rectangle of the area is shown; never smaller than a pixel. What lies far outside is brought to where X can
    /// still draw, 32000 pixels away.
    Rect shown(const Rect& inArea) const;
    Point shown(Point inArea) const;
    /// Which point of the area is shown there; points beside the area are beside it.
    Point inArea(Point shown) const;

private:
    double _across;
    double _down;
    double _left;
    double _top;
};

/// The middle of a rectangle.
Point middleOf(const Rect& rect);

/// Where the part of `length` pixels that shows `middle` in its middle begins, as a scroll bar's value: from `first` on, and
/// without going over `end`.
int scrollValue(int middle, int length, int first, int end);

}   // namespace lm
