#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmPrefCustom.h"
#include "LmPrefDialog.h"
#include "LmPrefEmpty.h"
#include "LmPrefGroup.h"
#include "LmPrefLabel.h"
#include "LmPrefList.h"
#include "LmPrefOption.h"
#include "LmPrefRadio.h"
#include "LmPrefSeparator.h"
#include "LmPrefText.h"
#include "LmPrefToggle.h"
#include "support/handles.h"

#include <Xm/DrawingA.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/ToggleBG.h>

#include <memory>

using namespace lmtest;

namespace {

struct Window1 : LmSimpleWindow {
    Window1() : LmSimpleWindow("window") {}
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmDrawingAreaWidgetClass, parent, XmNwidth, 400, XmNheight, 300, nullptr);
    }
};

/// A sheet in a column on the screen.
struct PrefOnScreen : OnScreen {
    void build(LmPrefItem& item)
    {
        Widget column = XtVaCreateManagedWidget("column", xmRowColumnWidgetClass, shell(), nullptr);
        item.build(column);
        show(item);
    }
};

std::string valueOf(LmPrefText& text) { return lm::CString(text.getValue()).get(); }

/// Where a gadget or widget is in its shell.
struct Box {
    int left, top, right, bottom;
};
Box boxOf(Widget w)
{
    Dimension width = 0, height = 0;
    XtVaGetValues(w, XmNwidth, &width, XmNheight, &height, nullptr);
    Box box = {0, 0, width, height};
    for (; w && !XtIsShell(w); w = XtParent(w)) {
        Position x = 0, y = 0;
        XtVaGetValues(w, XmNx, &x, XmNy, &y, nullptr);
        box = {box.left + x, box.top + y, box.right + x, box.bottom + y};
    }
    return box;
}

int middleOf(Widget w) { return (boxOf(w).top + boxOf(w).bottom) / 2; }

/// The lowest row and the rightmost column of the widget's ink, in its shell: where its text stands.
struct Ink {
    int right = -1, base = -1;
};
Ink inkOf(Widget w)
{
    const Box box = boxOf(w);
    Widget shell = w;
    while (!XtIsShell(shell))
        shell = XtParent(shell);
    const unsigned long ground = pixelAt(shell, box.left + 1, box.top + 1);
    Ink ink;
    for (int y = box.top + 1; y < box.bottom - 1; ++y)
        for (int x = box.left + 1; x < box.right - 1; ++x)
            if (pixelAt(shell, x, y) != ground)
                ink = {std::max(ink.right, x), y};
    return ink;
}

}   // namespace

TEST_F(PrefOnScreen, ATextIsCommittedAndRevertedExactly)
{
    LmPrefText text("font", 20);
    text.setValue("before");
    EXPECT_FALSE(text.changed());
    build(text);
    EXPECT_STREQ(XtName(text.labelWidget()), "fontLabel");
    click(text.baseWidget());
    type(" typed");
    EXPECT_TRUE(text.changed());
    text.revertValue();
    EXPECT_FALSE(text.changed());
    XmTextFieldSetString(text.baseWidget(), const_cast<char*>("after"));
    EXPECT_EQ(valueOf(text), "after");
    EXPECT_FALSE(text.changed());
    destroyShell();
    EXPECT_EQ(text.labelWidget(), nullptr);
    text.setValue("without a widget");
    EXPECT_EQ(valueOf(text), "without a widget");
    EXPECT_FALSE(text.changed());
}

TEST_F(PrefOnScreen, AnOptionFollowsItsEntries)
{
    setResource("*small: Tiny");
    LmPrefOption option("font", 3);
    option.setLabel(0, "small");
    option.setValue(1);
    build(option);
    const auto shown = [&] { return textOf(XmOptionButtonGadget(option.baseWidget())); };
    EXPECT_EQ(shown(), "fontBaseButton1");
    option.setLabel(1, "Middle");
    EXPECT_EQ(shown(), "Middle");
    EXPECT_STREQ(option.getLabel(2), "fontBaseButton2");
    EXPECT_EQ(option.getLabel(3), nullptr);

    click(option.baseWidget());   // posts the pane; the keyboard chooses the entry above
    key(XK_Up);
    key(XK_Return);
    EXPECT_TRUE(option.changed());
    EXPECT_EQ(option.getValue(), 0);
    EXPECT_EQ(shown(), "Tiny");

    option.setSize(5);
    option.setValue(4);
    EXPECT_EQ(shown(), "fontBaseButton4");
    option.setSize(2);
    EXPECT_EQ(option.getValue(), 0);   // the chosen one is gone: the first is shown
    option.setSize(3);
    option.setValue(2);
    EXPECT_EQ(shown(), "fontBaseButton2");
}

TEST_F(PrefOnScreen, TogglesStandInTheLabelColumnAmongOthers)
{
    LmPrefToggle alone("alone", false), same("same", false), mixed("mixed", false), forced("forced", true);
    LmPrefText text("text", 5);
    LmPrefGroup toggles("toggles", true, true), others("others", false, true), sheet("sheet", false, true);
    toggles.addItem(&alone);
    toggles.addItem(&same);
    others.addItem(&mixed);
    others.addItem(&text);
    sheet.addItem(&toggles);
    sheet.addItem(&others);
    sheet.addItem(&forced);
    build(sheet);
    EXPECT_EQ(alone.labelWidget(), nullptr);
    EXPECT_EQ(textOf(alone.baseWidget()), "aloneBase");
    EXPECT_STREQ(XtName(XtParent(alone.baseWidget())), "container");
    ASSERT_NE(mixed.labelWidget(), nullptr);
    EXPECT_EQ(textOf(mixed.baseWidget()), "");
    EXPECT_NE(forced.labelWidget(), nullptr);

    EXPECT_FALSE(sheet.changed());
    XmToggleButtonGadgetSetState(same.baseWidget(), True, False);
    EXPECT_TRUE(sheet.changed());
    sheet.updateValue();
    EXPECT_TRUE(same.getValue());
    EXPECT_FALSE(sheet.changed());

    sheet.setActivated(false);
    EXPECT_FALSE(XtIsSensitive(same.baseWidget()));
    LmPrefText late("late", 5);
    others.addItem(&late);
    LmPrefGroup empty("empty", false, false);
    EXPECT_FALSE(empty.changed());
    EXPECT_EQ(empty.baseHeight(), 0);
}

TEST_F(PrefOnScreen, LabelsStandLevelWithTheirWidgetsAndRightAligned)
{
    for (const char* font : {"fixed", "10x20"}) {
        setResource(std::string("*sheet*fontList: ") + font);
        LmPrefText shortOne("a", 10), longOne("aMuchLongerName", 10), third("third", 10);
        LmPrefOption tall("tall", 2);
        LmPrefGroup sheet("sheet", false, false);
        for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&shortOne, &longOne, &third, &tall})
            sheet.addItem(item);
        build(sheet);
        settle();
        std::vector<int> rights;
        for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&shortOne, &longOne, &third, &tall}) {
            EXPECT_NEAR(middleOf(item->labelWidget()), middleOf(item->baseWidget()), 2) << font << " " << item->name();
            rights.push_back(inkOf(item->labelWidget()).right);
        }
        for (const int right : rights)
            EXPECT_NEAR(right, rights.front(), 1) << font;
        destroyShell();
    }
}

TEST_F(PrefOnScreen, OkAppliesAndAnnouncesTwiceAndCancelDiscards)
{
    auto* window = new Window1;
    auto* other = new Window1;
    window->show();
    other->show();
    settle();
    LmPrefText text("text", 10);
    LmPrefDialog dialog("prefs", &text);
    Heard heard(dialog, LmPrefDialog::prefCallback);
    Widget first = dialog.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, window);
    XmTextFieldSetString(text.baseWidget(), const_cast<char*>("new"));
    XtCallCallbacks(first, XmNokCallback, nullptr);
    EXPECT_EQ(heard.values, (std::vector{2, 1}));
    EXPECT_FALSE(XtIsManaged(first));
    EXPECT_EQ(dialog.action(), LmDialogManager::REASON_OK);

    EXPECT_EQ(dialog.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, other), first);
    XmTextFieldSetString(text.baseWidget(), const_cast<char*>("discarded"));
    XtCallCallbacks(first, XmNcancelCallback, nullptr);
    EXPECT_EQ(heard.values, (std::vector{2, 1, 0}));
    EXPECT_EQ(valueOf(text), "new");

    dialog.post(nullptr);
    click(childNamed(first, "Apply"));
    EXPECT_EQ(heard.values, (std::vector{2, 1, 0, 2}));
    EXPECT_TRUE(XtIsManaged(first));
    dialog.unpost();
}

TEST_F(PrefOnScreen, AnApplyCallbackMayDeleteTheDialog)
{
    (new Window1)->show();
    LmPrefText text("text", 10);
    auto dialog = std::make_unique<LmPrefDialog>("prefs", &text);
    struct Killer : LmCallbackObject {
        std::unique_ptr<LmPrefDialog>* victim = nullptr;
        void applied(LmCallbackObject*, void*, void*) { victim->reset(); }
    } killer;
    killer.victim = &dialog;
    dialog->addCallback(LmPrefDialog::prefCallback, &killer, &Killer::applied, nullptr);
    Widget widget = dialog->post(nullptr);
    click(childNamed(widget, "Apply"));
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(text.baseWidget(), nullptr);

    LmPrefDialog empty("empty", nullptr);
    widget = empty.post(nullptr);
    XtCallCallbacks(widget, XmNokCallback, nullptr);
    EXPECT_FALSE(XtIsManaged(widget));
}

TEST_F(PrefOnScreen, AWiderDialogWidensTheFieldsAndNotTheLabels)
{
    (new Window1)->show();
    LmPrefText text("text", 10), second("second", 10);
    LmPrefGroup sheet("sheet", false, false);
    sheet.addItem(&text);
    sheet.addItem(&second);
    LmPrefDialog dialog("prefs", &sheet);
    Widget widget = dialog.post(nullptr);
    settle();
    const auto widthOf = [](Widget w) { return boxOf(w).right - boxOf(w).left; };
    const int field = widthOf(text.baseWidget()), label = widthOf(text.labelWidget());
    XtVaSetValues(XtParent(widget), XmNwidth, widthOf(widget) + 200, nullptr);
    settle();
    EXPECT_EQ(widthOf(text.baseWidget()), field + 200);
    EXPECT_EQ(widthOf(text.labelWidget()), label);
    dialog.unpost();
}

TEST_F(PrefOnScreen, GroupsNestFiftyDeepAndLoseDeletedItems)
{
    auto* innermost = new LmPrefText("innermost", 5);
    LmPrefItem* item = innermost;
    for (int depth = 0; depth < 50; ++depth) {
        auto* group = depth % 2 ? new LmPrefGroup("group", depth % 4 == 1, true) : new LmPrefList("list");
        group->addItem(item);
        group->addItem(new LmPrefSeparator("line"));
        item = group;
    }
    auto* sheet = static_cast<LmPrefGroup*>(item);
    sheet->addItem(new LmPrefEmpty);
    sheet->addItem(new LmPrefLabel("text"));
    delete sheet->item(2);
    EXPECT_EQ(sheet->size(), 3);
    build(*sheet);
    XmTextFieldSetString(innermost->baseWidget(), const_cast<char*>("deep"));
    EXPECT_TRUE(sheet->changed());
    sheet->updateValue();
    EXPECT_EQ(valueOf(*innermost), "deep");
    sheet->deleteChildren();
    EXPECT_EQ(sheet->size(), 0);
    delete sheet;
}

TEST_F(PrefOnScreen, ARadioBoxHoldsOneToggle)
{
    LmPrefToggle left("left", false), right("right", false);
    LmPrefRadio radio("side", true, false);
    LmPrefCustom custom("custom");
    radio.addItem(&left);
    radio.addItem(&right);
    left.setValue(true);
    build(radio);
    click(right.baseWidget());
    EXPECT_TRUE(radio.changed());
    radio.updateValue();
    EXPECT_FALSE(left.getValue());
    EXPECT_TRUE(right.getValue());
    EXPECT_TRUE(custom.changed());
}
