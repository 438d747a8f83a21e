#include "platform/SvScrollBar.h"

#include "support/WidgetWatch.h"
#include "support/handles.h"
#include "support/resources.h"

#include <Xm/ScrollBarP.h>

#include <cstddef>
#include <utility>

namespace {

constexpr long maxTroughPixels = 4'000'000;

struct Part {
    XtCallbackList troughPixmap;
    Boolean stale;       // the background does not show what the callbacks would paint now
    Boolean annotated;   // the window's background is a pixmap
    Boolean painting;    // the callbacks are running
};

struct Record {
    CorePart core;
    XmPrimitivePart primitive;
    XmScrollBarPart scrollBar;
    Part annotation;
};

struct ClassRecord {
    CoreClassPart core;
    XmPrimitiveClassPart primitive;
    XmScrollBarClassPart scrollBar;
    XtPointer extension;
};

const char callbackName[] = "troughPixmapCallback";

Record* recordOf(Widget w) { return reinterpret_cast<Record*>(w); }

// XmScrollBar shows its trough as the background of its window. (The header's name of the slider's look is an old one.)
Pixel troughPixel(Widget w)
{
    const Record& bar = *recordOf(w);
    return bar.scrollBar.etched_slider == XmTROUGH_COLOR ? bar.core.background_pixel : bar.scrollBar.trough_color;
}

XRectangle troughOf(Widget w)
{
    const XmScrollBarPart& part = recordOf(w)->scrollBar;
    return {part.slider_area_x, part.slider_area_y, static_cast<unsigned short>(part.slider_area_width),
            static_cast<unsigned short>(part.slider_area_height)};
}

bool isPaintable(Widget w)
{
    const XmScrollBarPart& part = recordOf(w)->scrollBar;
    return part.slider_area_width > 0 && part.slider_area_height > 0 && long{w->core.width} * w->core.height <= maxTroughPixels &&
           XtHasCallbacks(w, callbackName) == XtCallbackHasSome;
}

lm::SharedGC troughGC(Widget w)
{
    return {w, GCForeground | GCGraphicsExposures, XGCValues{.foreground = troughPixel(w), .graphics_exposures = False}};
}

lm::PixmapHandle plainPixmap(Widget w, const lm::SharedGC& gc, unsigned width, unsigned height)
{
    Display* display = XtDisplayOfObject(w);
    lm::PixmapHandle pixmap(display,
                            XCreatePixmap(display, XtWindowOfObject(w), width, height, static_cast<unsigned>(w->core.depth)));
    XFillRectangle(display, pixmap.get(), gc.get(), 0, 0, width, height);
    return pixmap;
}

// The trough as the callbacks paint it; empty when one of them destroyed the bar.
lm::PixmapHandle paintedTrough(Widget w, XEvent* event)
{
    Record* bar = recordOf(w);
    const XRectangle trough = troughOf(w);
    lm::PixmapHandle pixmap = plainPixmap(w, troughGC(w), trough.width, trough.height);
    SvTroughCallbackStruct data{.reason = XmCR_EXPOSE,
                                .event = event,
                                .width = trough.width,
                                .height = trough.height,
                                .unused = 0,
                                .rows = bar->scrollBar.maximum - bar->scrollBar.minimum,
                                .pixmap = pixmap.get()};
    const lm::WidgetWatch alive(w);
    bar->annotation.painting = True;
    XtCallCallbacks(w, callbackName, &data);
    if (!alive)
        return {};
    bar->annotation.painting = False;
    return pixmap;
}

void showPlainTrough(Widget w)
{
    if (std::exchange(recordOf(w)->annotation.annotated, False))
        XSetWindowBackground(XtDisplayOfObject(w), XtWindowOfObject(w), troughPixel(w));
}

// XmScrollBar uncovers its trough by clearing, so the painted trough becomes the background of the window.
void showPaintedTrough(Widget w, Pixmap painted, const XRectangle& trough)
{
    Display* display = XtDisplayOfObject(w);
    const lm::SharedGC gc = troughGC(w);
    const lm::PixmapHandle background = plainPixmap(w, gc, w->core.width, w->core.height);
    XCopyArea(display, painted, background.get(), gc.get(), 0, 0, trough.width, trough.height, trough.x, trough.y);
    XSetWindowBackgroundPixmap(display, XtWindowOfObject(w), background.get());   // the server keeps its own hold of it
    recordOf(w)->annotation.annotated = True;
}

// Brings the background up to date; false when a callback destroyed the bar.
bool annotate(Widget w, XEvent* event)
{
    recordOf(w)->annotation.stale = False;
    if (!isPaintable(w)) {
        showPlainTrough(w);
    } else {
        const XRectangle trough = troughOf(w);   // a callback may give the bar another size: that makes it stale again
        const lm::PixmapHandle painted = paintedTrough(w, event);
        if (!painted)
            return false;
        showPaintedTrough(w, painted.get(), trough);
    }
    XClearWindow(XtDisplayOfObject(w), XtWindowOfObject(w));
    return true;
}

// --- the methods of the class ------------------------------------------------------------------------------------------

const CoreClassPart& superclass() { return xmScrollBarClassRec.core_class; }

void initialize(Widget, Widget w, ArgList, Cardinal*)
{
    Part& part = recordOf(w)->annotation;
    part.stale = True;
    part.annotated = part.painting = False;
}

void realize(Widget w, XtValueMask* mask, XSetWindowAttributes* attributes)
{
    superclass().realize(w, mask, attributes);
    recordOf(w)->annotation.stale = True;   // a new window has the plain background
    recordOf(w)->annotation.annotated = False;
}

// The server exposes a window of a new size, which paints the trough.
void resize(Widget w)
{
    superclass().resize(w);
    recordOf(w)->annotation.stale = True;
}

void expose(Widget w, XEvent* event, Region region)
{
    const Part& part = recordOf(w)->annotation;
    if (part.stale && !part.painting && !annotate(w, event))
        return;
    superclass().expose(w, event, region);
}

Boolean setValues(Widget current, Widget, Widget w, ArgList, Cardinal*)
{
    const XmScrollBarPart& before = recordOf(current)->scrollBar;
    const XmScrollBarPart& now = recordOf(w)->scrollBar;
    Part& part = recordOf(w)->annotation;
    const bool otherPicture = before.maximum - before.minimum != now.maximum - now.minimum ||
                              before.orientation != now.orientation || troughPixel(current) != troughPixel(w) ||
                              current->core.background_pixel != w->core.background_pixel;
    if (!otherPicture)
        return False;
    part.stale = True;
    return part.annotated || XtHasCallbacks(w, callbackName) == XtCallbackHasSome;
}

XtResource resources[] = {
    {lm::xtText(callbackName), lm::xtText(XtCCallback), lm::xtText(XtRCallback), sizeof(XtCallbackList),
     static_cast<Cardinal>(offsetof(Record, annotation) + offsetof(Part, troughPixmap)), lm::xtText(XtRCallback), nullptr},
};

ClassRecord classRecord = {
    .core =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmScrollBarClassRec),
            .class_name = lm::xtText("SvScrollBar"),
            .widget_size = sizeof(Record),
            .initialize = initialize,
            .realize = realize,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = True,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = True,
            .resize = resize,
            .expose = expose,
            .set_values = setValues,
            .set_values_almost = XtInheritSetValuesAlmost,
            .version = XtVersion,
            .tm_table = XtInheritTranslations,
            .query_geometry = XtInheritQueryGeometry,
            .display_accelerator = XtInheritDisplayAccelerator,
        },
    .primitive =
        {
            .border_highlight = XmInheritBorderHighlight,
            .border_unhighlight = XmInheritBorderUnhighlight,
            .translations = XtInheritTranslations,
        },
    .scrollBar = {},
    .extension = nullptr,
};

}   // namespace

WidgetClass svScrollBarWidgetClass = reinterpret_cast<WidgetClass>(&classRecord);

Widget SvCreateScrollBar(Widget parent, const char* name, ArgList args, Cardinal count)
{
    return XtCreateWidget(name, svScrollBarWidgetClass, parent, args, count);
}

void SvScrollBarRedisplay(Widget scrollBar)
{
    if (!scrollBar || !XtIsSubclass(scrollBar, svScrollBarWidgetClass) || !XtIsRealized(scrollBar))
        return;
    if (scrollBar->core.being_destroyed || recordOf(scrollBar)->annotation.painting)
        return;
    if (annotate(scrollBar, nullptr))
        superclass().expose(scrollBar, nullptr, nullptr);
}
