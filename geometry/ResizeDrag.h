// ResizeDrag.h: the frame around a widget, and how it follows the pointer. Everything is in the parent's coordinates.
#pragma once

#include "geometry/Placement.h"

namespace lm {

/// How far something moves for a pointer that went `distance`: a multiple of the increment, rounded towards 0; not at all
/// for an increment of 0.
int snapped(int distance, int increment);

/// A widget, without its highlight border, and the frame that stands out around it.
struct ResizeFrame {
    Rect area;               ///< what the frame shows of the widget, at least 1 wide and high
    Rect frame;              ///< the area and `inset` more on each side
    bool oversize = false;   ///< the widget is wider or higher than its parent

    /// The frame of a widget: shrunk at the right and the bottom where it would leave the parent.
    static ResizeFrame around(const Rect& widget, int highlight, int parentWidth, int parentHeight, int inset);
};

/// One drag of a grip, from the press on.
struct ResizeDrag {
    Rect frame;   ///< at the press
    int startX = 0, startY = 0;
    int inset = 0;
    bool upperRight = true;   ///< the grip, else the lower left one

    /// The frame for the pointer's place. It is never 2 * inset wide or high, or less: then it is as at the press.
    Rect resized(int x, int y, int xIncrement, int yIncrement) const;
    /// The frame moved along; it may leave the parent.
    Rect moved(int x, int y, int xIncrement, int yIncrement) const;
};

}   // namespace lm
