// LmScrolledBox: many children of one size in cells, scrolled by arrow buttons.
#pragma once

#include "LmComponent.h"
#include "LmWidgetList.h"

#include <memory>
#include <unordered_set>

/// A framed viewport over a board of children, in cells of the largest child's size. A wide box has as many rows as fit and
/// arrows for left and right; a tall one as many columns and arrows for up and down. It changes from one to the other as its
/// size does. Each press of an arrow, and each turn of the wheel, scrolls by one cell. A second child of the base widget is
/// the special widget: it stands at the right of a wide box, below a tall one.
///
/// Children are made in board(). They are laid out when the box is given a size, and by resize().
///
///   Widgets    XmForm of the component's name (base widget, managed): frame (XmFrame) with form (XmForm); in it viewport
///              (XmDrawingArea) with Bboard (XmDrawingArea), horizArrows and vertArrows (XmGrid) with XmArrowButtons:
///              arrowRight, arrowLeft, and arrowUp, which points down and scrolls on, arrowDown, which scrolls back.
///              The forms have the action UnSelectAll on <Btn1Down>
///   Resources  spacing           Spacing           Int          4           between children and around them, pixels
///              initialPlacement  InitialPlacement  Orientation  HORIZONTAL  VERTICAL: tall at first
///   Errors     none; widgets that are being destroyed take no part
class LM_API LmScrolledBox : public LmComponent {
public:
    LmScrolledBox(const char* name, Widget parent);   ///< A box without children.
    ~LmScrolledBox() override;

    const char* className() override { return "LmScrolledBox"; }
    void widgetDestroyed() override;

    /// Enters a child of the board; one that has been entered already is left as it is. resize() enters all.
    void add(Widget w);
    /// Scrolls back to the start.
    void reset();
    /// Scrolls so that a child is seen: one behind the end goes to the start of the viewport.
    void makeViewable(Widget child);
    /// Keeps the place that is scrolled to after a layout, for cells of that size, pixels.
    void makeViewable(int childWidth, int childHeight);
    /// Scrolls by a cell, in steps: -1 on, 1 back. It does not stop at the ends.
    void scrollArea(int direction);
    void hideChildren();   ///< Unmanages the board.
    void showChildren();   ///< Manages the board.
    /// Of board and viewport.
    void setBackground(Pixel background);
    /// Whether a child smaller than its cell lies in its middle; counts from the next layout on.
    void setCenterChildren(char centre) { _centerChildren = centre != 0; }
    char centerChildren() const { return _centerChildren; }   ///< What setCenterChildren() set.
    /// 0 wide, 1 tall, 2 not decided yet.
    int getCurrentPlacement() const { return _placement; }
    /// The viewport has another size, or children have changed: lays them out.
    virtual void resize();

    /// The parent of the children.
    Widget board() const { return _board; }
    Widget viewport() const { return _viewport; }   ///< The window in which the board moves.

protected:
    /// Lays the children out, with a placement (0, 1) if none is decided yet.
    void layout(int placement);
    /// Shows the arrows that are of use.
    void adjustArrows();
    /// Puts the special widget to its side.
    void positionSpecial();
    /// The size that the box `w` would like: with children the board's. Wider than `maxWidth` or higher than `maxHeight`
    /// (0: no limit), it gives up a cell there and takes one in the other direction.
    void computeSize(Widget w, Dimension* width, Dimension* height, Dimension maxWidth, Dimension maxHeight);
    /// Of the managed children; 0 without any.
    void getMaxChildDimensions(Dimension* width, Dimension* height);
    /// A hook; nothing here.
    void unSelect() {}

    /// The Xt procedures, with the box as client data (the action: as the widget's user data).
    static void resizeCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    static void upArrowCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;     ///< Scrolls on by a cell.
    static void downArrowCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;   ///< Scrolls back by a cell.
    /// The action UnSelectAll: does nothing.
    static void unSelectCallback(Widget w, XEvent* event, String* parameters, Cardinal* count) noexcept;
    /// A child is being destroyed: it leaves the box.
    static void widgetDestroyedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

private:
    enum Placement : int { Wide = 0, Tall = 1, Undecided = 2 };
    void makeForms(Widget parent);
    void makeArrows();
    void makeViewport();
    Widget makeArrow(const char* name, Widget grid, unsigned char direction, XtCallbackProc action);
    void findSpecial();
    void addBoardChildren();
    void place(int width, int height);
    bool usable() const;
    Widget arrowsOf(int placement) const { return placement == Wide ? _horizArrows : _vertArrows; }
    void turnWheel(XEvent* event);

    Widget _topForm = nullptr, _innerForm = nullptr, _frame = nullptr, _board = nullptr, _viewport = nullptr;
    Widget _horizArrows = nullptr, _vertArrows = nullptr;
    Widget _arrowLeft = nullptr, _arrowRight = nullptr, _arrowUp = nullptr, _arrowDown = nullptr;
    std::unique_ptr<LmWidgetList> _children;
    std::unordered_set<Widget> _entered;   // the same, for quick answers
    int _placement = Undecided;
    char _initialPlacement = Undecided;
    bool _inResize = false, _centerChildren = false;
    int _spacing = 4;
    Widget _special = nullptr;
};
