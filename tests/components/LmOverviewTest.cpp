#include "tests/support/OnScreen.h"

#include "LmMenuBar.h"
#include "LmOverview.h"
#include "XmGraph.h"

#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

using namespace lmtest;

namespace {

class LmOverviewOnScreen : public OnScreen {
    LmSimpleWindow* keeper = new LmSimpleWindow("keeper");   // so that the test does not end the program with its last window
};

bool flagOf(Widget graph, const char* resource)
{
    Boolean flag = False;
    XtVaGetValues(graph, resource, &flag, nullptr);
    return flag;
}

bool isOn(Widget toggle)
{
    unsigned char set = XmINDETERMINATE;
    XtVaGetValues(toggle, XmNset, &set, nullptr);
    return set == XmSET;
}

}   // namespace

TEST_F(LmOverviewOnScreen, TheMenuScalesShowsArcsAndCloses)
{
    Widget graph = XtVaCreateManagedWidget("graph", xmGraphWidgetClass, shell(), "skewOverviewScale", True, "showOverviewArcs",
                                           False, nullptr);
    auto* window = new LmOverview("overview", graph);
    window->show();
    settle();

    Widget main = window->baseWidget();
    const auto item = [&](const char* name) { return window->menu()->findNamedItem(name, false, true)->baseWidget(); };
    settleUntil([&] { return item("close") != nullptr; });   // panes are filled in idle time
    Widget skew = item("skewOverviewScale"), arcs = item("showOverviewArcs");
    EXPECT_EQ(textOf(item("overview_main_menu")), "Admin");
    EXPECT_EQ(textOf(skew), "Scale To Fit");
    EXPECT_EQ(textOf(arcs), "Show Arcs ");
    EXPECT_TRUE(isOn(skew));
    EXPECT_TRUE(isOn(arcs));   // on, whatever the graph has
    EXPECT_FALSE(flagOf(graph, "showOverviewArcs"));
    EXPECT_TRUE(isViewable(window->viewWidget()));
    EXPECT_STREQ(window->className(), "LmOverview");

    XmToggleButtonCallbackStruct off = {.reason = XmCR_VALUE_CHANGED, .event = nullptr, .set = XmUNSET};
    XmToggleButtonCallbackStruct on = {.reason = XmCR_VALUE_CHANGED, .event = nullptr, .set = XmSET};
    XtCallCallbacks(skew, XmNvalueChangedCallback, &off);
    XtCallCallbacks(arcs, XmNvalueChangedCallback, &on);
    EXPECT_FALSE(flagOf(graph, "skewOverviewScale"));
    EXPECT_TRUE(flagOf(graph, "showOverviewArcs"));

    sendProtocol(main, "WM_DELETE_WINDOW");
    settle();
    EXPECT_EQ(window->visibleState(), 0);   // hidden, not deleted
    window->show();
    XmPushButtonCallbackStruct chosen = {.reason = XmCR_ACTIVATE};
    XtCallCallbacks(item("close"), XmNactivateCallback, &chosen);
    EXPECT_EQ(window->visibleState(), 0);
    window->show();

    XtDestroyWidget(graph);
    XtCallCallbacks(skew, XmNvalueChangedCallback, &on);
    EXPECT_EQ(window->graph(), nullptr);
    settle();
    auto* other = new LmOverview("empty", nullptr);
    other->show();
    settle();
    delete window;
    delete other;
}
