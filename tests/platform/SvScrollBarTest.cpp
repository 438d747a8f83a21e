#include "tests/support/OnScreen.h"

#include "SvScrollBar.h"

#include <Xm/ScrollBar.h>
#include <Xm/Xm.h>

using namespace lmtest;

namespace {

struct Painter {
    std::vector<SvTroughCallbackStruct> calls;
    Pixel colour = 0;
    bool destroys = false;
};

// A line of ten pixels across the middle of the trough.
void paint(Widget w, XtPointer client, XtPointer call)
{
    Painter& painter = *static_cast<Painter*>(client);
    const auto& data = *static_cast<SvTroughCallbackStruct*>(call);
    painter.calls.push_back(data);
    XGCValues values = {.foreground = painter.colour};
    GC gc = XtGetGC(w, GCForeground, &values);
    XFillRectangle(XtDisplay(w), data.pixmap, gc, data.width / 2 - 5, data.height / 2, 10, 1);
    XtReleaseGC(w, gc);
    SvScrollBarRedisplay(w);   // ignored: it is painting
    if (painter.destroys)
        XtDestroyWidget(w);
}

class SvScrollBarOnScreen : public OnScreen {
protected:
    Widget bar(int orientation, Dimension width, Dimension height)
    {
        XtVaSetValues(shell(), XmNwidth, width, XmNheight, height, nullptr);
        Widget w = SvCreateScrollBar(shell(), "bar", nullptr, 0);
        XtVaSetValues(w, XmNorientation, orientation, XmNmaximum, 200, XmNsliderSize, 20, XmNhighlightThickness, 0,
                      XmNshadowThickness, 2, nullptr);
        XtAddCallback(w, "troughPixmapCallback", paint, &painter);
        painter.colour = BlackPixelOfScreen(XtScreen(w));
        return w;
    }
    void showBar(Widget w)
    {
        XtManageChild(w);
        XtRealizeWidget(shell());
        XtMapWidget(shell());
        settle();
    }
    Painter painter;
};

}   // namespace

TEST_F(SvScrollBarOnScreen, MarksStandInTheTroughAndStayThereBehindTheSlider)
{
    Widget w = bar(XmVERTICAL, 20, 240);
    EXPECT_FALSE(XtIsManaged(w));
    SvScrollBarRedisplay(w);   // not realized
    EXPECT_TRUE(painter.calls.empty());
    showBar(w);

    ASSERT_EQ(painter.calls.size(), 1u);
    const SvTroughCallbackStruct data = painter.calls[0];
    EXPECT_EQ(data.width, 16);     // 20 less two shadows of 2
    EXPECT_EQ(data.height, 202);   // 240 less two shadows and two arrows of 16 with a pixel beside each
    EXPECT_EQ(data.rows, 200);
    EXPECT_EQ(pixelCount(w, painter.colour), 10);
    EXPECT_EQ(pixelAt(w, 10, 19 + 101), painter.colour);

    XmScrollBarSetValues(w, 90, 20, 1, 10, False);
    settle();
    EXPECT_EQ(pixelCount(w, painter.colour), 0);
    XmScrollBarSetValues(w, 0, 20, 1, 10, False);
    settle();
    EXPECT_EQ(pixelCount(w, painter.colour), 10);
    EXPECT_EQ(painter.calls.size(), 1u);   // no drawing of ours was needed for that
}

TEST_F(SvScrollBarOnScreen, ManyChangesPaintOnceAndARedisplayPaintsAtOnce)
{
    Widget w = bar(XmHORIZONTAL, 240, 20);
    showBar(w);
    ASSERT_EQ(painter.calls.size(), 1u);
    EXPECT_EQ(painter.calls[0].width, 202);
    EXPECT_EQ(painter.calls[0].height, 16);

    for (int i = 0; i < 100; ++i)
        XtVaSetValues(w, XmNmaximum, 300 + i, nullptr);
    EXPECT_EQ(painter.calls.size(), 1u);
    settle();
    ASSERT_EQ(painter.calls.size(), 2u);
    EXPECT_EQ(painter.calls[1].rows, 399);

    SvScrollBarRedisplay(w);
    ASSERT_EQ(painter.calls.size(), 3u);
    EXPECT_EQ(painter.calls[2].event, nullptr);
    XtVaSetValues(shell(), XmNwidth, 140, nullptr);
    settle();
    ASSERT_EQ(painter.calls.size(), 4u);
    EXPECT_EQ(painter.calls[3].width, 102);
    EXPECT_EQ(pixelCount(w, painter.colour), 10);

    XtRemoveCallback(w, "troughPixmapCallback", paint, &painter);
    SvScrollBarRedisplay(w);
    settle();
    EXPECT_EQ(pixelCount(w, painter.colour), 0);
    Pixel trough = 0;
    XtVaGetValues(w, XmNtroughColor, &trough, nullptr);
    EXPECT_EQ(pixelAt(w, 80, 10), trough);
}

TEST_F(SvScrollBarOnScreen, StrangersAndBarsThatGoAreLeftAlone)
{
    Widget w = bar(XmVERTICAL, 20, 240);
    Widget plain = XtVaCreateWidget("plain", xmScrollBarWidgetClass, shell(), nullptr);
    showBar(w);
    SvScrollBarRedisplay(nullptr);
    SvScrollBarRedisplay(plain);
    SvScrollBarRedisplay(shell());
    SvScrollBarRedisplay(w);
    EXPECT_EQ(XmIsScrollBar(w), True);

    painter.calls.clear();
    painter.destroys = true;
    SvScrollBarRedisplay(w);   // outside a dispatch: the bar goes at once
    EXPECT_EQ(painter.calls.size(), 1u);

    Widget other = bar(XmVERTICAL, 20, 240);
    showBar(other);   // inside the dispatch of its Expose
    EXPECT_EQ(painter.calls.size(), 2u);

    painter.destroys = false;
    Widget huge = bar(XmVERTICAL, 20, 240);
    XtManageChild(huge);
    XtVaSetValues(shell(), XmNwidth, 30000, XmNheight, 30000, nullptr);
    ASSERT_EQ(XtIsRealized(huge), True);
    SvScrollBarRedisplay(huge);
    EXPECT_EQ(painter.calls.size(), 2u);
}
