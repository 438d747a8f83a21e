// RowPainter.h: draws the rows of a row list.
#pragma once

#include "LmScrolledListP.h"
#include "RowLooks.h"

namespace lm {

/// XmList draws its items by functions that cannot be replaced. So a window of ours covers the area of the items; it takes
/// no input, which falls through to the list, and shows the rows as they should look. XmList draws on beneath, unseen.
///
/// What XmList draws, it marks in the item's LastTimeDrawn. We leave a mark of our own there instead: a visible row
/// without it has been changed by whomever, and is drawn again.
class RowPainter {
public:
    RowPainter(ScrolledListRec* widget, RowLooks& looks) : _widget(widget), _looks(looks) {}
    RowPainter(const RowPainter&) = delete;
    RowPainter& operator=(const RowPainter&) = delete;
    ~RowPainter() { forgetWindow(); }

    /// Makes the window, once the list has one; forgets it when the list's has gone.
    void makeWindow();
    void forgetWindow();
    bool owns(Window window) const { return _window != None && window == _window; }

    /// Follows the list's size and colours.
    void resize();
    void recolour();

    /// Draws what has changed since the last time.
    void paint();
    /// Draws everything the next time.
    void spoil() { _allSpoilt = true; }
    /// Draws the row (from 0) the next time.
    void spoil(int row) { _widget->list.InternalList[row]->LastTimeDrawn = !_widget->list.InternalList[row]->selected; }

    /// The column that keeps the labels right of the icons, in pixels.
    int iconColumn() const;

private:
    /// A rectangle in the coordinates of our window.
    struct Area {
        int x, y, width, height;
        bool operator==(const Area&) const = default;
    };

    Display* display() const { return DisplayOfScreen(_widget->core.screen); }
    int pitch() const { return _widget->list.MaxItemHeight + _widget->list.spacing; }
    int visibleRows() const;
    int innerWidth() const;
    int innerHeight() const;
    Area band(int row) const;
    Area cursorArea() const;
    void spoilCursor();
    void paintRow(int row);
    void paintIcon(Pixmap icon, const Area& band, int x);
    void paintLabel(int row, const RowLook& look, const Area& band, int x);
    void paintCursor();
    void clearBelow(int rows);

    ScrolledListRec* _widget;
    RowLooks& _looks;
    Window _window = None;
    GC _gc = nullptr;
    bool _allSpoilt = true;
    int _paintedRows = 0;
    Area _cursor{};        // as drawn last; empty when there is none
    int _cursorRow = -1;   // the visible row it stands on, -1: around all of them
};

}   // namespace lm
