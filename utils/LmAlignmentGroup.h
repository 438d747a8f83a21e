// LmAlignmentGroup: widgets lined up, or made alike.
#pragma once

#include "LmWidgetList.h"

class LmOptionMenu;

/// A list of widgets that are lined up with each other or given one size, through their x, y, width and height. The largest
/// value seen is remembered for the group's life: a later call never makes things smaller.
class LM_API LmAlignmentGroup : public LmWidgetList {
public:
    using LmWidgetList::add;
    /// Appends every second item of an option menu: its entries, without what separates them.
    virtual void add(LmOptionMenu* menu);

    void alignLeft();     ///< Gives every member the x of the rightmost.
    void alignRight();    ///< Moves every member so that its right edge is where that of the furthest one is.
    void alignTop();      ///< Gives every member the y of the lowest.
    void alignBottom();   ///< Moves every member so that its lower edge is where that of the lowest one is.
    /// Gives every member the width of the widest.
    void alignWidth();
    void alignHeight();   ///< Gives every member the height of the highest.
    /// Spreads the members evenly between the first and the last; nothing with fewer than two.
    void distributeHorizontal();
    void distributeVertical();   ///< As distributeHorizontal(), from top to bottom.
    /// Gives every member its preferred size.
    void makeNormal();

private:
    void distribute(const char* coordinate);

    Dimension _maxWidth = 0, _maxHeight = 0;
    Position _maxX = 0, _maxY = 0;
};
