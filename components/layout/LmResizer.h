// LmResizer: grips by which the user moves and resizes a widget.
#pragma once

#include "LmComponent.h"
#include "support/alive.h"
#include "support/handles.h"

#include <memory>

namespace lm {
struct Rect;
class ResizeParts;
}   // namespace lm

/// Surrounds one widget with an etched frame that has a grip at its upper right and its lower left corner. Button 1 on a
/// grip resizes, button 2 moves, in steps if wanted. The frame follows the pointer, and the widget when the button goes up;
/// in live mode at once. The widget's parent must let its children have the places they ask for (XmBulletinBoard).
///
/// The base widget is the attached widget: deleting an attached resizer destroys it; detach() beforehand keeps it. Frame and
/// grips are siblings of the widget; they stay while widgets of the same parent are attached, and go with the resizer.
///
///   Widgets    in the attached widget's parent: resizeFrame (XmFrame) with resizeArea (XmDrawingArea), resizeGripLL and
///              resizeGripUR (XmBulletinBoard)
///   Callbacks  stateChangedCallback: 1 after each step of resizing, 2 of moving; 3 resizing is over, 4 moving is; call
///              data: that integer
///   Errors     a gadget cannot be attached: a message on standard error, and the process aborts. A press is ignored when
///              the pointer cannot be grabbed
class LM_API LmResizer : public LmComponent {
public:
    static const char* const stateChangedCallback;   ///< "stateChanged"

    /// `autoAdjust`: the frame follows whenever the widget or its parent change; else only while the widget is larger than
    /// its parent. `liveResize`: the widget follows each step.
    LmResizer(char autoAdjust, char liveResize);
    ~LmResizer() override;

    /// Has the grips work on a widget; one attached before is detached. Nothing is seen before show().
    void attach(Widget w);
    /// Hides the frame and leaves the widget alone. A drag ends.
    void detach();
    /// Shows the frame below the widget, the grips above it.
    void show() override;
    void hide() override;
    void widgetDestroyed() override;

    /// The steps of each direction, pixels, -128 to 127 (further bits are cut off); 0: not in that direction. Initially 1.
    void setIncrements(int xResize, int yResize, int xMove, int yMove);
    /// Puts the frame around the widget as it is now; not during a drag.
    void adjustGeometry();
    /// The geometry, in the parent, that the widget got by the last drag, or will get by the present one; before the first
    /// drag what it has. All 0 without a widget that was ever dragged.
    void lastLocation(Position* x, Position* y, Dimension* width, Dimension* height);

protected:
    /// Puts the frame around a widget; makes the parts in its parent if they are not there.
    void rebuild(Widget w);
    /// Gives the grips the cursors of what they can do.
    void defineCursors();
    void buttonPress(Widget grip, XEvent* event);   ///< Begins a drag, if the button is for one.
    void buttonRelease(Widget w, XEvent* event);    ///< Ends the drag of that button.
    void pointerMotion(XEvent* event);              ///< One step of the drag.
    /// One step of resizing: the pointer's place in the parent.
    void resizeFrame(int x, int y);
    void moveFrame(int x, int y);   ///< One step of moving.
    /// Gives the widget the frame's geometry.
    void matchFrame();
    void setupCallbacks(Widget w);    ///< Watches a widget and its parent for changes of geometry.
    void removeCallbacks(Widget w);   ///< Undoes setupCallbacks().

    /// The Xt event handlers, with the resizer as client data.
    static void reconfig_stub(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    /// A button went down on a grip.
    static void button_press(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    /// A button went up.
    static void button_release(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    /// The pointer moved.
    static void pointer_motion(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;

private:
    void reconfigured(XEvent* event);
    bool beginGrab(Widget grip, XEvent* event);
    void endGrab(Time time);
    void finishDrag(Time time);
    void setFrame(const lm::Rect& frame);
    lm::Rect widgetGeometry() const;
    lm::Rect matchingGeometry() const;

    Widget _grabWidget = nullptr;   // null when no drag is in progress
    bool _autoAdjust, _liveResize, _shown = false, _oversize = false;
    signed char _xResizeIncrement = 1, _yResizeIncrement = 1, _xMoveIncrement = 1, _yMoveIncrement = 1;
    lm::CursorHandle _lowerLeftCursor, _upperRightCursor, _moveCursor;
    int _dragButton = 0;
    std::unique_ptr<lm::ResizeParts> _parts;   // in the attached widget's parent
    struct Drag;
    std::unique_ptr<Drag> _drag;   // the present one, and what the last one came to
    lm::Alive _alive;
};
