#include "platform/XmGraph.h"

#include "platform/GraphArcs.h"
#include "support/handles.h"
#include "support/resources.h"
#include "support/xt.h"

#include <Xm/ManagerP.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace {

constexpr int room = 10;   // what a graph keeps free beside its nodes when it grows, in pixels

// What a graph has beside its resources.
struct State {
    explicit State(Widget graph) : widget(graph) {}
    Boolean redraw();

    Widget widget;
    lm::GraphArcs arcs;
    lm::WorkProcHandle redrawing;   // until the arcs are drawn anew
};

struct Part {
    Boolean skewOverviewScale;
    Boolean showOverviewArcs;
    XtCallbackList graphChanged;
    State* state;
};

struct Record {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    Part graph;
};

struct ClassRecord {
    CoreClassPart core;
    CompositeClassPart composite;
    ConstraintClassPart constraint;
    XmManagerClassPart manager;
    XtPointer extension;
};

const char changedName[] = "graphChangedCallback";

Record* recordOf(Widget w) { return reinterpret_cast<Record*>(w); }
Part& partOf(Widget w) { return recordOf(w)->graph; }
bool isGraph(Widget w) { return w && XtIsSubclass(w, xmGraphWidgetClass); }

Boolean State::redraw()
{
    redrawing.fired();
    if (XtIsRealized(widget))
        XClearArea(XtDisplayOfObject(widget), XtWindowOfObject(widget), 0, 0, 0, 0, True);
    return True;
}

void changed(Widget w)
{
    State& state = *partOf(w).state;
    if (w->core.being_destroyed)
        return;
    if (!state.redrawing && XtIsRealized(w))
        state.redrawing = lm::WorkProcHandle(lm::whenIdle<&State::redraw>(XtWidgetToApplicationContext(w), &state));
    XtCallCallbacks(w, changedName, nullptr);
}

short coordinate(int value)
{
    return static_cast<short>(std::clamp<int>(value, std::numeric_limits<short>::min(), std::numeric_limits<short>::max()));
}

XPoint middleOf(Widget node)
{
    return {coordinate(node->core.x + node->core.border_width + node->core.width / 2),
            coordinate(node->core.y + node->core.border_width + node->core.height / 2)};
}

void drawArcs(Widget w)
{
    std::vector<XSegment> lines;
    for (const auto& [from, to] : partOf(w).state->arcs.living()) {
        if (!from->core.managed || !to->core.managed)
            continue;
        const XPoint start = middleOf(from), end = middleOf(to);
        lines.push_back({start.x, start.y, end.x, end.y});
    }
    if (lines.empty())
        return;
    const lm::SharedGC gc(w, GCForeground, XGCValues{.foreground = recordOf(w)->manager.foreground});
    XDrawSegments(XtDisplayOfObject(w), XtWindowOfObject(w), gc.get(), lines.data(), static_cast<int>(lines.size()));
}

Dimension dimension(int value) { return static_cast<Dimension>(std::clamp<int>(value, 1, std::numeric_limits<short>::max())); }

void growFor(Widget w, std::span<const Widget> nodes)
{
    int right = 0, bottom = 0;
    for (Widget node : nodes) {
        if (!node->core.managed)
            continue;
        right = std::max(right, node->core.x + node->core.width + 2 * node->core.border_width + room);
        bottom = std::max(bottom, node->core.y + node->core.height + 2 * node->core.border_width + room);
    }
    if (right <= w->core.width && bottom <= w->core.height)
        return;
    const Dimension width = std::max(w->core.width, dimension(right)), height = std::max(w->core.height, dimension(bottom));
    Dimension widest = 0, highest = 0;
    if (XtMakeResizeRequest(w, width, height, &widest, &highest) == XtGeometryAlmost)
        XtMakeResizeRequest(w, widest, highest, nullptr, nullptr);
}

// --- the methods of the class ------------------------------------------------------------------------------------------

const XmManagerClassRec& superclass() { return xmManagerClassRec; }

void initialize(Widget, Widget w, ArgList, Cardinal*)
{
    for (Dimension* side : {&w->core.width, &w->core.height})
        *side = std::max<Dimension>(*side, 2 * room);
    partOf(w).state = new State(w);
}

void destroy(Widget w) { delete partOf(w).state; }

void expose(Widget w, XEvent* event, Region region)
{
    drawArcs(w);
    XmeRedisplayGadgets(w, event, region);
}

Boolean setValues(Widget current, Widget, Widget w, ArgList, Cardinal*)
{
    const Part& before = partOf(current);
    const Part& now = partOf(w);
    if (before.skewOverviewScale != now.skewOverviewScale || before.showOverviewArcs != now.showOverviewArcs)
        changed(w);
    return recordOf(current)->manager.foreground != recordOf(w)->manager.foreground;
}

XtGeometryResult arrange(Widget node, XtWidgetGeometry* wanted, XtWidgetGeometry*)
{
    if (wanted->request_mode & XtCWQueryOnly)
        return XtGeometryYes;
    const auto chosen = [&](unsigned bit, auto value, auto own) { return wanted->request_mode & bit ? value : own; };
    const CorePart& core = node->core;
    XmeConfigureObject(node, chosen(CWX, wanted->x, core.x), chosen(CWY, wanted->y, core.y),
                       chosen(CWWidth, wanted->width, core.width), chosen(CWHeight, wanted->height, core.height),
                       chosen(CWBorderWidth, wanted->border_width, core.border_width));
    Widget graph = XtParent(node);
    growFor(graph, std::span(&node, 1));
    changed(graph);
    return XtGeometryDone;
}

void changeManaged(Widget w)
{
    const CompositePart& children = recordOf(w)->composite;
    growFor(w, std::span(children.children, children.num_children));
    changed(w);
    XmeNavigChangeManaged(w);
}

void deleteChild(Widget node)
{
    Widget graph = XtParent(node);
    if (!graph->core.being_destroyed) {
        partOf(graph).state->arcs.nodeDestroyed(node);
        changed(graph);
    }
    superclass().composite_class.delete_child(node);
}

Cardinal offsetOf(std::size_t inPart) { return static_cast<Cardinal>(offsetof(Record, graph) + inPart); }

XtResource resources[] = {
    {lm::xtText("skewOverviewScale"), lm::xtText("SkewOverviewScale"), lm::xtText(XtRBoolean), sizeof(Boolean),
     offsetOf(offsetof(Part, skewOverviewScale)), lm::xtText(XtRString), lm::xtText("False")},
    {lm::xtText("showOverviewArcs"), lm::xtText("ShowOverviewArcs"), lm::xtText(XtRBoolean), sizeof(Boolean),
     offsetOf(offsetof(Part, showOverviewArcs)), lm::xtText(XtRString), lm::xtText("True")},
    {lm::xtText(changedName), lm::xtText(XtCCallback), lm::xtText(XtRCallback), sizeof(XtCallbackList),
     offsetOf(offsetof(Part, graphChanged)), lm::xtText(XtRCallback), nullptr},
};

ClassRecord classRecord = {
    .core =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmManagerClassRec),
            .class_name = lm::xtText("XmGraph"),
            .widget_size = sizeof(Record),
            .initialize = initialize,
            .realize = XtInheritRealize,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = True,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = True,
            .destroy = destroy,
            .resize = nullptr,
            .expose = expose,
            .set_values = setValues,
            .set_values_almost = XtInheritSetValuesAlmost,
            .version = XtVersion,
            .tm_table = XtInheritTranslations,
            .query_geometry = nullptr,
        },
    .composite =
        {
            .geometry_manager = arrange,
            .change_managed = changeManaged,
            .insert_child = XtInheritInsertChild,
            .delete_child = deleteChild,
        },
    .constraint = {},
    .manager =
        {
            .translations = XtInheritTranslations,
            .parent_process = XmInheritParentProcess,
        },
    .extension = nullptr,
};

bool isNodeOf(Widget graph, Widget node)
{
    return node && !node->core.being_destroyed && XtParent(node) == graph && XtIsSubclass(node, rectObjClass);
}

}   // namespace

WidgetClass xmGraphWidgetClass = reinterpret_cast<WidgetClass>(&classRecord);

const std::set<lm::GraphArc>* lm::arcsOfGraph(Widget graph)
{
    return isGraph(graph) ? &partOf(graph).state->arcs.living() : nullptr;
}

Widget XmCreateGraph(Widget parent, const char* name, ArgList args, Cardinal count)
{
    return XtCreateWidget(name, xmGraphWidgetClass, parent, args, count);
}

void XmGraphAddArc(Widget graph, Widget from, Widget to)
{
    if (!isGraph(graph) || from == to || !isNodeOf(graph, from) || !isNodeOf(graph, to))
        return;
    partOf(graph).state->arcs.add({from, to});
    changed(graph);
}

void XmGraphRemoveArc(Widget graph, Widget from, Widget to)
{
    if (isGraph(graph) && partOf(graph).state->arcs.remove({from, to}))
        changed(graph);
}
