#include "tests/support/OnScreen.h"

#include "XmGraph.h"

#include <X11/IntrinsicP.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/LabelG.h>
#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>
#include <Xm/Xm.h>

using namespace lmtest;

namespace {

constexpr Pixel red = 0xff0000;
constexpr Pixel green = 0x00ff00;

class XmGraphOnScreen : public OnScreen {
protected:
    // A graph of 400 x 400 in a scrolled window of 200 x 200, and beside it its overview of 108 x 108: a quarter, and 4 free.
    void build(WidgetClass cls = xmGraphWidgetClass)
    {
        setResource("*overview.width: 108");
        setResource("*overview.height: 108");
        Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell(), nullptr);
        window = XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, form, XmNscrollingPolicy, XmAUTOMATIC, XmNwidth,
                                         200, XmNheight, 200, nullptr);
        graph = XtVaCreateManagedWidget("graph", cls, window, XmNwidth, 400, XmNheight, 400, XmNforeground, red, XmNresizePolicy,
                                        XmRESIZE_NONE, nullptr);
        other = XtVaCreateManagedWidget("other", xmDrawingAreaWidgetClass, form, XmNx, 220, XmNwidth, 210, XmNheight, 108,
                                        XmNresizePolicy, XmRESIZE_NONE, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
        overview = XmGraphCreateOverView(graph, other);
        XtVaSetValues(overview, XmNforeground, red, nullptr);
        EXPECT_FALSE(XtIsManaged(overview));
        XtManageChild(overview);
    }
    void realize()
    {
        XtVaSetValues(shell(), XmNwidth, 500, XmNheight, 300, nullptr);
        XtRealizeWidget(shell());
        XtMapWidget(shell());
        settle();
    }
    Widget node(int x, int y, WidgetClass cls = xmDrawingAreaWidgetClass)
    {
        return XtVaCreateManagedWidget("node", cls, graph, XmNx, x, XmNy, y, XmNwidth, 40, XmNheight, 40, XmNbackground, green,
                                       XmNrecomputeSize, False, nullptr);
    }
    void expectShown(int x, int y, Pixel pixel)
    {
        settleUntil([&] { return pixelAt(overview, x, y) == pixel; });
    }
    Widget window = nullptr, graph = nullptr, other = nullptr, overview = nullptr;
};

}   // namespace

TEST_F(XmGraphOnScreen, NodesStandWhereTheyAskToAndTheGraphGrowsForThem)
{
    build();
    Widget first = node(0, 0), second = node(160, 100, xmPushButtonGadgetClass);
    XmGraphAddArc(graph, first, second);
    realize();

    EXPECT_EQ(pixelAt(graph, 100, 70), red);   // halfway between (20, 20) and (180, 120)
    EXPECT_EQ(pixelAt(graph, 20, 20), green);
    EXPECT_EQ(graph->core.width, 400);
    bool pushed = false;
    XtAddCallback(
        second, XmNactivateCallback, [](Widget, XtPointer flag, XtPointer) { *static_cast<bool*>(flag) = true; }, &pushed);
    click(second, 8, 8);
    settleUntil([&] { return pushed; });

    XtVaSetValues(second, XmNx, 460, nullptr);
    XtVaSetValues(first, XmNy, 80, XmNx, 100, nullptr);
    EXPECT_EQ(graph->core.width, 510);
    EXPECT_EQ(first->core.x, 100);
    EXPECT_EQ(second->core.x, 460);
    settleUntil([&] { return pixelAt(graph, 150, 100 + 2) == red && pixelAt(graph, 100, 70) != red; });

    XmGraphAddArc(graph, first, window);   // no node
    XmGraphAddArc(window, first, second);
    XmGraphAddArc(nullptr, nullptr, nullptr);
    XmGraphRemoveArc(graph, second, first);   // the other direction
    XmGraphRemoveArc(graph, first, second);
    settleUntil([&] { return pixelCount(graph, red) == 0; });
}

TEST_F(XmGraphOnScreen, TheOverviewFollowsNodesAndArcs)
{
    build();
    Widget first = node(0, 0), second = node(200, 200, xmLabelGadgetClass);
    XmGraphAddArc(graph, first, second);
    realize();
    expectShown(4 + 5, 4 + 5, green);
    expectShown(4 + 55, 4 + 55, green);        // a gadget
    expectShown(4 + 30, 4 + 30, red);          // the arc
    EXPECT_EQ(pixelAt(overview, 4, 4), red);   // the outline of a node
    expectPicture(overview, "overview");

    XtVaSetValues(second, XmNx, 300, XmNy, 100, nullptr);
    expectShown(4 + 80, 4 + 30, green);
    XtVaSetValues(graph, "showOverviewArcs", False, nullptr);
    expectShown(4 + 5, 4 + 5, green);
    settleUntil([&] { return pixelAt(overview, 4 + 40, 4 + 17) != red && pixelAt(overview, 4 + 40, 4 + 18) != red; });
    node(0, 300);
    expectShown(4 + 5, 4 + 80, green);
    XtMoveWidget(first, 200, 0);   // without the graph
    expectShown(4 + 55, 4 + 5, green);

    XtVaSetValues(overview, XmNwidth, 208, nullptr);   // the same scale, in the middle
    expectShown(4 + 105, 4 + 5, green);
    XtVaSetValues(graph, "skewOverviewScale", True, nullptr);
    expectShown(4 + 110, 4 + 5, green);

    XtVaSetValues(graph, "showOverviewArcs", True, nullptr);
    XtDestroyWidget(second);   // takes its arc along
    settleUntil([&] { return pixelAt(overview, 4 + 165, 4 + 30) != green; });
    settle();
    XmGraphRemoveArc(graph, first, second);
}

TEST_F(XmGraphOnScreen, APressInTheOverviewScrollsThere)
{
    build();
    node(0, 0);
    realize();
    const Pixel visible = pixelAt(overview, 4 + 20, 4 + 20);
    EXPECT_NE(visible, pixelAt(overview, 4 + 90, 4 + 90));

    click(overview, 4 + 60, 4 + 70);
    expectShown(4 + 60, 4 + 70, visible);
    Widget clip = XtParent(graph);
    EXPECT_EQ(graph->core.x, -(240 - clip->core.width / 2));
    EXPECT_EQ(graph->core.y, -(280 - clip->core.height / 2));

    drag(overview, 4 + 60, 4 + 70, 2, 106);
    settleUntil([&] { return graph->core.x == 0 && graph->core.y == clip->core.height - 400; });
}

TEST_F(XmGraphOnScreen, AThousandMovesCostOneRedraw)
{
    build();
    std::vector<Widget> nodes;
    for (int i = 0; i < 1000; ++i)
        nodes.push_back(node(i % 10 * 10, i / 10 * 3));
    for (int i = 1; i < 1000; ++i)
        XmGraphAddArc(graph, nodes[static_cast<std::size_t>(i - 1)], nodes[static_cast<std::size_t>(i)]);
    realize();
    const auto covers = [&](int x, int y) { return pixelAt(overview, x, y) == red || pixelAt(overview, x, y) == green; };
    settleUntil([&] { return covers(4 + 10, 4 + 40) && !covers(4 + 60, 4 + 40); });

    for (Widget w : nodes)
        XtVaSetValues(w, XmNx, w->core.x + 200, nullptr);
    const unsigned long before = NextRequest(XtDisplay(graph));
    settle();
    settleUntil([&] { return !covers(4 + 10, 4 + 40) && covers(4 + 60, 4 + 40); });
    settle();
    EXPECT_LT(NextRequest(XtDisplay(graph)) - before, 100u);
}

TEST_F(XmGraphOnScreen, AnyWidgetHasAnOverviewAndAnyOrderOfDestructionWorks)
{
    build(xmDrawingAreaWidgetClass);
    Widget first = node(0, 0);
    realize();
    expectShown(4 + 5, 4 + 5, green);
    XtVaSetValues(first, XmNx, 80, nullptr);
    expectShown(4 + 25, 4 + 5, green);

    XtDestroyWidget(graph);
    settleUntil([&] { return pixelCount(overview, green) == 0; });
    click(overview, 20, 20);
    settle();
    XtDestroyWidget(XtParent(window));

    build();
    node(0, 0);
    realize();
    XtVaSetValues(graph, "skewOverviewScale", True, nullptr);   // a redraw is due
    XtDestroyWidget(overview);
    node(40, 40);
    settle();
    overview = XmGraphCreateOverView(graph, other);
    XtManageChild(overview);
    Widget form = XtParent(window);
    XtAddEventHandler(
        other, ButtonPressMask, False,
        [](Widget, XtPointer all, XEvent*, Boolean*) { XtDestroyWidget(static_cast<Widget>(all)); }, form);
    settle();
    XtUnmanageChild(overview);
    click(other, 50, 50);
    settle();
    EXPECT_EQ(childNamed(shell(), "*overview"), nullptr);
    EXPECT_NE(XmGraphCreateOverView(nullptr, shell()), nullptr);
}
