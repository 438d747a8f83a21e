#include "LmScroll.h"

#include "SvScrollBar.h"
#include "components/layout/Wheel.h"
#include "support/xt.h"

#include <X11/IntrinsicP.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/ScrollBar.h>

#include <algorithm>

const char* const LmScroll::scrollCallback = "scrollCallback";

static constexpr int gap = 4;   // between frame and scroll bar, pixels
static constexpr int firstExposed = 1, laidOut = 2, paintTrough = 3;
static const char* const troughCallback = "troughPixmapCallback";

LmScroll::LmScroll(const char* name, Widget parent) : LmComponent(name)
{
    _w = XtVaCreateManagedWidget(LmComponent::name(), xmFormWidgetClass, parent, nullptr);
    installDestroyHandler();
    makeScrollBar();
    makeClip();
}

void LmScroll::makeScrollBar()
{
    _scrollBar = SvCreateScrollBar(_w, "sb", nullptr, 0);
    XtVaSetValues(_scrollBar, XmNorientation, XmVERTICAL, XmNtopAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNbottomAttachment, XmATTACH_FORM, nullptr);
    for (const char* list : {XmNdecrementCallback, XmNdragCallback, XmNincrementCallback, XmNpageDecrementCallback,
                             XmNpageIncrementCallback, XmNtoBottomCallback, XmNtoTopCallback, XmNvalueChangedCallback})
        XtAddCallback(_scrollBar, list, scroll_changed, this);
    XtManageChild(_scrollBar);
}

void LmScroll::makeClip()
{
    _frame = XtVaCreateManagedWidget("frame", xmFrameWidgetClass, _w, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment,
                                     XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_WIDGET,
                                     XmNrightWidget, _scrollBar, XmNrightOffset, gap, XmNshadowType, XmSHADOW_IN, nullptr);
    XtAddEventHandler(_frame, StructureNotifyMask, False, resize_clip, this);
    XtAddEventHandler(_frame, ExposureMask, False, expose_clip, this);
    lm::grabWheel(_frame);
    lm::onEvent<&LmScroll::turnWheel>(_frame, ButtonPressMask, this);
    _clip = XtVaCreateManagedWidget("clip", xmFormWidgetClass, _frame, XmNresizePolicy, XmRESIZE_NONE, nullptr);
}

LmScroll::~LmScroll()
{
    if (!_frame)
        return;
    XtRemoveEventHandler(_frame, StructureNotifyMask, False, resize_clip, this);
    XtRemoveEventHandler(_frame, ExposureMask, False, expose_clip, this);
    lm::offEvent<&LmScroll::turnWheel>(_frame, ButtonPressMask, this);
    forgetChild();
}

void LmScroll::widgetDestroyed()
{
    forgetChild();
    _frame = _scrollBar = _clip = nullptr;
    LmComponent::widgetDestroyed();
}

// --- the child ---------------------------------------------------------------------------------------------------------

void LmScroll::setChild(Widget w)
{
    if (!_frame || (w && !XtIsWidget(w)))
        return;
    forgetChild();
    _child = w;
    _childHeight = 0;
    if (w) {
        XtAddEventHandler(w, StructureNotifyMask, False, resize_child, this);
        lm::on<&LmScroll::childDestroyed>(w, XmNdestroyCallback, this);
    }
    if (XtIsRealized(_frame))
        resizeClip();
}

void LmScroll::forgetChild()
{
    if (!_child)
        return;
    XtRemoveEventHandler(_child, StructureNotifyMask, False, resize_child, this);
    lm::off<&LmScroll::childDestroyed>(_child, XmNdestroyCallback, this);
    _child = nullptr;
}

void LmScroll::childDestroyed()
{
    forgetChild();
    if (_frame && !_frame->core.being_destroyed && XtIsRealized(_frame))
        resizeClip();
}

/// The clip's form puts a child that changes back to where it was made.
void LmScroll::childResized()
{
    if (!_child)
        return;
    if (_child->core.height != _childHeight)
        resizeClip();
    else if (_child->core.y != -_position)
        scrollChanged(_position);
}

void LmScroll::resize_child(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    if (event->type == ConfigureNotify)
        static_cast<LmScroll*>(clientData)->childResized();
}

// --- scrolling ---------------------------------------------------------------------------------------------------------

void LmScroll::scrollChanged(int position)
{
    _position = position;
    if (_child && !_child->core.being_destroyed)
        XtMoveWidget(_child, _child->core.x, static_cast<Position>(-position));
}

void LmScroll::scroll_changed(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmScroll*>(clientData)->scrollChanged(static_cast<XmScrollBarCallbackStruct*>(callData)->value);
}

void LmScroll::setScrollPos(int position)
{
    if (!_scrollBar)
        return;
    int maximum = 0, sliderSize = 0;
    XtVaGetValues(_scrollBar, XmNmaximum, &maximum, XmNsliderSize, &sliderSize, nullptr);
    position = std::clamp(position, 0, std::max(maximum - sliderSize, 0));
    XtVaSetValues(_scrollBar, XmNvalue, position, nullptr);
    scrollChanged(position);
}

/// A fifth of what is seen, but at least one increment of the scroll bar.
void LmScroll::turnWheel(XEvent* event)
{
    const int direction = lm::wheelDirection(event);
    if (direction == 0 || !_scrollBar)
        return;
    int increment = 1;
    XtVaGetValues(_scrollBar, XmNincrement, &increment, nullptr);
    setScrollPos(_position + direction * std::max(increment, innerHeight() / 5));
}

// --- the layout --------------------------------------------------------------------------------------------------------

/// The frame without its shadows, at least a pixel.
int LmScroll::innerHeight() const
{
    Dimension shadow = 0;
    XtVaGetValues(_frame, XmNshadowThickness, &shadow, nullptr);
    return std::max(_frame->core.height - 2 * shadow, 1);
}

void LmScroll::resizeClip()
{
    if (!_frame)
        return;
    const int inner = innerHeight();
    _childHeight = _child ? _child->core.height : Dimension(0);
    const int height = std::max<int>(_childHeight, inner);
    if (inner + _position > height)
        _position = 0;
    XtResizeWidget(_clip, _frame->core.width, _clip->core.height, 0);
    XtVaSetValues(_scrollBar, XmNmaximum, height, XmNvalue, _position, XmNsliderSize, inner, nullptr);
    scrollChanged(_position);
    int increment = 1;
    XtVaGetValues(_scrollBar, XmNincrement, &increment, nullptr);
    XtVaSetValues(_scrollBar, XmNpageIncrement, increment <= inner ? inner - inner % increment : increment, nullptr);
    const lm::Watch here(_alive);
    callCallback(laidOut);
    if (here)
        reannotateScrollBar();
}

void LmScroll::resize_clip(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    if (event->type == ConfigureNotify)
        static_cast<LmScroll*>(clientData)->resizeClip();
}

void LmScroll::exposeClip()
{
    const lm::Watch here(_alive);
    callCallback(firstExposed);
    if (here)
        resizeClip();
}

void LmScroll::expose_clip(Widget w, XtPointer clientData, XEvent*, Boolean*) noexcept
{
    XtRemoveEventHandler(w, ExposureMask, False, expose_clip, clientData);
    static_cast<LmScroll*>(clientData)->exposeClip();
}

// --- what the application hears ----------------------------------------------------------------------------------------

void LmScroll::callCallback(int reason)
{
    LmScrollCallbackStruct data = {reason, 0, 0, 0, 0, None};
    callCallbacks(scrollCallback, &data);
}

void LmScroll::setAnnotations()
{
    if (_annotations || !_scrollBar)
        return;
    _annotations = true;
    XtAddCallback(_scrollBar, troughCallback, trough_pixmap, this);
}

void LmScroll::reannotateScrollBar()
{
    if (_scrollBar && XtIsRealized(_scrollBar))
        SvScrollBarRedisplay(_scrollBar);
}

void LmScroll::troughPixmap(int width, int height, int unused, int rows, Pixmap pixmap)
{
    if (!_scrollBar || !XtIsRealized(_scrollBar))
        return;
    LmScrollCallbackStruct data = {paintTrough, width, height, unused, rows, pixmap};
    callCallbacks(scrollCallback, &data);
}

void LmScroll::trough_pixmap(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    const auto& trough = *static_cast<SvTroughCallbackStruct*>(callData);
    static_cast<LmScroll*>(clientData)->troughPixmap(trough.width, trough.height, trough.unused, trough.rows, trough.pixmap);
}
