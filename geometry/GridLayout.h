// GridLayout.h: children in rows and columns, and children in a line between springs. Everything is in pixels.
#pragma once

#include "geometry/Placement.h"

#include <X11/X.h>

#include <vector>

namespace lm {

/// Lengths that together are `total` long. What is to spare is shared out by the weights, to the pixel; without any weight
/// it is left over at the end. What is missing is taken first from the lengths with a weight, all to the same fraction,
/// then from the others; but no length goes below 1 that was not 0. Weights below 0 count as 0.
std::vector<int> fitLengths(std::vector<int> lengths, const std::vector<int>& weights, int total);

/// A row or a column.
struct GridTrack {
    int weight = 1;    ///< its share of what is to spare; 0 or less: fixed
    int margin = -1;   ///< the space on both sides of it; negative: the spacing, and none at the edges
};

/// What the children lie in.
struct GridShape {
    int numRows = 0, numColumns = 0;   ///< as children without a cell of their own fill them; 0: as many as needed
    bool horizontal = true;            ///< such children follow each other along the rows
    int spacing = 0;                   ///< between two tracks that have no margin of their own
    int marginWidth = 0, marginHeight = 0;
    std::vector<GridTrack> rows, columns;   ///< tracks beyond are as a GridTrack is made
};

/// One child: the cell and the size it would like.
struct GridItem {
    int row = -1, column = -1;   ///< negative: the next cell that is free
    int width = 1, height = 1;
    bool fillsWidth = true, fillsHeight = true;   ///< takes the whole cell
    int gravity = CenterGravity;                  ///< where it lies in a cell that it does not fill
};

/// The tracks of one direction, from the first to the last. One without children takes no room at all.
struct GridLine {
    std::vector<int> before;   ///< the space before each
    std::vector<int> natural, weights;
    int after = 0;   ///< the space behind the last

    int naturalLength() const;
    /// Where each track starts and how long it is, when all together are `total` long.
    struct Stretch {
        int start, length;
    };
    std::vector<Stretch> arrange(int total) const;
};

/// Children in rows and columns. They never overlap, but for those that ask for the same cell.
class GridLayout {
public:
    static constexpr int maxTracks = 10000;   ///< a child further out lies in the last

    GridLayout(const GridShape& shape, std::vector<GridItem> items);

    int naturalWidth() const { return _across.naturalLength(); }
    int naturalHeight() const { return _down.naturalLength(); }
    /// The places of the children, in their order, in a grid of that size.
    std::vector<Rect> places(int width, int height) const;

private:
    std::vector<GridItem> _items;   // all with their cells
    GridLine _across, _down;
};

/// One child of a spring box, with the weights of the springs beside it and of itself.
struct SpringItem {
    int width = 1, height = 1;
    int left = 50, right = 50, top = 50, bottom = 50;
    int horizontal = 0, vertical = 0;
};

/// Children in a line, side by side (horizontal) or from top to bottom. What is to spare goes to springs and children
/// by their weights, along the line to all together, across it to each child alone.
class SpringLayout {
public:
    SpringLayout(bool horizontal, int spacing, int marginWidth, int marginHeight, std::vector<SpringItem> items);

    int naturalWidth() const { return _horizontal ? _along : _across; }
    int naturalHeight() const { return _horizontal ? _across : _along; }
    std::vector<Rect> places(int width, int height) const;

private:
    GridLine::Stretch across(const SpringItem& item, int room) const;

    bool _horizontal;
    int _spacing, _marginWidth, _marginHeight;
    std::vector<SpringItem> _items;
    int _along = 0, _across = 0;
};

}   // namespace lm
