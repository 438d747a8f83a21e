#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmAlignmentGroup.h"
#include "LmGangedGroup.h"
#include "LmRadioGroup.h"

#include <Xm/BulletinB.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/ToggleB.h>

using namespace lmtest;

namespace {

/// A board on the screen whose children stay where they are put.
struct GroupsOnScreen : OnScreen {
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell(), XmNresizePolicy, XmRESIZE_NONE, XmNwidth,
                                           300, XmNheight, 200, nullptr);
    Widget child(const char* name, WidgetClass kind, int x = 10, int y = 10, int width = 40)
    {
        return XtVaCreateManagedWidget(name, kind, board, XmNrecomputeSize, False, XmNx, x, XmNy, y, XmNwidth, width, nullptr);
    }
    std::vector<int> valuesOf(const LmWidgetList& group, const char* resource)
    {
        std::vector<int> values;
        for (int i = 0; i < group.size(); ++i) {
            short value = 0;
            XtVaGetValues(group[i], resource, &value, nullptr);
            values.push_back(value);
        }
        return values;
    }
};

using Ints = std::vector<int>;

}   // namespace

TEST_F(GroupsOnScreen, AlignmentRemembersTheLargestAndDistributesEvenly)
{
    LmAlignmentGroup left, right, down;
    for (const auto& [x, y] : {std::pair(10, 0), {30, 7}, {20, 50}, {20, 60}})
        left.add(child("label", xmLabelWidgetClass, x, y));
    for (int i = 0; i < 4; ++i)
        down.add(left[i]);
    left.alignLeft();
    EXPECT_EQ(valuesOf(left, XmNx), (Ints{30, 30, 30, 30}));
    XtVaSetValues(left[1], XmNx, 5, nullptr);
    left.alignLeft();
    EXPECT_EQ(valuesOf(left, XmNx), (Ints{30, 30, 30, 30}));
    down.distributeVertical();
    EXPECT_EQ(valuesOf(down, XmNy), (Ints{0, 20, 40, 60}));
    for (const auto& [x, width] : {std::pair(10, 40), {20, 60}, {40, 30}})
        right.add(child("label", xmLabelWidgetClass, x, 100, width));
    right.alignRight();
    EXPECT_EQ(valuesOf(right, XmNx), (Ints{40, 20, 50}));
    right.alignWidth();
    EXPECT_EQ(valuesOf(right, XmNwidth), (Ints{60, 60, 60}));
    LmAlignmentGroup().distributeHorizontal();
}

TEST_F(GroupsOnScreen, GangedScalesMoveTogetherWithinTheirRange)
{
    Widget scales[] = {child("a", xmScaleWidgetClass), child("b", xmScaleWidgetClass), child("c", xmScaleWidgetClass)};
    XtVaSetValues(scales[2], XmNmaximum, 60, nullptr);
    {
        LmGangedGroup gang;
        for (Widget scale : scales)
            gang.add(scale);
        gang.add(child("label", xmLabelWidgetClass));
        EXPECT_EQ(takeErrors().size(), 1U);
        EXPECT_EQ(gang.size(), 3);
        XmScaleSetValue(scales[0], 70);
        XmScaleCallbackStruct moved = {XmCR_DRAG, nullptr, 70};
        XtCallCallbacks(scales[0], XmNdragCallback, &moved);
    }
    int b = 0, c = 0;
    XmScaleGetValue(scales[1], &b);
    XmScaleGetValue(scales[2], &c);
    EXPECT_EQ(b, 70);
    EXPECT_EQ(c, 0);
    EXPECT_EQ(XtHasCallbacks(scales[0], XmNdragCallback), XtCallbackHasNone);   // the group is gone
}

TEST_F(GroupsOnScreen, OneButtonOfAGroupIsChosenAndOthersGetTheirLookBack)
{
    LmRadioGroup group;
    Widget a = child("a", xmPushButtonWidgetClass), b = child("b", xmPushButtonWidgetClass, 60),
           on = child("on", xmToggleButtonWidgetClass, 110, 10, 60), off = child("off", xmToggleButtonWidgetClass, 180, 10, 60);
    for (Widget w : {a, b, on, off})
        group.add(w);
    XtPopup(shell(), XtGrabNone);
    settleUntil([&] { return isViewable(a); });
    const auto backgroundOf = [](Widget w) {
        Pixel background = 0;
        XtVaGetValues(w, XmNbackground, &background, nullptr);
        return background;
    };
    const Pixel normal = backgroundOf(a);
    click(a);
    EXPECT_NE(backgroundOf(a), normal);
    click(b);
    click(b);   // stays pressed in, and remembers its own look
    EXPECT_EQ(backgroundOf(a), normal);
    EXPECT_NE(backgroundOf(b), normal);
    click(on);
    EXPECT_EQ(backgroundOf(b), normal);
    click(off);
    EXPECT_FALSE(XmToggleButtonGetState(on));
    EXPECT_EQ(group.selected(), off);
    XtDestroyWidget(off);
    EXPECT_EQ(group.selected(), nullptr);
    click(a);
    EXPECT_NE(backgroundOf(a), normal);
}
