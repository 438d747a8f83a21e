#include "tests/support/OnScreen.h"

#include "LmModifiedAttachment.h"

#include <X11/IntrinsicP.h>
#include <Xm/BulletinB.h>
#include <Xm/Label.h>
#include <Xm/PushBG.h>
#include <Xm/ScrollBar.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include <memory>

using namespace lmtest;

namespace {

char* text(const char* literal) { return const_cast<char*>(literal); }

class LmModifiedOnScreen : public OnScreen {
protected:
    Widget field(const char* name, int y, WidgetClass cls = xmTextFieldWidgetClass)
    {
        return XtVaCreateManagedWidget(name, cls, board, XmNx, 20, XmNy, y, XmNwidth, 150, XmNhighlightThickness, 1, nullptr);
    }
    void realize()
    {
        XtRealizeWidget(shell());
        XtMapWidget(shell());
        settle();
    }
    void listen(LmModifiedAttachment& attachment)
    {
        const auto note = [](LmCallbackObject*, void* reasons, void* data) {
            static_cast<std::vector<int>*>(reasons)->push_back(static_cast<LmModifiedCallbackStruct*>(data)->reason);
        };
        attachment.addCallback(LmModifiedAttachment::modifiedCallback, note, &heard);
    }
    static std::string valueOf(Widget w) { return lm::XtString(XmTextFieldGetString(w)).get(); }

    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell(), XmNwidth, 300, XmNheight, 200, nullptr);
    std::vector<int> heard;
};

}   // namespace

TEST(LmModifiedModel, AValueIsComparedWithTheOneBeforeOrAFixedOne)
{
    LmModified value(True);
    value.setValue("a");
    EXPECT_FALSE(value.isModified());   // nothing to compare with
    value.setValue("b");
    EXPECT_TRUE(value.isModified());
    value.setValue(value.currentValue());
    EXPECT_FALSE(value.isModified());

    value.fixPreviousValue(text(""), False);
    EXPECT_TRUE(value.isModified());
    value.setValue("c");
    EXPECT_STREQ(value.previousValue(), "");
    value.toggleDisplay();
    value.setValue(value.previousValue());
    EXPECT_TRUE(value.isShowingCurrent());
    EXPECT_FALSE(value.isModified());
    value.fixPreviousValue(const_cast<char*>(value.previousValue()), True);
    EXPECT_FALSE(value.isModified());

    LmModified blank(False);
    blank.fixPreviousValue(text(" "), True);
    blank.setValue("typed");
    EXPECT_FALSE(blank.isModified());
    blank.fixPreviousValue(text("was"), False);
    EXPECT_TRUE(blank.isModified());
    blank.setValue(nullptr);
    EXPECT_FALSE(blank.isModified());
}

TEST_F(LmModifiedOnScreen, TheCornerShowsAndBringsBackThePreviousValue)
{
    Widget w = field("name", 20);
    LmModifiedAttachment attachment(True, True, True);
    listen(attachment);
    attachment.attach(w);
    attachment.show();
    attachment.fixPreviousValue(text("raven"), True);
    EXPECT_EQ(valueOf(w), "raven");
    EXPECT_EQ(attachment.indicator(), nullptr);
    realize();

    Widget corner = attachment.indicator();
    ASSERT_NE(corner, nullptr);
    EXPECT_STREQ(XtName(corner), "modifiedArea");
    EXPECT_FALSE(isViewable(corner));
    EXPECT_EQ(corner->core.x, 20 + 150 - 10 - 1);
    EXPECT_EQ(corner->core.y, 21);

    heard.clear();
    click(w, 8, 10);
    type("x");
    settle();
    EXPECT_TRUE(attachment.isModified());
    EXPECT_EQ(heard, std::vector<int>{LM_valueChanged});
    EXPECT_TRUE(isViewable(corner));
    expectPicture(corner, "foldedCorner");
    click(corner, 5, 5);
    settle();
    EXPECT_EQ(valueOf(w), "raven");
    EXPECT_FALSE(attachment.isShowingCurrent());
    expectPicture(corner, "previousCorner");
    EXPECT_TRUE(attachment.isModified());   // writing the old value is no new one
    click(corner, 5, 5);
    settle();
    EXPECT_NE(valueOf(w), "raven");
    expectPicture(corner, "foldedCorner");

    XtVaSetValues(w, XmNx, 40, XmNwidth, 200, nullptr);
    settle();
    EXPECT_EQ(corner, attachment.indicator());
    EXPECT_EQ(corner->core.x, 40 + 200 - 10 - 1);
    attachment.setParameters(16, 12);
    EXPECT_EQ(corner->core.x, 40 + 200 - 16 - 1);
    EXPECT_EQ(corner->core.height, 12);

    attachment.fixPreviousValue(text("crow"), True);
    settle();
    EXPECT_FALSE(isViewable(corner));
    EXPECT_EQ(valueOf(w), "crow");
    attachment.setValue("magpie");
    settle();
    EXPECT_TRUE(isViewable(corner));
    attachment.hide();
    attachment.setValue("jay");
    settle();
    EXPECT_FALSE(isViewable(corner));
}

TEST_F(LmModifiedOnScreen, WithoutUpdatesOnlyReturnCountsAndNothingFeedsBack)
{
    Widget w = field("name", 20);
    LmModifiedAttachment attachment(True, False, False), taking(True, False, True);
    taking.attach(w);
    taking.setValue("a");
    taking.setValue("b");
    EXPECT_STREQ(taking.previousValue(), "a");   // writing "b" was not taken for another new value
    taking.detach();
    attachment.attach(w);
    attachment.setValue("b");
    realize();
    listen(attachment);

    click(w, 8, 10);
    type("c");
    settle();
    EXPECT_STREQ(attachment.currentValue(), "b");
    key(XK_Return);
    settle();
    EXPECT_STREQ(attachment.previousValue(), "b");
    EXPECT_EQ(std::string(attachment.currentValue()).size(), 2u);
    EXPECT_EQ(heard, (std::vector<int>{LM_valueChanged, LM_activate}));

    attachment.toggleDisplay();
    EXPECT_EQ(valueOf(w), "b");
    heard.clear();
    key(XK_Return);
    settle();
    EXPECT_EQ(heard, (std::vector<int>{LM_valueChanged, LM_activate}));
    EXPECT_TRUE(attachment.isShowingCurrent());

    const std::string warning = stderrOf([&] { LmModifiedAttachment::activate_stub(board, &attachment, nullptr); });
    EXPECT_EQ(warning, "LmModifiedAttachment: activate unexpected\n"
                       "                      use LM_activate instead of XmNactivateCallback\n");
}

TEST_F(LmModifiedOnScreen, LabelsAndGadgetsHaveValuesOtherWidgetsEndTheProgram)
{
    Widget label = XtVaCreateManagedWidget("label", xmLabelWidgetClass, board, XmNx, 20, XmNy, 60, nullptr);
    Widget gadget = XtVaCreateManagedWidget("gadget", xmPushButtonGadgetClass, board, XmNx, 20, XmNy, 100, nullptr);
    setResource("*quiet.displayModified: FALSE");
    Widget quiet = field("quiet", 140, xmTextWidgetClass);
    realize();
    LmModifiedAttachment onLabel(True, True, True), onGadget(True, True, True), onQuiet(True, True, True);
    onLabel.attach(label);
    EXPECT_EQ(textOf(label), "");   // nothing is known yet, and an empty label is a label
    onLabel.fixPreviousValue(text("two\nlines"), True);
    onLabel.show();
    onLabel.setValue("other");
    onLabel.updateDisplay();
    EXPECT_EQ(textOf(label), "other");
    onLabel.toggleDisplay();
    EXPECT_EQ(lm::CString(onLabel.getWidgetValue(label)).get(), std::string("two\nlines"));
    settle();
    EXPECT_TRUE(isViewable(onLabel.indicator()));

    onGadget.attach(gadget);
    onGadget.fixPreviousValue(text("Old"), True);
    onGadget.show();
    onGadget.setValue("New");
    XtVaSetValues(gadget, XmNy, 120, nullptr);
    onGadget.adjustGeometry();
    EXPECT_EQ(onGadget.indicator()->core.y, 120 + gadget->core.border_width + 2);   // a gadget's highlight thickness is 2
    settle();
    EXPECT_TRUE(isViewable(onGadget.indicator()));

    onQuiet.attach(quiet);
    onQuiet.show();
    onQuiet.setValue("a");
    onQuiet.setValue("b");
    EXPECT_TRUE(onQuiet.isModified());
    EXPECT_EQ(onQuiet.indicator(), nullptr);

    Widget bar = XtVaCreateManagedWidget("bar", xmScrollBarWidgetClass, board, nullptr);
    LmModifiedAttachment wrong(True, True, True);
    EXPECT_EXIT(wrong.setWidgetValue(bar, text("x")), testing::ExitedWithCode(1), "Unknown attached widget type!");
    EXPECT_EXIT(wrong.getWidgetValue(bar), testing::ExitedWithCode(1), "LmModifiedAttachment: Unknown widget type!");
}

TEST_F(LmModifiedOnScreen, EveryOrderOfEndsLeavesNothingBehind)
{
    Widget first = field("first", 20), second = field("second", 60);
    realize();
    auto attachment = std::make_unique<LmModifiedAttachment>(True, True, True);
    attachment->attach(first);
    attachment->attach(second);
    attachment->show();
    attachment->fixPreviousValue(text("old"), True);
    XmTextFieldSetString(first, text("stranger"));   // no longer ours
    XtVaSetValues(first, XmNwidth, 90, nullptr);
    EXPECT_STREQ(attachment->currentValue(), "old");
    EXPECT_EQ(XtHasCallbacks(first, XmNvalueChangedCallback), XtCallbackHasNone);
    XmTextFieldSetString(second, text("new"));
    settle();
    ASSERT_TRUE(isViewable(attachment->indicator()));

    attachment.reset();
    EXPECT_EQ(childNamed(board, "modifiedArea"), nullptr);
    XmTextFieldSetString(second, text("newer"));
    settle();

    auto* suicidal = new LmModifiedAttachment(True, True, True);
    suicidal->attach(second);
    suicidal->fixPreviousValue(text("old"), True);
    suicidal->show();
    suicidal->setValue("new");
    suicidal->addCallback(
        LmModifiedAttachment::modifiedCallback, [](LmCallbackObject* me, void*, void*) { delete me; }, nullptr);
    settle();
    click(suicidal->indicator(), 5, 5);   // shows the old value, which tells of it
    settle();
    EXPECT_EQ(valueOf(second), "old");
    EXPECT_EQ(childNamed(board, "modifiedArea"), nullptr);

    LmModifiedAttachment left(True, True, True);
    left.attach(second);
    left.show();
    XtDestroyWidget(second);
    EXPECT_EQ(left.widget(), nullptr);
    left.setValue("a");
    left.setValue("b");
    left.show();
    left.attach(first);
    left.show();
    XtDestroyWidget(board);
    settle();
    EXPECT_EQ(left.indicator(), nullptr);
    left.attach(nullptr);
}
