#include "LmResizer.h"

#include "LmApp.h"
#include "geometry/ResizeDrag.h"
#include "support/calldata.h"

#include <X11/IntrinsicP.h>
#include <X11/cursorfont.h>
#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>
#include <Xm/Frame.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

const char* const LmResizer::stateChangedCallback = "stateChanged";

static constexpr int gripSize = 8;
static constexpr int gripShadowThickness = 2, frameShadowThickness = 2, frameMargin = 4;
static constexpr int inset = frameShadowThickness + frameMargin;   // how far the frame stands out
static constexpr int resizing = 1, moving = 2, resized = 3, moved = 4;

struct LmResizer::Drag {
    lm::ResizeDrag frame{.inset = inset};   // its `frame` is that of the last rebuild()
    lm::Rect pressed;                       // the widget at the press
    std::optional<lm::Rect> received;       // what the last drag gave the widget
};

LmResizer::LmResizer(char autoAdjust, char liveResize)
    : _autoAdjust(autoAdjust != 0),
      _liveResize(liveResize != 0),
      _drag(std::make_unique<Drag>())
{}

LmResizer::~LmResizer()
{
    endGrab(CurrentTime);
    if (_baseWidget)
        removeCallbacks(_baseWidget);
    destroyParts();
    setParent(nullptr);
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

// --- the parts ---------------------------------------------------------------------------------------------------------

void LmResizer::setParent(Widget parent)
{
    if (_parent)
        XtRemoveCallback(_parent, XmNdestroyCallback, partDestroyed, this);
    _parent = parent;
    if (_parent)
        XtAddCallback(_parent, XmNdestroyCallback, partDestroyed, this);
}

/// A part, or the parent of all, is gone.
void LmResizer::partDestroyed(Widget w, XtPointer clientData, XtPointer) noexcept
{
    auto* self = static_cast<LmResizer*>(clientData);
    if (w == self->_parent)
        self->endGrab(CurrentTime);
    for (Widget* part : {&self->_parent, &self->_frame, &self->_area, &self->_gripLL, &self->_gripUR}) {
        if (*part == w)
            *part = nullptr;
    }
}

void LmResizer::makeParts()
{
    const auto grip = [this](const char* name) {
        Widget made =
            XtVaCreateWidget(name, xmBulletinBoardWidgetClass, _parent, XmNmarginWidth, 0, XmNmarginHeight, 0, XmNwidth, gripSize,
                             XmNheight, gripSize, XmNshadowThickness, gripShadowThickness, XmNshadowType, XmSHADOW_OUT, nullptr);
        XtAddEventHandler(made, ButtonPressMask, False, button_press, this);
        XtAddEventHandler(made, ButtonReleaseMask, False, button_release, this);
        return made;
    };
    _gripLL = grip("resizeGripLL");
    _gripUR = grip("resizeGripUR");
    _frame = XtVaCreateWidget("resizeFrame", xmFrameWidgetClass, _parent, XmNshadowThickness, frameShadowThickness, XmNshadowType,
                              XmSHADOW_ETCHED_IN, XmNmarginWidth, frameMargin, XmNmarginHeight, frameMargin, nullptr);
    _area = XtVaCreateWidget("resizeArea", xmDrawingAreaWidgetClass, _frame, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
    for (Widget part : {_gripLL, _gripUR, _frame, _area})
        XtAddCallback(part, XmNdestroyCallback, partDestroyed, this);
}

/// Destruction may be put off, and events come until then: nothing of ours stays on the parts.
void LmResizer::destroyParts()
{
    for (Widget grip : {_gripLL, _gripUR}) {
        if (!grip)
            continue;
        XtRemoveEventHandler(grip, ButtonPressMask, False, button_press, this);
        XtRemoveEventHandler(grip, ButtonReleaseMask, False, button_release, this);
    }
    for (Widget part : {_gripLL, _gripUR, _frame, _area}) {
        if (part)
            XtRemoveCallback(part, XmNdestroyCallback, partDestroyed, this);
    }
    for (Widget* part : {&_gripLL, &_gripUR, &_frame}) {
        if (Widget w = std::exchange(*part, nullptr))
            XtDestroyWidget(w);
    }
    _area = nullptr;   // went with the frame
}

/// Motif derives shadows from a background only when it makes a widget.
void LmResizer::colourParts(Pixel areaBackground)
{
    Pixel foreground = 0, top = 0, bottom = 0, select = 0;
    Colormap colormap = None;
    XtVaGetValues(_parent, XmNcolormap, &colormap, nullptr);
    XmGetColors(XtScreen(_parent), colormap, _parentBackground, &foreground, &top, &bottom, &select);
    for (Widget part : {_frame, _gripLL, _gripUR})
        XtVaSetValues(part, XmNbackground, _parentBackground, XmNforeground, _widgetForeground, XmNtopShadowColor, top,
                      XmNbottomShadowColor, bottom, nullptr);
    XtVaSetValues(_area, XmNbackground, areaBackground, nullptr);
}

lm::Rect LmResizer::widgetGeometry() const
{
    return {_baseWidget->core.x, _baseWidget->core.y, _baseWidget->core.width, _baseWidget->core.height};
}

static Position position(int value) { return static_cast<Position>(std::clamp(value, -32768, 32767)); }
static Dimension dimension(int value) { return static_cast<Dimension>(std::clamp(value, 1, 32767)); }

/// Places a part without asking whether it is managed: a request to the parent, which may grow.
static void setGeometry(Widget w, const lm::Rect& r)
{
    XtVaSetValues(w, XmNx, position(r.x), XmNy, position(r.y), XmNwidth, dimension(r.width), XmNheight, dimension(r.height),
                  nullptr);
}

void LmResizer::rebuild(Widget w)
{
    if (!usable(w) || !usable(XtParent(w)))
        return;
    if (XtParent(w) != _parent || !partsExist() || !_area) {
        destroyParts();
        setParent(XtParent(w));
        makeParts();
    }
    Dimension highlight = 0;
    Pixel background = 0;
    XtVaGetValues(_parent, XmNbackground, &_parentBackground, nullptr);
    XtVaGetValues(w, XmNhighlightThickness, &highlight, XmNforeground, &_widgetForeground, XmNbackground, &background, nullptr);
    const auto [area, frame, oversize] = lm::ResizeFrame::around({w->core.x, w->core.y, w->core.width, w->core.height}, highlight,
                                                                 _parent->core.width, _parent->core.height, inset);
    _oversize = oversize;
    _drag->frame.frame = frame;
    colourParts(background == _parentBackground ? _widgetForeground : background);
    XtVaSetValues(_area, XmNwidth, dimension(area.width), XmNheight, dimension(area.height), nullptr);
    setGeometry(_frame, frame);
    XtVaSetValues(_gripUR, XmNx, position(frame.x + frame.width - gripSize), XmNy, position(frame.y), nullptr);
    XtVaSetValues(_gripLL, XmNx, position(frame.x), XmNy, position(frame.y + frame.height - gripSize), nullptr);
}

void LmResizer::adjustGeometry()
{
    if (_baseWidget && !_grabWidget)
        rebuild(_baseWidget);
}

// --- showing -----------------------------------------------------------------------------------------------------------

static bool hasWindow(Widget w) { return w && XtIsRealized(w) && XtWindow(w) != None; }

static void mapRaised(Widget w)
{
    if (hasWindow(w))
        XMapRaised(XtDisplay(w), XtWindow(w));
}

void LmResizer::show()
{
    _shown = true;
    if (!partsExist() || !usable(_parent))
        return;
    for (Widget part : {_area, _frame, _gripLL, _gripUR})
        XtManageChild(part);
    if (!_baseWidget)
        return;
    mapRaised(_frame);
    if (hasWindow(_baseWidget))
        XRaiseWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget));
    mapRaised(_gripLL);
    mapRaised(_gripUR);
    defineCursors();
}

void LmResizer::hide()
{
    _shown = false;
    endGrab(CurrentTime);
    if (!_baseWidget)
        return;
    for (Widget part : {_frame, _gripLL, _gripUR}) {
        if (hasWindow(part))
            XUnmapWindow(XtDisplay(part), XtWindow(part));
    }
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
    const auto define = [&](Widget grip, const lm::CursorHandle& corner) {
        if (hasWindow(grip))
            XDefineCursor(display, XtWindow(grip), resizes ? corner.get() : moves ? _moveCursor.get() : None);
    };
    define(_gripLL, _lowerLeftCursor);
    define(_gripUR, _upperRightCursor);
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
    const lm::CursorHandle& corner = grip == _gripUR ? _upperRightCursor : _lowerLeftCursor;
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
    if (_grabWidget || !usable(_baseWidget) || !usable(_parent) || !partsExist() || (!resizes && !moves) ||
        !beginGrab(grip, event))
        return;
    _dragButton = static_cast<int>(button);
    _drag->pressed = widgetGeometry();
    _drag->received.reset();
    Position gripX = 0, gripY = 0, parentX = 0, parentY = 0;
    XtTranslateCoords(grip, 0, 0, &gripX, &gripY);
    XtTranslateCoords(_parent, 0, 0, &parentX, &parentY);
    _drag->frame.startX = gripX + event->xbutton.x - parentX;
    _drag->frame.startY = gripY + event->xbutton.y - parentY;
    _drag->frame.upperRight = grip == _gripUR;
    if (!_liveResize)
        XRaiseWindow(XtDisplay(_frame), XtWindow(_frame));   // else the widget would hide it
    for (Widget w : {_gripLL, _gripUR})
        XUnmapWindow(XtDisplay(w), XtWindow(w));
}

void LmResizer::pointerMotion(XEvent* event)
{
    if (!_grabWidget || !XtIsRealized(_grabWidget) || !_frame)
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
    if (_frame)
        setGeometry(_frame, frame);
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
    if (!_frame)
        return _drag->pressed;
    const lm::Rect& base = _drag->frame.frame;
    return {_drag->pressed.x + _frame->core.x - base.x, _drag->pressed.y + _frame->core.y - base.y,
            _drag->pressed.width + _frame->core.width - base.width, _drag->pressed.height + _frame->core.height - base.height};
}

void LmResizer::matchFrame()
{
    if (usable(_baseWidget) && _frame)
        setGeometry(_baseWidget, matchingGeometry());
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
