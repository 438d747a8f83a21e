// MeterBars.h: the bars of a meter, as rectangles.
#pragma once

#include "geometry/Placement.h"

#include <optional>

namespace lm {

/// One item of a meter: along the meter in hundredths of its length, across it in the units of `breadthUnits`.
struct MeterBar {
    int start = 0, size = 0;   // along
    int top = 0, bottom = 0;   // across: the far edge and the near one
};

/// What an item is measured against, in pixels and units.
struct MeterArea {
    bool vertical = true;   // bars grow upwards from the bottom edge; else to the right from the left edge
    int width = 0, height = 0;
    int breadthUnits = 0;    // the units that fill the meter across
    int lengthUnits = 100;   // the units that fill it along
};

/// An item's rectangle in the area; nothing when it does not fit along the meter, or there is nothing to measure against.
std::optional<Rect> meterRectangle(const MeterArea& area, const MeterBar& bar);

/// The outline around an item's rectangle; nothing when the rectangle is too small for one. The near edge across is the
/// item's own, unscaled.
std::optional<Rect> meterOutline(const MeterArea& area, const MeterBar& bar);

/// A value as a share of a total, in units, cut towards zero; the result keeps within int whatever the values are. 0 when
/// the total is 0.
int meterUnits(int value, int total, int units);

}   // namespace lm
