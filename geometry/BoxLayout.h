// BoxLayout.h: children of one size in cells, in a box that scrolls along or down. Everything is in pixels.
#pragma once

#include "geometry/Placement.h"

#include <vector>

namespace lm {

/// The cells of a box: a wide one has as many rows as fit and scrolls along, a tall one as many columns and scrolls down.
struct BoxCells {
    int columns = 1, rows = 1;
    int stepX = 1, stepY = 1;   ///< from cell to cell: the largest child and the spacing
    int spacing = 0;

    /// `count` children, the largest childWidth x childHeight, in a box of width x height.
    static BoxCells of(bool tall, int width, int height, int childWidth, int childHeight, int spacing, int count);

    /// The board that all cells need.
    int boardWidth() const { return stepX * columns + spacing; }
    int boardHeight() const { return stepY * rows + spacing; }
    /// Where the index-th child of that size lies: at its cell's corner, or in its middle.
    Point place(int index, int width, int height, bool centred) const;
};

/// Whether a viewport asks for the tall layout (one column, several rows), the wide one, or leaves it as it is.
enum class BoxShape { Wide, Tall, Either };
BoxShape boxShape(int width, int height, int stepX, int stepY);

/// Where a board goes after a layout, so that something of it is seen: a place along the scrolling direction of the other
/// layout is kept in cells.
Point keptBoardPlace(bool tall, Point board, int boardWidth, int boardHeight, int viewWidth, int viewHeight, int stepX,
                     int stepY);

/// The places on the way from one coordinate to another, a tenth of the distance each but at least 1, and the end itself.
std::vector<int> scrollSteps(int from, int to);

}   // namespace lm
