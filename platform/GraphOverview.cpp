#include "geometry/OverviewScale.h"
#include "platform/GraphArcs.h"
#include "platform/XmGraph.h"
#include "support/WidgetWatch.h"
#include "support/handles.h"
#include "support/resources.h"
#include "support/xt.h"

#include <Xm/DrawingA.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <map>
#include <optional>
#include <vector>

namespace {

constexpr int margin = 4;                       // around the picture, in pixels
constexpr long maxBufferedPixels = 4'000'000;   // larger overviews are drawn without a buffer

lm::Rect outlineOf(Widget w)
{
    const CorePart& core = w->core;
    return {core.x, core.y, core.width + 2 * core.border_width, core.height + 2 * core.border_width};
}

XRectangle xRectangle(const lm::Rect& rect)
{
    return {static_cast<short>(rect.x), static_cast<short>(rect.y), static_cast<unsigned short>(rect.width),
            static_cast<unsigned short>(rect.height)};
}

Boolean flagOf(Widget w, const char* resource)
{
    Boolean flag = False;   // stays so when the widget has no such resource
    XtVaGetValues(w, resource, &flag, nullptr);
    return flag;
}

Pixel pixelOf(Widget w, const char* resource)
{
    Pixel pixel = 0;
    XtVaGetValues(w, resource, &pixel, nullptr);
    return pixel;
}

// Gadgets have no colour of their own in their record.
Pixel backgroundOf(Widget node)
{
    return XtIsSubclass(node, coreWidgetClass) ? node->core.background_pixel : pixelOf(node, XmNbackground);
}

// The clip window of the automatic scrolled window whose work window the graph is; null when there is none.
Widget clipOf(Widget graph)
{
    Widget clip = XtParent(graph);
    Widget window = clip ? XtParent(clip) : nullptr;
    if (!window || !XmIsScrolledWindow(window))
        return nullptr;
    Widget itsClip = nullptr;
    XtVaGetValues(window, XmNclipWindow, &itsClip, nullptr);
    return itsClip == clip ? clip : nullptr;
}

void scrollBarTo(Widget bar, int middle)
{
    int minimum = 0, maximum = 0, length = 0;
    XtVaGetValues(bar, XmNminimum, &minimum, XmNmaximum, &maximum, XmNsliderSize, &length, nullptr);
    XmScrollBarSetValues(bar, lm::scrollValue(middle, length, minimum, maximum), 0, 0, 0, True);
}

// Runs the callbacks of the scroll bars, which may destroy anything.
void scrollTo(Widget window, lm::Point middle)
{
    Widget across = nullptr, down = nullptr;
    XtVaGetValues(window, XmNhorizontalScrollBar, &across, XmNverticalScrollBar, &down, nullptr);
    const lm::WidgetWatch downLives(down);
    if (across)
        scrollBarTo(across, middle.x);
    if (downLives)
        scrollBarTo(down, middle.y);
}

// --- one overview ------------------------------------------------------------------------------------------------------

// Lives as long as its widget. Everything that may change the picture only asks for a redraw in idle time.
class Overview {
public:
    Overview(Widget graph, Widget widget);
    Overview(const Overview&) = delete;
    Overview& operator=(const Overview&) = delete;
    ~Overview();

private:
    void graphDestroyed();
    void widgetDestroyed() { delete this; }
    void changed();
    void happened(XEvent*) { changed(); }
    void pointed(XEvent* event);
    Boolean redraw();
    void exposed(XmDrawingAreaCallbackStruct* data);
    void show();
    lm::OverviewScale scale() const;
    void draw(Drawable picture);
    void drawVisiblePart(Drawable picture, const lm::OverviewScale& scale);
    void drawArcs(Drawable picture, const lm::OverviewScale& scale);
    std::vector<Widget> nodes() const;
    void drawNodes(Drawable picture, const lm::OverviewScale& scale);
    lm::SharedGC gc(Pixel pixel) const { return {_widget, GCForeground, XGCValues{.foreground = pixel}}; }
    Display* display() const { return XtDisplayOfObject(_widget); }

    Widget _graph;   // null once destroyed
    Widget _widget;
    Widget _clip;   // of the scrolled window around the graph, or null
    lm::WorkProcHandle _redrawing;
};

constexpr EventMask graphEvents = StructureNotifyMask | SubstructureNotifyMask | ExposureMask;   // gadgets move by exposing

Overview::Overview(Widget graph, Widget widget) : _graph(graph), _widget(widget), _clip(graph ? clipOf(graph) : nullptr)
{
    lm::on<&Overview::widgetDestroyed>(_widget, XtNdestroyCallback, this);
    lm::on<&Overview::exposed>(_widget, XmNexposeCallback, this);
    lm::on<&Overview::changed>(_widget, XmNresizeCallback, this);
    lm::onEvent<&Overview::pointed>(_widget, ButtonPressMask | Button1MotionMask, this);
    if (!_graph)
        return;
    lm::on<&Overview::graphDestroyed>(_graph, XtNdestroyCallback, this);
    lm::onEvent<&Overview::happened>(_graph, graphEvents, this);
    if (lm::arcsOfGraph(_graph))
        lm::on<&Overview::changed>(_graph, "graphChangedCallback", this);
    if (_clip)
        lm::onEvent<&Overview::happened>(_clip, StructureNotifyMask, this);
}

Overview::~Overview()
{
    if (!_graph)
        return;
    lm::off<&Overview::graphDestroyed>(_graph, XtNdestroyCallback, this);
    if (lm::arcsOfGraph(_graph))
        lm::off<&Overview::changed>(_graph, "graphChangedCallback", this);
    lm::offEvent<&Overview::happened>(_graph, graphEvents, this);
    if (_clip)
        lm::offEvent<&Overview::happened>(_clip, StructureNotifyMask, this);
}

// The clip window is the graph's parent, so its record still lives.
void Overview::graphDestroyed()
{
    if (_clip)
        lm::offEvent<&Overview::happened>(_clip, StructureNotifyMask, this);
    _graph = _clip = nullptr;
    changed();
}

void Overview::changed()
{
    if (!_redrawing && XtIsRealized(_widget))
        _redrawing = lm::WorkProcHandle(lm::whenIdle<&Overview::redraw>(XtWidgetToApplicationContext(_widget), this));
}

Boolean Overview::redraw()
{
    _redrawing.fired();
    show();
    return True;
}

void Overview::pointed(XEvent* event)
{
    const bool pressed = event->type == ButtonPress && event->xbutton.button == Button1;
    if (!_clip || (!pressed && event->type != MotionNotify))
        return;
    const lm::Point place =
        pressed ? lm::Point{event->xbutton.x, event->xbutton.y} : lm::Point{event->xmotion.x, event->xmotion.y};
    scrollTo(XtParent(_clip), scale().inArea(place));   // we may be gone
}

// --- the picture -------------------------------------------------------------------------------------------------------

lm::OverviewScale Overview::scale() const
{
    return {{_graph->core.width, _graph->core.height},
            {_widget->core.width, _widget->core.height},
            margin,
            flagOf(_graph, "skewOverviewScale") != False};
}

void Overview::exposed(XmDrawingAreaCallbackStruct* data)
{
    if (!data->event || data->event->xexpose.count == 0)
        show();
}

void Overview::show()
{
    if (!XtIsRealized(_widget))
        return;
    const unsigned width = _widget->core.width, height = _widget->core.height;
    if (long{_widget->core.width} * _widget->core.height > maxBufferedPixels)
        return draw(XtWindowOfObject(_widget));
    const lm::PixmapHandle picture(display(), XCreatePixmap(display(), XtWindowOfObject(_widget), width, height,
                                                            static_cast<unsigned>(_widget->core.depth)));
    draw(picture.get());
    const lm::SharedGC copying(_widget, GCGraphicsExposures, XGCValues{.graphics_exposures = False});
    XCopyArea(display(), picture.get(), XtWindowOfObject(_widget), copying.get(), 0, 0, width, height, 0, 0);
}

void Overview::draw(Drawable picture)
{
    XFillRectangle(display(), picture, gc(_widget->core.background_pixel).get(), 0, 0, _widget->core.width, _widget->core.height);
    if (!_graph)
        return;
    const lm::OverviewScale toView = scale();
    drawVisiblePart(picture, toView);
    if (flagOf(_graph, "showOverviewArcs"))
        drawArcs(picture, toView);
    drawNodes(picture, toView);
}

void Overview::drawVisiblePart(Drawable picture, const lm::OverviewScale& scale)
{
    if (!_clip)
        return;
    const lm::Rect part{-_graph->core.x, -_graph->core.y, _clip->core.width, _clip->core.height};
    XRectangle lit = xRectangle(scale.shown(part));
    XFillRectangles(display(), picture, gc(pixelOf(_widget, XmNtopShadowColor)).get(), &lit, 1);
}

void Overview::drawArcs(Drawable picture, const lm::OverviewScale& scale)
{
    const auto* arcs = lm::arcsOfGraph(_graph);
    if (!arcs)
        return;
    std::vector<XSegment> lines;
    for (const auto& [from, to] : *arcs) {
        if (!from->core.managed || !to->core.managed)
            continue;
        const lm::Point start = scale.shown(lm::middleOf(outlineOf(from))), end = scale.shown(lm::middleOf(outlineOf(to)));
        lines.push_back(
            {static_cast<short>(start.x), static_cast<short>(start.y), static_cast<short>(end.x), static_cast<short>(end.y)});
    }
    if (!lines.empty())
        XDrawSegments(display(), picture, gc(pixelOf(_widget, XmNforeground)).get(), lines.data(),
                      static_cast<int>(lines.size()));
}

std::vector<Widget> Overview::nodes() const
{
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(_graph, XmNchildren, &children, XmNnumChildren, &count, nullptr);
    std::vector<Widget> nodes;
    std::copy_if(children, children + count, std::back_inserter(nodes), [this](Widget child) {
        return XtIsSubclass(child, rectObjClass) && child->core.managed && !child->core.being_destroyed && child != _widget;
    });
    return nodes;
}

// Every node in its own colour with an outline, or as a dot where that has no room; one request for each colour.
void Overview::drawNodes(Drawable picture, const lm::OverviewScale& scale)
{
    const Pixel foreground = pixelOf(_widget, XmNforeground);
    std::map<Pixel, std::vector<XRectangle>> filled;
    std::vector<XRectangle> outlines;
    for (Widget node : nodes()) {
        const XRectangle place = xRectangle(scale.shown(outlineOf(node)));
        const bool isDot = place.width < 4 || place.height < 4;
        filled[isDot ? foreground : backgroundOf(node)].push_back(place);
        if (!isDot)
            outlines.push_back(
                {place.x, place.y, static_cast<unsigned short>(place.width - 1), static_cast<unsigned short>(place.height - 1)});
    }
    for (auto& [pixel, places] : filled)
        XFillRectangles(display(), picture, gc(pixel).get(), places.data(), static_cast<int>(places.size()));
    if (!outlines.empty())
        XDrawRectangles(display(), picture, gc(foreground).get(), outlines.data(), static_cast<int>(outlines.size()));
}

}   // namespace

Widget XmGraphCreateOverView(Widget graph, Widget parent)
{
    struct Size {
        Dimension width, height;
    } size;
    XtResource table[] = {lm::resource(&size, size.width, XmNwidth, XmCWidth, "200"),
                          lm::resource(&size, size.height, XmNheight, XmCHeight, "150")};
    XtGetSubresources(parent, &size, "overview", "XmDrawingArea", table, XtNumber(table), nullptr, 0);
    Widget widget =
        XtVaCreateWidget("overview", xmDrawingAreaWidgetClass, parent, XmNwidth, size.width, XmNheight, size.height, nullptr);
    const bool usable = graph && XtIsSubclass(graph, coreWidgetClass) && !graph->core.being_destroyed;
    new Overview(usable ? graph : nullptr, widget);   // goes with the widget
    return widget;
}
