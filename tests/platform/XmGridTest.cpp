#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "XmGrid.h"

#include "support/handles.h"
#include "support/resources.h"
#include "support/xmtext.h"

#include <X11/IntrinsicP.h>
#include <Xm/Form.h>
#include <Xm/LabelG.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/TextF.h>

using namespace lmtest;

namespace {

using GridOnScreen = OnScreen;

Widget boxed(const char* name, Widget parent, int width, int height)
{
    return XtVaCreateManagedWidget(name, xmTextFieldWidgetClass, parent, XmNwidth, width, XmNheight, height, nullptr);
}

struct Holder : LmComponent {
    explicit Holder(Widget w) { _w = w; }
};

}   // namespace

TEST_F(GridOnScreen, AGridNegotiatesForItsChildrenAndFollowsItsParent)
{
    setResource("*grid.numColumns: 2");
    setResource("*grid*third.gravity: SouthEast");
    setResource("*grid*third.resizeHorizontal: False");
    setResource("*grid*third.resizeVertical: 0");
    Widget grid = XmCreateGrid(shell(), lm::xtText("grid"), nullptr, 0);
    XmGridSetRowResizability(grid, 0, 0);
    XmGridSetColumnResizability(grid, 0, 60);
    XmGridSetColumnResizability(grid, 1, 40);
    Widget first = boxed("first", grid, 50, 20), second = boxed("second", grid, 30, 20), third = boxed("third", grid, 20, 20);
    Holder holder(grid);
    show(holder);
    EXPECT_EQ(placeOf(grid), "84x44+0+0");
    EXPECT_EQ(placeOf(third), "20x20+30+24");

    setSize(shell(), 184, 144);
    EXPECT_EQ(placeOf(first), "110x20+0+0");
    EXPECT_EQ(placeOf(second), "70x20+114+0");
    EXPECT_EQ(placeOf(third), "20x20+90+124");
    XtVaSetValues(third, "gravity", NorthWestGravity, nullptr);
    EXPECT_EQ(placeOf(third), "20x20+0+24");
    XtVaSetValues(third, "column", 1, "row", 1, XmNwidth, static_cast<Dimension>(60), nullptr);
    EXPECT_EQ(placeOf(third), "60x20+96+24");   // there is room: the shell stays
    setSize(shell(), 114, 44);                  // the natural size
    XtVaSetValues(first, XmNwidth, static_cast<Dimension>(70), nullptr);
    EXPECT_EQ(placeOf(shell()).substr(0, 6), "134x44");
    XtVaSetValues(first, XmNwidth, static_cast<Dimension>(50), nullptr);
    EXPECT_EQ(placeOf(shell()).substr(0, 6), "114x44");
    setSize(shell(), 34, 30);
    EXPECT_EQ(placeOf(first), "14x20+0+0");
    EXPECT_EQ(placeOf(second), "16x20+18+0");

    XtVaSetValues(shell(), XmNallowShellResize, False, nullptr);
    setSize(shell(), 100, 100);
    XtVaSetValues(second, XmNwidth, static_cast<Dimension>(90), nullptr);   // refused; but remembered
    EXPECT_EQ(placeOf(first).substr(0, 5) + placeOf(second).substr(0, 5), "35x2061x20");
    XtVaSetValues(grid, "numColumns", 1, "defaultSpacing", 0, nullptr);   // refused, too, and laid out
    EXPECT_EQ(placeOf(second), "60x80+0+20");
    XtUnmanageChild(third);
    EXPECT_EQ(placeOf(first), "100x20+0+0");
}

TEST_F(GridOnScreen, GadgetsAreDrawnPressedAndTraversed)
{
    Widget box = XmCreateSpringBox(shell(), lm::xtText("box"), nullptr, 0);
    Widget gadgets[] = {XmCreatePushButtonGadget(box, lm::xtText("one"), nullptr, 0),
                        XmCreatePushButtonGadget(box, lm::xtText("two"), nullptr, 0)};
    int pressed = 0;
    XtAddCallback(
        gadgets[1], XmNactivateCallback, [](Widget, XtPointer n, XtPointer) { ++*static_cast<int*>(n); }, &pressed);
    XtManageChildren(gadgets, 2);
    Holder holder(box);
    show(holder, 300, 100);
    EXPECT_GT(colourCount(box), 2);   // text and shadows
    click(gadgets[1]);
    EXPECT_EQ(pressed, 1);
    XmProcessTraversal(gadgets[0], XmTRAVERSE_CURRENT);
    key(XK_Right);
    key(XK_space);
    EXPECT_EQ(pressed, 2);
    XtAddCallback(
        gadgets[0], XmNactivateCallback, [](Widget w, XtPointer, XtPointer) { XtDestroyWidget(XtParent(w)); }, nullptr);
    click(gadgets[0]);
    EXPECT_EQ(childNamed(shell(), "box"), nullptr);
    holder.widgetDestroyed();
}

TEST_F(GridOnScreen, SpringsComeFromResourceFilesAndADialogHoldsAGrid)
{
    setResource("*springs.orientation: vertical");
    setResource("*springs*XmTextField.topSpring: 0");
    setResource("*springs*XmTextField.leftSpring: 0");
    setResource("*springs*XmTextField.horizontalSpring: 50");
    Arg args[] = {{lm::xtText("numColumns"), 1}, {lm::xtText(XmNwidth), 200}, {lm::xtText(XmNheight), 210}};
    Widget dialog = XmCreateGridDialog(app().baseWidget(), lm::xtText("dialog"), args, 3), grid = XmGridOfDialog(dialog);
    XmGridSetRowResizability(dialog, 1, 0);
    XmGridSetRowMargin(dialog, 1, 10);
    XmGridSetRowMargin(dialog, -1, 10);
    Widget springs = XmCreateSpringBox(grid, lm::xtText("springs"), nullptr, 0), below = boxed("below", grid, 30, 30);
    XtVaSetValues(springs, "row", 0, nullptr);
    XtVaSetValues(below, "row", 1, nullptr);
    Widget field = boxed("field", springs, 50, 20);
    XtManageChild(springs);
    XtManageChild(dialog);
    settle();
    EXPECT_TRUE(isViewable(dialog));
    EXPECT_EQ(placeOf(grid), "200x210+0+0");
    EXPECT_EQ(placeOf(below), "200x30+0+170");
    EXPECT_EQ(placeOf(springs), "200x160+0+0");
    EXPECT_EQ(placeOf(field), "125x20+0+0");
    XtDestroyWidget(XtParent(dialog));
    EXPECT_EQ(XmGridOfDialog(nullptr), nullptr);
}

TEST_F(GridOnScreen, AThousandChildrenWaitForTheirLayoutUntilItIsAskedFor)
{
    Widget grid = XmCreateGrid(shell(), lm::xtText("grid"), nullptr, 0);
    XtVaSetValues(grid, "numColumns", 40, "autoLayout", False, nullptr);
    Holder holder(grid);
    show(holder, 800, 500);
    std::vector<Widget> labels;
    for (int i = 0; i < 1000; ++i)
        labels.push_back(XtVaCreateManagedWidget("x", xmLabelGadgetClass, grid, nullptr));
    EXPECT_EQ(labels[999]->core.x, 0);
    XtVaSetValues(grid, "autoLayout", True, nullptr);
    EXPECT_GT(labels[999]->core.x, labels[998]->core.x);
    XtVaSetValues(labels[0], XmNlabelString, lm::compound("something longer").get(), nullptr);
    EXPECT_GT(labels[1]->core.x, labels[2]->core.width * 2);
    XtVaSetValues(grid, "autoLayout", False, nullptr);
    for (Widget label : labels)
        XtDestroyWidget(label);
}
