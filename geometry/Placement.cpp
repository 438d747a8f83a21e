#include "geometry/Placement.h"

bool lm::contains(const Rect& outer, const Rect& inner)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

lm::Point lm::centredOver(const Rect& parent, const Rect& dialog)
{
    return {(parent.width - dialog.width) / 2 + parent.x, (parent.height - dialog.height) / 2 + parent.y};
}

std::optional<lm::Point> lm::recentred(const Rect& parent, const Rect& dialog)
{
    const Point centre = centredOver(parent, dialog);
    if (centre.x < 1 || centre.y < 1 || contains(parent, dialog))
        return std::nullopt;
    return centre;
}
