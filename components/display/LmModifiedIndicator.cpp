// What is seen of an LmModifiedAttachment: a small drawing area over the corner of its widget.
#include "LmModifiedAttachment.h"
#include "geometry/CornerFold.h"
#include "support/xt.h"

#include <Xm/DrawingA.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

// --- its life ----------------------------------------------------------------------------------------------------------

void LmModifiedAttachment::buildWindow(Widget w)
{
    if (!_displayModified)
        return;
    destroyIndicator();
    XtVaGetValues(w, XmNbackground, &_background, nullptr);
    if (!XtIsRealized(w))
        return;
    // Mapped by hand, since it is not while it has nothing to say.
    _indicator = XtVaCreateWidget("modifiedArea", xmDrawingAreaWidgetClass, XtParent(w), XmNbackground, _background,
                                  XmNshadowThickness, 0, XmNtraversalOn, False, XmNmappedWhenManaged, False, nullptr);
    lm::on<&LmModifiedAttachment::forgetIndicator>(_indicator, XmNdestroyCallback, this);
    XtAddCallback(_indicator, XmNexposeCallback, &LmModifiedAttachment::expose_stub, this);
    XtAddCallback(_indicator, XmNinputCallback, &LmModifiedAttachment::input_stub, this);
    if (_shown)
        XtManageChild(_indicator);
    XtRealizeWidget(_indicator);
    mapIndicator();
}

void LmModifiedAttachment::destroyIndicator()
{
    if (!_indicator)
        return;
    lm::off<&LmModifiedAttachment::forgetIndicator>(_indicator, XmNdestroyCallback, this);
    XtRemoveCallback(_indicator, XmNexposeCallback, &LmModifiedAttachment::expose_stub, this);
    XtRemoveCallback(_indicator, XmNinputCallback, &LmModifiedAttachment::input_stub, this);
    XtDestroyWidget(_indicator);
    forgetIndicator();
}

void LmModifiedAttachment::forgetIndicator()
{
    if (_gc)
        XFreeGC(_display, std::exchange(_gc, nullptr));
    _indicator = nullptr;
}

void LmModifiedAttachment::mapIndicator()
{
    if (!hasWindow())
        return;
    if (_shown && _modified)
        XMapRaised(_display, XtWindow(_indicator));
    else
        XUnmapWindow(_display, XtWindow(_indicator));
}

void LmModifiedAttachment::show()
{
    _shown = True;
    adjustWindow();
    if (!_widget || !hasWindow())
        return;
    XtManageChild(_indicator);
    adjustWindow();   // the parent may have moved it
    mapIndicator();
}

void LmModifiedAttachment::hide()
{
    _shown = False;
    mapIndicator();
    if (_indicator)
        XtUnmanageChild(_indicator);
}

void LmModifiedAttachment::setModified(Boolean m)
{
    LmModified::setModified(m);
    mapIndicator();
    setCursor();
    if (m)
        forceExpose();
}

void LmModifiedAttachment::setCursor()
{
    if (!hasWindow())
        return;
    if (!_modified)
        XUndefineCursor(_display, XtWindow(_indicator));
    else
        XDefineCursor(_display, XtWindow(_indicator), (_showingCurrent ? _upCursor : _downCursor).get());
}

void LmModifiedAttachment::input_stub(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    auto* self = static_cast<LmModifiedAttachment*>(clientData);
    const XEvent* event = callData ? static_cast<XmDrawingAreaCallbackStruct*>(callData)->event : nullptr;
    if (event && event->type == ButtonPress && self->_modified)
        self->toggleDisplay();
}

// --- its place ---------------------------------------------------------------------------------------------------------

void LmModifiedAttachment::setParameters(Dimension width, Dimension height)
{
    _width = width;
    _height = height;
    if (_indicator)
        adjustGeometry();
}

void LmModifiedAttachment::getParameters(Dimension* width, Dimension* height) const
{
    *width = _width;
    *height = _height;
}

void LmModifiedAttachment::adjustGeometry()
{
    if (_widget)
        reparentWindow(_widget);
}

// An indicator that has the right parent already stays: events of the widget are many.
void LmModifiedAttachment::reparentWindow(Widget w)
{
    if (!_indicator || XtParent(_indicator) != XtParent(w))
        buildWindow(w);
    adjustWindow();
}

void LmModifiedAttachment::reconfig_stub(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    auto* self = static_cast<LmModifiedAttachment*>(clientData);
    if (!self->_widget || (event->type != ConfigureNotify && event->type != MapNotify))
        return;
    if (!self->_indicator)
        self->reparentWindow(self->_widget);
    else if (self->_followGeometry)
        self->adjustGeometry();
}

void LmModifiedAttachment::readColors()
{
    XtVaGetValues(_widget, XmNforeground, &_foreground, XmNbackground, &_background, nullptr);
    _topShadow = _bottomShadow = _parentBackground = _background;   // for widgets that have no such resource
    XtVaGetValues(_widget, XmNtopShadowColor, &_topShadow, XmNbottomShadowColor, &_bottomShadow, nullptr);
    XtVaGetValues(XtParent(_widget), XmNbackground, &_parentBackground, nullptr);
}

void LmModifiedAttachment::readFrame()
{
    _highlightThickness = 0;
    _shadowThickness = 2;
    _shadowType = XmSHADOW_IN;
    XtVaGetValues(_widget, XmNhighlightThickness, &_highlightThickness, XmNshadowThickness, &_shadowThickness, XmNshadowType,
                  &_shadowType, nullptr);
    if (_shadowThickness == 0)
        _shadowThickness = 2;
}

void LmModifiedAttachment::adjustWindow()
{
    if (!_widget || !_indicator)
        return;
    readColors();
    readFrame();
    Position x = 0, y = 0;
    Dimension width = 0;
    XtVaGetValues(_widget, XmNx, &x, XmNy, &y, XmNwidth, &width, nullptr);
    const int left = x + width - _width - _highlightThickness, top = y + _highlightThickness;
    const Dimension w = std::max<Dimension>(_width, 1), h = std::max<Dimension>(_height, 1);
    XtVaSetValues(_indicator, XmNx, left, XmNy, top, XmNwidth, w, XmNheight, h, XmNbackground, _background, XmNhighlightThickness,
                  0, nullptr);
    if (!hasWindow())
        return;
    XMoveResizeWindow(_display, XtWindow(_indicator), left, top, w, h);
    createContext();
    setCursor();
}

// --- its picture -------------------------------------------------------------------------------------------------------

void LmModifiedAttachment::createContext()
{
    if (_gc)
        return;
    XGCValues values = {.foreground = _foreground, .background = _background};
    _gc = XCreateGC(_display, XtWindow(_indicator), GCForeground | GCBackground, &values);
    const char dots = 1;
    XSetDashes(_display, _gc, 0, &dots, 1);
}

void LmModifiedAttachment::forceExpose()
{
    if (!_widget || !hasWindow())
        return;
    XtVaGetValues(_widget, XmNbackground, &_background, nullptr);
    XtVaSetValues(_indicator, XmNbackground, _background, nullptr);
    XClearArea(_display, XtWindow(_indicator), 0, 0, 0, 0, True);
}

void LmModifiedAttachment::expose_stub(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmModifiedAttachment*>(clientData)->expose();
}

void LmModifiedAttachment::expose()
{
    if (!_widget || !hasWindow() || !_gc)
        return;
    const bool in = _shadowType == XmSHADOW_IN || _shadowType == XmSHADOW_ETCHED_IN;
    const bool etched = _shadowType == XmSHADOW_ETCHED_IN || _shadowType == XmSHADOW_ETCHED_OUT;
    if (!in && !etched && _shadowType != XmSHADOW_OUT) {
        std::fprintf(stderr, "LmModified:: Unsupported shadow type %d\n", _shadowType);
        std::exit(1);
    }
    if (etched && _shadowThickness > 1)
        _shadowThickness = static_cast<Dimension>(_shadowThickness & ~1);
    const Pixel a = in ? _bottomShadow : _topShadow, b = in ? _topShadow : _bottomShadow;
    if (_modified && _showingCurrent)
        return drawFold(a, b, etched);
    drawCornerShadows(a, b, etched);
    if (_modified)
        drawDiagonal();
}

void LmModifiedAttachment::setInk(Pixel pixel) { XSetForeground(_display, _gc, pixel); }

static void draw(Display* display, Window window, GC gc, const std::vector<lm::InkLine>& lines, Pixel a, Pixel b)
{
    for (const auto& [ink, line] : lines) {
        XSetForeground(display, gc, ink == lm::Ink::A ? a : b);   // Xlib sends it only when it is another one
        XDrawLine(display, window, gc, line.x1, line.y1, line.x2, line.y2);
    }
}

void LmModifiedAttachment::drawCornerShadows(Pixel a, Pixel b, Boolean etched)
{
    if (hasWindow() && _gc)
        draw(_display, XtWindow(_indicator), _gc, lm::cornerFrame({_width, _height, _shadowThickness, etched != False}), a, b);
}

void LmModifiedAttachment::drawDiagonal()
{
    setInk(_foreground);
    XSetLineAttributes(_display, _gc, 0, LineOnOffDash, CapButt, JoinMiter);
    XDrawLine(_display, XtWindow(_indicator), _gc, 1, 1, _width - 1, _height - 1);
    XSetLineAttributes(_display, _gc, 0, LineSolid, CapButt, JoinMiter);
}

// Where the corner was one sees the parent.
void LmModifiedAttachment::drawFold(Pixel a, Pixel b, bool etched)
{
    const lm::Corner corner{_width, _height, _shadowThickness, etched};
    const Window window = XtWindow(_indicator);
    std::vector<XPoint> cutOff = lm::cutOffCorner(corner);
    const int count = static_cast<int>(cutOff.size());
    setInk(_parentBackground);
    XFillPolygon(_display, window, _gc, cutOff.data(), count, Convex, CoordModeOrigin);
    XDrawLines(_display, window, _gc, cutOff.data(), count, CoordModeOrigin);
    draw(_display, window, _gc, lm::foldedCorner(corner), a, b);
}
