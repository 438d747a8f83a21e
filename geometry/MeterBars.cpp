#include "geometry/MeterBars.h"

#include <algorithm>
#include <limits>

using Wide = long long;   // products of two ints

static int narrow(Wide value)
{
    return static_cast<int>(std::clamp<Wide>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// The item along and across the meter, in pixels.
struct Extent {
    int start, length, across, breadth;
};

static std::optional<Extent> extentOf(const lm::MeterArea& area, const lm::MeterBar& bar)
{
    const Wide length = area.vertical ? area.height : area.width, breadth = area.vertical ? area.width : area.height;
    if (area.breadthUnits == 0 || area.lengthUnits == 0)
        return std::nullopt;
    const Wide across = Wide{bar.top} - bar.bottom;
    return Extent{narrow(length * bar.start / area.lengthUnits), narrow(length * bar.size / area.lengthUnits),
                  narrow(breadth * bar.bottom / area.breadthUnits), narrow(breadth * across / area.breadthUnits)};
}

std::optional<lm::Rect> lm::meterRectangle(const MeterArea& area, const MeterBar& bar)
{
    const auto e = extentOf(area, bar);
    const int length = area.vertical ? area.height : area.width;
    if (!e || Wide{e->start} + e->length > length || e->length <= 0 || e->breadth <= 0)
        return std::nullopt;
    if (area.vertical)
        return Rect{e->across, length - e->start - e->length, e->breadth, e->length};
    return Rect{e->start, e->across, e->length, e->breadth};
}

std::optional<lm::Rect> lm::meterOutline(const MeterArea& area, const MeterBar& bar)
{
    const auto e = extentOf(area, bar);
    const auto r = meterRectangle(area, bar);
    const Wide across = area.vertical ? Wide{bar.top} - bar.bottom : (e ? e->breadth : 0);
    if (!r || e->length <= 1 || across - 1 <= 1)
        return std::nullopt;
    if (area.vertical)
        return Rect{bar.bottom, r->y - 1, r->width, r->height};
    return Rect{r->x, bar.bottom, r->width, r->height - 1};
}

int lm::meterUnits(int value, int total, int units)
{
    if (total == 0)
        return 0;
    const float share = static_cast<float>(value) / static_cast<float>(total) * static_cast<float>(units);
    constexpr float limit = 2147483520.0F;   // the largest float below 2^31
    return static_cast<int>(std::clamp(share, -limit, limit));
}
