// Placement.h: where a dialog goes.
#pragma once

#include <optional>

namespace lm {

/// A rectangle on the screen, in root coordinates; the outer edges x + width and y + height do not belong to it.
struct Rect {
    int x = 0, y = 0, width = 0, height = 0;
};

/// A place on the screen, in root coordinates.
struct Point {
    int x = 0, y = 0;
};

/// Whether `inner` lies wholly within `outer`; equal edges are within.
bool contains(const Rect& outer, const Rect& inner);

/// The upper left corner of `dialog` centred over `parent`; halves of a pixel are cut towards zero before the parent's
/// place is added.
Point centredOver(const Rect& parent, const Rect& dialog);

/// Where a dialog that is on the screen already goes: centred over its parent, or nowhere (it stays) when it lies within
/// the parent, or when its centred place would leave the screen on the left or at the top.
std::optional<Point> recentred(const Rect& parent, const Rect& dialog);

}   // namespace lm
