// XmGraph.h: nodes and arcs on a plane, and an overview of them.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

extern "C" {

/// The class of graphs, a subclass of XmManager. The children (widgets or gadgets) are the nodes, at the places ("x", "y") and
/// in the sizes that they ask for; the graph grows to hold them all, as far as its parent lets it. Arcs are straight lines
/// between the middles of nodes, behind them, in the graph's foreground; an arc is drawn while both nodes are managed.
///
/// Resources: "skewOverviewScale" (class "SkewOverviewScale", Boolean, default False): overviews fill their whole area, with
///            another scale across than down. "showOverviewArcs" (class "ShowOverviewArcs", Boolean, default True): overviews
///            show the arcs, too.
/// Callbacks: "graphChangedCallback" (class "Callback", no call data) runs whenever nodes, arcs or one of these resources
///            changed, which can be many times in a row and in the midst of geometry management: note it and act later.
LM_API extern WidgetClass xmGraphWidgetClass;

/// Makes a graph, not managed.
LM_API Widget XmCreateGraph(Widget parent, const char* name, ArgList args, Cardinal count);

/// Joins two nodes by an arc; a second one between the same, in the same direction, is none. An arc goes with its nodes.
/// Anything but two children of a graph is ignored.
LM_API void XmGraphAddArc(Widget graph, Widget from, Widget to);

/// Takes an arc away; one that is not there is ignored.
LM_API void XmGraphRemoveArc(Widget graph, Widget from, Widget to);

/// Makes an overview of a graph, not managed: an XmDrawingArea named "overview" that shows, scaled to its size, the managed
/// children of `graph` and (with "showOverviewArcs") its arcs. When the graph is the work window of an automatic
/// XmScrolledWindow, the visible part is marked, and a press of the first button, or a drag with it, scrolls the window there.
///
/// `graph` may be any composite widget: one without the resources counts as having them false. The overview follows nodes
/// that come, go and move, redrawing once for any number of changes; when the graph is destroyed it becomes empty. It may be
/// destroyed before the graph. A null graph, or a gadget: an empty overview. Its size is 200 x 150 pixels
/// unless resources say otherwise.
LM_API Widget XmGraphCreateOverView(Widget graph, Widget parent);
}
