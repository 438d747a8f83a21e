// GridRecords.h: what Xt allocates for a grid or spring box and for its children, and how these are laid out.
#pragma once

#include "geometry/GridLayout.h"

#include <Xm/ManagerP.h>
#include <Xm/XmP.h>

#include <algorithm>
#include <vector>

namespace lm::grid {

/// What a grid or spring box keeps for itself.
struct GridPart {
    int numRows, numColumns, spacing;
    unsigned char orientation;
    Boolean autoLayout;
    Dimension marginWidth, marginHeight;
    Boolean fixedWidth, fixedHeight;   // the application gave the size
    Boolean layingOut;
    Dimension naturalWidth, naturalHeight;       // when room was last asked for; 0: never yet
    std::vector<lm::GridTrack>*rows, *columns;   // owned
};

struct GridRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    GridPart grid;
};

/// What a grid or spring box keeps for each child.
struct GridConstraintPart {
    int row, column, gravity;
    Boolean fillsWidth, fillsHeight;
    int left, right, top, bottom, horizontal, vertical;   // springs
    Dimension wantedWidth, wantedHeight;                  // the child's own size; 0: not known yet
    Dimension givenWidth, givenHeight;                    // the size it was laid out with
    Boolean changed;                                      // constraints were, and the layout waits for the geometry request
};

struct GridConstraintRec {
    XmManagerConstraintPart manager;
    GridConstraintPart grid;
};

struct GridClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
};

inline GridPart& partOf(Widget w) { return reinterpret_cast<GridRec*>(w)->grid; }

inline GridConstraintPart& constraintOf(Widget child) { return static_cast<GridConstraintRec*>(child->core.constraints)->grid; }

struct Size {
    int width, height;
    bool operator==(const Size&) const = default;
};

inline Size sizeOf(Widget w) { return {w->core.width, w->core.height}; }

inline Dimension asDimension(int length) { return static_cast<Dimension>(std::clamp(length, 1, 32767)); }

/// The children that take part in the layout, in their order.
std::vector<Widget> managedChildren(Widget grid);
/// The child's own size, border included. A size that is not the one we gave last was chosen by the child itself.
Size wantedSize(Widget child);
/// The size that the children would have room in.
Size naturalSize(Widget grid);
/// The size that the grid would like: what the application gave, else the natural size.
Size likedSize(Widget grid);
/// The size to ask the parent for: the natural size, when it has changed and the grid had just that, or has less. A grid that
/// was given more keeps it.
Size roomToAsk(Widget grid);
/// The places of the children in a grid of that size.
std::vector<Rect> placesIn(Widget grid, const std::vector<Widget>& children, Size size);
/// Lays the children out in the grid as it is; before it is realized their sizes still are their own. The record of
/// `asking` is set, but its window left to Xt.
void layOut(Widget grid, Widget asking = nullptr);
/// Asks the parent for roomToAsk(), and takes what it offers.
void askForRoom(Widget grid);
/// The natural size counts as asked for.
void noteNatural(Widget grid);
/// Both, unless the application wants to wait.
void layOutAnew(Widget grid);

}   // namespace lm::grid
