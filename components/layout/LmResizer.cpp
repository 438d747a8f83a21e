#include "LmResizer.h"

#include "LmApp.h"
#include "components/layout/ResizeParts.h"
#include "geometry/ResizeDrag.h"
#include "support/calldata.h"

#include <X11/IntrinsicP.h>
#include <X11/cursorfont.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

const char* const LmResizer::stateChangedCallback = "stateChanged";

static constexpr int resizing = 1, moving = 2, resized = 3, moved = 4;

struct LmResizer::Drag {
    lm::ResizeDrag frame{.inset = lm::ResizeParts::inset};   // its `frame` is that of the last rebuild()
    lm::Rect pressed;                                        // the widget at the press
    std::optional<lm::Rect> received;                        // what the last drag gave the widget
};

LmResizer::LmResizer(char autoAdjust, char liveResize)
    : _autoAdjust(autoAdjust != 0),
      _liveResize(liveResize != 0),
      _parts(std::make_unique<lm::ResizeParts>(button_press, button_release, this)),
      _drag(std::make_unique<Drag>())
{}

LmResizer::~LmResizer()
{
    endGrab(CurrentTime);
    if (_baseWidget)
        removeCallbacks(_baseWidget);
}

// --- attaching ---------------------------------------------------------------------------------------------------------

static bool usable(Widget w) { return w && !w->core.being_destroyed; }

void LmResizer::attach(Widget w)
{
    if (w && !XtIsWidget(w)) {
        std::fputs("LmResizer: Can't operate on a gadget\n", stderr);
        std::abort();
    }
    if (_baseWidget)
        detach();
    if (!usable(w) || !usable(XtParent(w)))
        return;
    _baseWidget = w;
    _drag->received.reset();
    installDestroyHandler();
    setupCallbacks(w);
    rebuild(w);
}

void LmResizer::detach()
{
    if (!_baseWidget)
        return;
    endGrab(CurrentTime);
    hide();
    removeCallbacks(_baseWidget);
    removeDestroyHandler();
    _baseWidget = nullptr;
}

void LmResizer::widgetDestroyed()
{
    endGrab(CurrentTime);
    hide();
    removeCallbacks(_baseWidget);
    LmComponent::widgetDestroyed();
}

void LmResizer::setupCallbacks(Widget w)
{
    for (Widget watched : {w, XtParent(w)})
        XtAddEventHandler(watched, StructureNotifyMask, False, reconfig_stub, this);
}

void LmResizer::removeCallbacks(Widget w)
{
    for (Widget watched : {w, XtParent(w)})
        XtRemoveEventHandler(watched, StructureNotifyMask, False, reconfig_stub, this);
}

void LmResizer::reconfig_stub(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    static_cast<LmResizer*>(clientData)->reconfigured(event);
}

/// Parts that were made before their parent's window are stacked when it is seen. A window that is not seen any more has
/// lost the grab to the server.
void LmResizer::reconfigured(XEvent* event)
{
    const bool lost = _grabWidget && event->type == UnmapNotify && event->xunmap.window == XtWindow(_grabWidget);
    if (lost)
        endGrab(CurrentTime);
    if (_autoAdjust || _oversize || lost)
        adjustGeometry();
    if (_shown && !_grabWidget && (lost || event->type == MapNotify))
        show();
}

// --- the frame -----------------------------------------------------------------------------------------------------------

lm::Rect LmResizer::widgetGeometry() const
{
    return {_baseWidget->core.x, _baseWidget->core.y, _baseWidget->core.width, _baseWidget->core.height};
}

void LmResizer::rebuild(Widget w)
{
    if (!usable(w) || !usable(XtParent(w)))
        return;
    Widget parent = XtParent(w);
    _parts->makeIn(parent);
    Dimension highlight = 0;
    Pixel parentBackground = 0, background = 0, foreground = 0;
    XtVaGetValues(parent, XmNbackground, &parentBackground, nullptr);
    XtVaGetValues(w, XmNhighlightThickness, &highlight, XmNforeground, &foreground, XmNbackground, &background, nullptr);
    const auto geometry = lm::ResizeFrame::around({w->core.x, w->core.y, w->core.width, w->core.height}, highlight,
                                                  parent->core.width, parent->core.height, lm::ResizeParts::inset);
    _oversize = geometry.oversize;
    _drag->frame.frame = geometry.frame;
    _parts->colour(parentBackground, foreground, background == parentBackground ? foreground : background);
    _parts->place(geometry);
}

void LmResizer::adjustGeometry()
{
    if (_baseWidget && !_grabWidget)
        rebuild(_baseWidget);
}

// --- showing -----------------------------------------------------------------------------------------------------------

void LmResizer::show()
{
    _shown = true;
    if (!usable(_parts->parent()))
        return;
    _parts->show(_baseWidget);
    if (_baseWidget)
        defineCursors();
}

void LmResizer::hide()
{
    _shown = false;
    endGrab(CurrentTime);
    if (_baseWidget)
        _parts->hide();
}

void LmResizer::defineCursors()
{
    if (!theApplication || !theApplication->display())
        return;
    Display* display = theApplication->display();
    const auto make = [display](lm::CursorHandle& cursor, unsigned shape) {
        if (!cursor)
            cursor = lm::CursorHandle(display, XCreateFontCursor(display, shape));
    };
    make(_lowerLeftCursor, XC_bottom_left_corner);
    make(_upperRightCursor, XC_top_right_corner);
    make(_moveCursor, XC_fleur);
    const bool resizes = _xResizeIncrement || _yResizeIncrement, moves = _xMoveIncrement || _yMoveIncrement;
    const Cursor other = moves ? _moveCursor.get() : None;
    _parts->defineCursors(resizes ? _lowerLeftCursor.get() : other, resizes ? _upperRightCursor.get() : other);
}

void LmResizer::setIncrements(int xResize, int yResize, int xMove, int yMove)
{
    _xResizeIncrement = static_cast<signed char>(xResize);
    _yResizeIncrement = static_cast<signed char>(yResize);
    _xMoveIncrement = static_cast<signed char>(xMove);
    _yMoveIncrement = static_cast<signed char>(yMove);
    if (_shown)
        defineCursors();
}

// --- dragging ----------------------------------------------------------------------------------------------------------

void LmResizer::button_press(Widget w, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    static_cast<LmResizer*>(clientData)->buttonPress(w, event);
}

void LmResizer::button_release(Widget w, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    static_cast<LmResizer*>(clientData)->buttonRelease(w, event);
}

void LmResizer::pointer_motion(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    static_cast<LmResizer*>(clientData)->pointerMotion(event);
}

/// Grabs the pointer for the parent, in whose coordinates the drag is.
bool LmResizer::beginGrab(Widget grip, XEvent* event)
{
    defineCursors();
    const lm::CursorHandle& corner = grip == _parts->upperRight() ? _upperRightCursor : _lowerLeftCursor;
    Widget parent = XtParent(grip);
    const int status =
        XtGrabPointer(parent, False, ButtonReleaseMask | PointerMotionMask, GrabModeAsync, GrabModeSync, XtWindow(parent),
                      event->xbutton.button == Button1 ? corner.get() : _moveCursor.get(), event->xbutton.time);
    if (status != GrabSuccess)
        return false;
    _grabWidget = parent;
    XtAddEventHandler(parent, PointerMotionMask, False, pointer_motion, this);
    XtAddEventHandler(parent, ButtonReleaseMask, False, button_release, this);
    return true;
}

/// Sets pointer and keyboard free, however the drag ends.
void LmResizer::endGrab(Time time)
{
    Widget grabbed = std::exchange(_grabWidget, nullptr);
    if (!grabbed)
        return;
    XtUngrabPointer(grabbed, time);
    XtRemoveEventHandler(grabbed, PointerMotionMask, False, pointer_motion, this);
    XtRemoveEventHandler(grabbed, ButtonReleaseMask, False, button_release, this);
}

void LmResizer::buttonPress(Widget grip, XEvent* event)
{
    const unsigned button = event->xbutton.button;
    const bool resizes = button == Button1 && (_xResizeIncrement || _yResizeIncrement);
    const bool moves = button == Button2 && (_xMoveIncrement || _yMoveIncrement);
    if (_grabWidget || !usable(_baseWidget) || !usable(_parts->parent()) || !_parts->complete() || (!resizes && !moves) ||
        !beginGrab(grip, event))
        return;
    _dragButton = static_cast<int>(button);
    _drag->pressed = widgetGeometry();
    _drag->received.reset();
    Position gripX = 0, gripY = 0, parentX = 0, parentY = 0;
    XtTranslateCoords(grip, 0, 0, &gripX, &gripY);
    XtTranslateCoords(_parts->parent(), 0, 0, &parentX, &parentY);
    _drag->frame.startX = gripX + event->xbutton.x - parentX;
    _drag->frame.startY = gripY + event->xbutton.y - parentY;
    _drag->frame.upperRight = grip == _parts->upperRight();
    if (!_liveResize)
        _parts->raiseFrame();   // else the widget would hide it
    _parts->hideGrips();
}

void LmResizer::pointerMotion(XEvent* event)
{
    if (!_grabWidget || !XtIsRealized(_grabWidget) || !_parts->frame())
        return;
    if (!(event->xmotion.state & (_dragButton == 1 ? Button1Mask : Button2Mask)))
        return finishDrag(event->xmotion.time);   // the button went up while the server had taken the grab
    const lm::Watch here(_alive);
    if (_dragButton == 1)
        resizeFrame(event->xmotion.x, event->xmotion.y);
    else
        moveFrame(event->xmotion.x, event->xmotion.y);
    if (here && _grabWidget && _liveResize)
        matchFrame();
}

void LmResizer::setFrame(const lm::Rect& frame)
{
    if (_parts->frame())
        lm::setGeometry(_parts->frame(), frame);
}

void LmResizer::resizeFrame(int x, int y)
{
    setFrame(_drag->frame.resized(x, y, _xResizeIncrement, _yResizeIncrement));
    callCallbacks(stateChangedCallback, lm::asPointer(resizing));
}

void LmResizer::moveFrame(int x, int y)
{
    setFrame(_drag->frame.moved(x, y, _xMoveIncrement, _yMoveIncrement));
    callCallbacks(stateChangedCallback, lm::asPointer(moving));
}

/// The geometry at the press, with what the frame has changed since.
lm::Rect LmResizer::matchingGeometry() const
{
    Widget frame = _parts->frame();
    if (!frame)
        return _drag->pressed;
    const lm::Rect& base = _drag->frame.frame;
    return {_drag->pressed.x + frame->core.x - base.x, _drag->pressed.y + frame->core.y - base.y,
            _drag->pressed.width + frame->core.width - base.width, _drag->pressed.height + frame->core.height - base.height};
}

void LmResizer::matchFrame()
{
    if (usable(_baseWidget) && _parts->frame())
        lm::setGeometry(_baseWidget, matchingGeometry());
}

void LmResizer::buttonRelease(Widget w, XEvent* event)
{
    if (_grabWidget && w == _grabWidget && event->xbutton.button == static_cast<unsigned>(_dragButton))
        finishDrag(event->xbutton.time);
}

void LmResizer::finishDrag(Time time)
{
    endGrab(time);
    matchFrame();
    if (_baseWidget)
        _drag->received = widgetGeometry();
    const lm::Watch here(_alive);
    Widget dragged = _baseWidget;
    callCallbacks(stateChangedCallback, lm::asPointer(_dragButton == 1 ? resized : moved));
    if (!here || _grabWidget || _baseWidget != dragged || !usable(_baseWidget))
        return;
    adjustGeometry();
    _drag->received = widgetGeometry();
    if (_shown)
        show();
    XSync(XtDisplay(_baseWidget), False);
}

void LmResizer::lastLocation(Position* x, Position* y, Dimension* width, Dimension* height)
{
    lm::Rect place;
    if (_grabWidget)
        place = matchingGeometry();
    else if (_drag->received)
        place = *_drag->received;
    else if (_baseWidget)
        place = widgetGeometry();
    *x = static_cast<Position>(place.x);
    *y = static_cast<Position>(place.y);
    *width = static_cast<Dimension>(place.width);
    *height = static_cast<Dimension>(place.height);
}
