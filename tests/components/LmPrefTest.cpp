#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

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
    Window1() : LmSimpleWindow("window") { show(); }
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

void write(LmPrefText& text, const char* value) { XmTextFieldSetString(text.baseWidget(), const_cast<char*>(value)); }

/// Where a gadget or widget is in its shell.
struct Box {
    explicit Box(Widget w)
    {
        XtVaGetValues(w, XmNwidth, &width, XmNheight, &height, nullptr);
        for (Position x = 0, y = 0; w && !XtIsShell(w); w = XtParent(w), left += x, top += y)
            XtVaGetValues(w, XmNx, &x, XmNy, &y, nullptr);
    }
    Dimension width = 0, height = 0;
    int left = 0, top = 0;
};

}   // namespace

TEST_F(PrefOnScreen, ATextIsCommittedAndRevertedExactly)
{
    LmPrefText text("font", 20);
    text.setValue("before");
    build(text);
    click(text.baseWidget());
    type(" typed");
    EXPECT_TRUE(text.changed());
    text.revertValue();
    EXPECT_EQ(valueOf(text), "before");
    destroyShell();
    EXPECT_EQ(text.labelWidget(), nullptr);
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
    click(option.baseWidget());   // posts the pane; the keyboard chooses the entry above
    key(XK_Up);
    key(XK_Return);
    EXPECT_TRUE(option.changed());
    EXPECT_EQ(shown(), "Tiny");

    option.setSize(5);
    option.setValue(4);
    EXPECT_EQ(shown(), "fontBaseButton4");
    option.setSize(2);
    EXPECT_EQ(option.getValue(), 0);   // the chosen one is gone: the first is shown
}

TEST_F(PrefOnScreen, TogglesStandInTheLabelColumnAmongOthers)
{
    LmPrefToggle alone("alone", false), mixed("mixed", false), forced("forced", true);
    LmPrefText text("text", 5);
    LmPrefGroup toggles("toggles", true, true), others("others", false, true), sheet("sheet", false, true);
    toggles.addItem(&alone);
    others.addItem(&mixed);
    others.addItem(&text);
    for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&toggles, &others, &forced})
        sheet.addItem(item);
    build(sheet);
    EXPECT_EQ(textOf(alone.baseWidget()) + textOf(mixed.baseWidget()), "aloneBase");
    EXPECT_TRUE(!alone.labelWidget() && mixed.labelWidget() && forced.labelWidget());

    XmToggleButtonGadgetSetState(alone.baseWidget(), True, False);
    EXPECT_TRUE(sheet.changed());
    sheet.updateValue();
    EXPECT_TRUE(alone.getValue() && !sheet.changed());
    sheet.setActivated(false);
    EXPECT_FALSE(XtIsSensitive(alone.baseWidget()));
}

TEST_F(PrefOnScreen, LabelsStandLevelWithTheirWidgetsAndEndAtOneColumn)
{
    for (const char* font : {"fixed", "10x20"}) {
        setResource(std::string("*sheet*fontList: ") + font);
        LmPrefText shortOne("a", 10), longOne("aMuchLongerName", 10);
        LmPrefOption tall("tall", 2);
        LmPrefGroup sheet("sheet", false, false);
        for (LmPrefItem* item : std::initializer_list<LmPrefItem*>{&shortOne, &longOne, &tall})
            sheet.addItem(item);
        build(sheet);
        for (int i = 0; i < sheet.size(); ++i) {
            const Box label(sheet.item(i)->labelWidget()), base(sheet.item(i)->baseWidget()), first(shortOne.labelWidget());
            EXPECT_NEAR(label.top + label.height / 2, base.top + base.height / 2, 2) << font << " " << i;
            EXPECT_NEAR(label.left + label.width, first.left + first.width, 1) << font << " " << i;
        }
        destroyShell();
    }
}

TEST_F(PrefOnScreen, OkAppliesAndAnnouncesTwiceCancelDiscardsAndFieldsWiden)
{
    LmPrefText text("text", 10), second("second", 10);
    LmPrefGroup sheet("sheet", false, false);
    sheet.addItem(&text);
    sheet.addItem(&second);
    LmPrefDialog dialog("prefs", &sheet);
    Heard heard(dialog, LmPrefDialog::prefCallback);
    Widget first = dialog.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, new Window1);
    write(text, "new");
    XtCallCallbacks(first, XmNokCallback, nullptr);
    EXPECT_FALSE(XtIsManaged(first));

    EXPECT_EQ(dialog.post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, new Window1), first);
    write(text, "discarded");
    XtCallCallbacks(first, XmNcancelCallback, nullptr);
    EXPECT_EQ(valueOf(text), "new");
    dialog.post(nullptr);
    click(childNamed(first, "Apply"));
    EXPECT_EQ(heard.values, (std::vector{2, 1, 0, 2}));
    const int field = Box(text.baseWidget()).width, label = Box(text.labelWidget()).width;
    XtVaSetValues(XtParent(first), XmNwidth, Box(first).width + 200, nullptr);
    settle();
    EXPECT_EQ(Box(text.baseWidget()).width, field + 200) << "the field takes what the dialog gains";
    EXPECT_EQ(Box(text.labelWidget()).width, label);
}

TEST_F(PrefOnScreen, AnApplyCallbackMayDeleteTheDialog)
{
    new Window1;
    LmPrefText text("text", 10);
    auto dialog = std::make_unique<LmPrefDialog>("prefs", &text);
    const auto deleteIt = [](LmCallbackObject*, void* owner, void*) { static_cast<decltype(dialog)*>(owner)->reset(); };
    dialog->addCallback(LmPrefDialog::prefCallback, deleteIt, &dialog);
    click(childNamed(dialog->post(nullptr), "Apply"));
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(text.baseWidget(), nullptr);
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
    const std::unique_ptr<LmPrefGroup> sheet(static_cast<LmPrefGroup*>(item));
    sheet->addItem(new LmPrefEmpty);
    sheet->addItem(new LmPrefLabel("text"));
    delete sheet->item(2);
    EXPECT_EQ(sheet->size(), 3);
    build(*sheet);
    write(*innermost, "deep");
    sheet->updateValue();
    EXPECT_EQ(valueOf(*innermost), "deep");
    sheet->deleteChildren();
}

TEST_F(PrefOnScreen, ARadioBoxHoldsOneToggle)
{
    LmPrefToggle left("left", false), right("right", false);
    LmPrefRadio radio("side", true, false);
    radio.addItem(&left);
    radio.addItem(&right);
    left.setValue(true);
    build(radio);
    click(right.baseWidget());
    EXPECT_TRUE(radio.changed());
    radio.updateValue();
    EXPECT_TRUE(right.getValue() && !left.getValue());
}

TEST(PrefInUtf8, TextsComeBackWhole)
{
    EXPECT_EQ(exitStatusOf([] {
                  setenv("LC_ALL", "C.UTF-8", 1);
                  LmApp application("Prog", nullptr, nullptr, nullptr, 0);
                  auto* window = new Window1;
                  window->show();
                  LmPrefText text("text", 10);
                  text.build(window->mainWindowWidget());
                  text.setValue("Grüße, Привет");
                  EXPECT_FALSE(text.changed());
                  XmTextFieldInsert(text.baseWidget(), 5, const_cast<char*>(" 你"));
                  EXPECT_EQ(valueOf(text), "Grüße 你, Привет");
              }),
              0);
}
