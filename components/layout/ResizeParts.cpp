#include "components/layout/ResizeParts.h"

#include "geometry/ResizeDrag.h"

#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>
#include <Xm/Frame.h>

#include <algorithm>
#include <utility>

namespace lm {

static constexpr int gripSize = 8;
static constexpr int gripShadowThickness = 2, frameShadowThickness = 2;
static constexpr int frameMargin = ResizeParts::inset - frameShadowThickness;

static Position position(int value) { return static_cast<Position>(std::clamp(value, -32768, 32767)); }
static Dimension dimension(int value) { return static_cast<Dimension>(std::clamp(value, 1, 32767)); }

void setGeometry(Widget w, const Rect& r)
{
    XtVaSetValues(w, XmNx, position(r.x), XmNy, position(r.y), XmNwidth, dimension(r.width), XmNheight, dimension(r.height),
                  nullptr);
}

// --- life --------------------------------------------------------------------------------------------------------------

ResizeParts::~ResizeParts()
{
    destroyAll();
    setParent(nullptr);
}

void ResizeParts::setParent(Widget parent)
{
    if (_parent)
        XtRemoveCallback(_parent, XmNdestroyCallback, destroyed, this);
    _parent = parent;
    if (_parent)
        XtAddCallback(_parent, XmNdestroyCallback, destroyed, this);
}

void ResizeParts::destroyed(Widget w, XtPointer parts, XtPointer) noexcept
{
    auto* self = static_cast<ResizeParts*>(parts);
    for (Widget* part : {&self->_parent, &self->_frame, &self->_area, &self->_gripLL, &self->_gripUR}) {
        if (*part == w)
            *part = nullptr;
    }
}

Widget ResizeParts::makeGrip(const char* name)
{
    Widget grip =
        XtVaCreateWidget(name, xmBulletinBoardWidgetClass, _parent, XmNmarginWidth, 0, XmNmarginHeight, 0, XmNwidth, gripSize,
                         XmNheight, gripSize, XmNshadowThickness, gripShadowThickness, XmNshadowType, XmSHADOW_OUT, nullptr);
    XtAddEventHandler(grip, ButtonPressMask, False, _press, _owner);
    XtAddEventHandler(grip, ButtonReleaseMask, False, _release, _owner);
    return grip;
}

void ResizeParts::makeIn(Widget parent)
{
    if (parent == _parent && complete())
        return;
    destroyAll();
    setParent(parent);
    _gripLL = makeGrip("resizeGripLL");
    _gripUR = makeGrip("resizeGripUR");
    _frame = XtVaCreateWidget("resizeFrame", xmFrameWidgetClass, _parent, XmNshadowThickness, frameShadowThickness, XmNshadowType,
                              XmSHADOW_ETCHED_IN, XmNmarginWidth, frameMargin, XmNmarginHeight, frameMargin, nullptr);
    _area = XtVaCreateWidget("resizeArea", xmDrawingAreaWidgetClass, _frame, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
    for (Widget part : {_gripLL, _gripUR, _frame, _area})
        XtAddCallback(part, XmNdestroyCallback, destroyed, this);
}

/// Destruction may be put off, and events come until then: nothing of ours stays on the parts.
void ResizeParts::destroyAll()
{
    for (Widget grip : {_gripLL, _gripUR}) {
        if (!grip)
            continue;
        XtRemoveEventHandler(grip, ButtonPressMask, False, _press, _owner);
        XtRemoveEventHandler(grip, ButtonReleaseMask, False, _release, _owner);
    }
    for (Widget part : {_gripLL, _gripUR, _frame, _area}) {
        if (part)
            XtRemoveCallback(part, XmNdestroyCallback, destroyed, this);
    }
    for (Widget* part : {&_gripLL, &_gripUR, &_frame}) {
        if (Widget w = std::exchange(*part, nullptr))
            XtDestroyWidget(w);
    }
    _area = nullptr;   // went with the frame
}

// --- looks -------------------------------------------------------------------------------------------------------------

void ResizeParts::place(const ResizeFrame& geometry)
{
    if (!complete())
        return;
    const auto& [area, frame, oversize] = geometry;
    XtVaSetValues(_area, XmNwidth, dimension(area.width), XmNheight, dimension(area.height), nullptr);
    setGeometry(_frame, frame);
    XtVaSetValues(_gripUR, XmNx, position(frame.x + frame.width - gripSize), XmNy, position(frame.y), nullptr);
    XtVaSetValues(_gripLL, XmNx, position(frame.x), XmNy, position(frame.y + frame.height - gripSize), nullptr);
}

/// Motif derives shadows from a background only when it makes a widget.
void ResizeParts::colour(Pixel background, Pixel foreground, Pixel area)
{
    if (!complete())
        return;
    Pixel derived = 0, top = 0, bottom = 0, select = 0;
    Colormap colormap = None;
    XtVaGetValues(_parent, XmNcolormap, &colormap, nullptr);
    XmGetColors(XtScreen(_parent), colormap, background, &derived, &top, &bottom, &select);
    for (Widget part : {_frame, _gripLL, _gripUR})
        XtVaSetValues(part, XmNbackground, background, XmNforeground, foreground, XmNtopShadowColor, top, XmNbottomShadowColor,
                      bottom, nullptr);
    XtVaSetValues(_area, XmNbackground, area, nullptr);
}

static bool hasWindow(Widget w) { return w && XtIsRealized(w) && XtWindow(w) != None; }

static void mapRaised(Widget w)
{
    if (hasWindow(w))
        XMapRaised(XtDisplay(w), XtWindow(w));
}

static void raise(Widget w)
{
    if (hasWindow(w))
        XRaiseWindow(XtDisplay(w), XtWindow(w));
}

static void unmap(Widget w)
{
    if (hasWindow(w))
        XUnmapWindow(XtDisplay(w), XtWindow(w));
}

void ResizeParts::show(Widget around)
{
    if (!complete())
        return;
    for (Widget part : {_area, _frame, _gripLL, _gripUR})
        XtManageChild(part);
    if (!around)
        return;
    mapRaised(_frame);
    raise(around);
    mapRaised(_gripLL);
    mapRaised(_gripUR);
}

void ResizeParts::hide()
{
    unmap(_frame);
    hideGrips();
}

void ResizeParts::hideGrips()
{
    unmap(_gripLL);
    unmap(_gripUR);
}

void ResizeParts::raiseFrame() { raise(_frame); }

void ResizeParts::defineCursors(Cursor lowerLeft, Cursor upperRight)
{
    for (const auto& [grip, cursor] : {std::pair(_gripLL, lowerLeft), {_gripUR, upperRight}}) {
        if (hasWindow(grip))
            XDefineCursor(XtDisplay(grip), XtWindow(grip), cursor);
    }
}

}   // namespace lm
