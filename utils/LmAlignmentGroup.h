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

    void alignLeft();
    void alignRight();
    void alignTop();
    void alignBottom();
    /// Gives every member the width of the widest.
    void alignWidth();
    void alignHeight();
    /// Spreads the members evenly between the first and the last; nothing with fewer than two.
    void distributeHorizontal();
    void distributeVertical();
    /// Gives every member its preferred size.
    void makeNormal();

private:
    void distribute(const char* coordinate);

    Dimension _maxWidth = 0, _maxHeight = 0;
    Position _maxX = 0, _maxY = 0;
};
