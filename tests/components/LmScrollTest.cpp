#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmScroll.h"
#include "LmScrolledBox.h"

#include "support/resources.h"

#include <X11/IntrinsicP.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/LabelG.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBar.h>

#include <array>
#include <memory>

using namespace lmtest;

namespace {

using ScrollOnScreen = OnScreen;

/// maximum, value, sliderSize and pageIncrement of the scroll bar.
std::array<int, 4> barOf(LmScroll& scroll)
{
    std::array<int, 4> bar;
    XtVaGetValues(childNamed(scroll.baseWidget(), "sb"), XmNmaximum, &bar[0], XmNvalue, &bar[1], XmNsliderSize, &bar[2],
                  XmNpageIncrement, &bar[3], nullptr);
    return bar;
}

/// Children of 40 x 30 in a box.
std::vector<Widget> fill(LmScrolledBox& box, int count, WidgetClass kind = xmLabelWidgetClass)
{
    std::vector<Widget> children;
    for (int i = 0; i < count; ++i)
        children.push_back(
            XtVaCreateManagedWidget("child", kind, box.board(), XmNwidth, 40, XmNheight, 30, XmNrecomputeSize, False, nullptr));
    return children;
}

}   // namespace

TEST_F(ScrollOnScreen, AScrollMovesItsChildAndTellsWhatItDoes)
{
    setResource("*sb.increment: 7");
    auto scroll = std::make_unique<LmScroll>("scroll", shell());
    std::vector<LmScrollCallbackStruct> heard;
    scroll->addCallback(
        LmScroll::scrollCallback,
        [](LmCallbackObject*, void* to, void* data) {
            static_cast<decltype(heard)*>(to)->push_back(*static_cast<LmScrollCallbackStruct*>(data));
        },
        &heard);
    Widget child =
        XtVaCreateManagedWidget("child", xmDrawingAreaWidgetClass, scroll->clip(), XmNwidth, 100, XmNheight, 50, nullptr);
    scroll->setChild(child);
    show(*scroll, 200, 104);
    ASSERT_GE(heard.size(), 2U);
    EXPECT_EQ(heard[0].reason, 1);
    EXPECT_EQ(heard[1].reason, 2);
    EXPECT_EQ(barOf(*scroll), (std::array{100, 0, 100, 98}));   // the frame's shadows are 2 pixels
    scroll->setScrollPos(30);
    EXPECT_EQ(scroll->scrollPos(), 0);

    XtVaSetValues(child, XmNheight, 500, nullptr);
    settle();
    EXPECT_EQ(barOf(*scroll), (std::array{500, 0, 100, 98}));
    scroll->setScrollPos(60);
    EXPECT_EQ(placeOf(child), "100x500+0+-60");
    Widget bar = childNamed(scroll->baseWidget(), "sb");
    click(bar, bar->core.width / 2, bar->core.height - 25);   // a page
    EXPECT_EQ(child->core.y, -158);
    click(child, 10, 100, 5);   // the wheel
    EXPECT_EQ(child->core.y, -178);
    click(childNamed(scroll->baseWidget(), "*frame"), 1, 1, 4);
    EXPECT_EQ(scroll->scrollPos(), 158);
    XtVaSetValues(child, XmNwidth, 120, nullptr);   // makes the form place the child again
    settle();
    EXPECT_EQ(child->core.y, -158);

    heard.clear();
    scroll->setAnnotations();
    setSize(shell(), 200, 204);
    ASSERT_FALSE(heard.empty());
    const LmScrollCallbackStruct& trough = heard.back();
    EXPECT_EQ(trough.reason, 3);
    EXPECT_TRUE(trough.a > 0 && trough.b > 0 && trough.c == 0 && trough.d == 500 && trough.pixmap != None);
    scroll->setScrollPos(9999);
    EXPECT_EQ(scroll->scrollPos(), 300);
    setSize(shell(), 200, 404);
    EXPECT_EQ(scroll->scrollPos(), 0);
    XtDestroyWidget(child);
    EXPECT_EQ(barOf(*scroll)[0], 400);

    scroll->setChild(XtVaCreateManagedWidget("child", xmDrawingAreaWidgetClass, scroll->clip(), XmNheight, 900, nullptr));
    settle();
    EXPECT_EQ(barOf(*scroll)[0], 900);
    scroll->addCallback(
        LmScroll::scrollCallback, [](LmCallbackObject* s, void*, void*) { delete s; }, nullptr);
    setSize(shell(), 200, 304);
    scroll.release();
    EXPECT_EQ(childNamed(shell(), "scroll"), nullptr);
}

TEST_F(ScrollOnScreen, ABoxIsWideOrTallAndItsArrowsScrollByACell)
{
    setResource("*box*shadowThickness: 0");
    setResource("*box*highlightThickness: 0");
    auto box = std::make_unique<LmScrolledBox>("box", shell());
    const std::vector<Widget> children = fill(*box, 7);
    EXPECT_EQ(box->getCurrentPlacement(), 2);
    show(*box, 3 * 44 + 8, 42);
    Widget right = childNamed(box->baseWidget(), "*arrowRight"), left = childNamed(box->baseWidget(), "*arrowLeft");
    EXPECT_EQ(box->getCurrentPlacement(), 0);
    EXPECT_EQ(placeOf(box->board()), "312x38+0+0");   // seven columns
    EXPECT_EQ(placeOf(children[6]), "40x30+268+4");
    EXPECT_TRUE(isViewable(right) && XtIsSensitive(right) && !XtIsSensitive(left));
    EXPECT_EQ(placeOf(shell()).substr(0, 6), "140x42");   // nothing grew

    click(right);
    EXPECT_EQ(box->board()->core.x, -44);
    EXPECT_TRUE(XtIsSensitive(left));
    click(box->viewport(), 10, 10, 5);
    EXPECT_EQ(box->board()->core.x, -88);
    box->makeViewable(children[6]);   // seen already: from 180 on, in 140
    EXPECT_EQ(box->board()->core.x, 4 - 268);
    EXPECT_FALSE(XtIsSensitive(right));
    click(box->viewport(), 10, 10, 5);
    EXPECT_EQ(box->board()->core.x, -264);
    click(left);
    EXPECT_EQ(box->board()->core.x, -220);

    setSize(shell(), 50, 120);
    EXPECT_EQ(box->getCurrentPlacement(), 1);
    EXPECT_EQ(placeOf(box->board()), "48x242+0+-170");   // still five cells on
    EXPECT_FALSE(isViewable(right));
    Widget on = childNamed(box->baseWidget(), "*arrowUp"), back = childNamed(box->baseWidget(), "*arrowDown");
    EXPECT_TRUE(isViewable(back));
    click(back);
    EXPECT_EQ(box->board()->core.y, -136);
    box->reset();
    EXPECT_TRUE(XtIsSensitive(on) && !XtIsSensitive(back));
    box->makeViewable(children[4]);   // 140 down, below the viewport
    EXPECT_EQ(box->board()->core.y, -136);

    for (int i = 2; i < 7; ++i)
        XtDestroyWidget(children[static_cast<std::size_t>(i)]);
    EXPECT_EQ(placeOf(box->board()).substr(0, 5), "48x72");
    Widget special = XtVaCreateWidget("special", xmPushButtonWidgetClass, box->baseWidget(), XmNwidth, 30, XmNheight, 20,
                                      XmNrecomputeSize, False, nullptr);
    setSize(shell(), 240, 50);
    EXPECT_EQ(placeOf(special), "30x20+203+7");
    EXPECT_EQ(box->viewport()->core.width, 196);
    setSize(shell(), 60, 200);
    EXPECT_EQ(placeOf(special), "30x20+7+173");
    EXPECT_EQ(box->viewport()->core.height, 166);
    XtDestroyWidget(special);
    setSize(shell(), 240, 50);
    EXPECT_EQ(box->viewport()->core.width, 240);
    box.reset();
    settle();
}

TEST_F(ScrollOnScreen, AThousandChildrenAreLaidOutAndGoOneByOne)
{
    setResource("*box.initialPlacement: vertical");
    LmScrolledBox box("box", shell());
    box.setCenterChildren(True);
    std::vector<Widget> children = fill(box, 1000, xmLabelGadgetClass);
    XtVaSetValues(children[0], XmNwidth, 60, nullptr);
    show(box, 300, 300);
    EXPECT_EQ(box.getCurrentPlacement(), 1);
    EXPECT_EQ(children[1]->core.x, 4 + 64 + 10);
    box.makeViewable(children[999]);
    EXPECT_LT(box.board()->core.y, -5000);

    Widget button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, box.board(), nullptr);
    box.reset();
    box.resize();
    box.makeViewable(button);
    settle();
    XtAddCallback(
        button, XmNactivateCallback,
        [](Widget, XtPointer all, XtPointer) {
            for (Widget child : *static_cast<std::vector<Widget>*>(all))
                XtDestroyWidget(child);
        },
        &children);
    const unsigned long before = NextRequest(app().display());
    click(button);   // in a dispatch: all are being destroyed when the first is gone, and none is moved any more
    EXPECT_LT(NextRequest(app().display()) - before, 10000U);
    EXPECT_EQ(button->core.x, 4);
    EXPECT_EQ(button->core.y, 4);
    destroyShell();
    box.resize();
    box.reset();
    box.scrollArea(1);
    EXPECT_EQ(box.board(), nullptr);
}
