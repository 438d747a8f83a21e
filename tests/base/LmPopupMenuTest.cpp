#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuAction.h"
#include "LmMenuConfirmFirstAction.h"
#include "LmMenuToggle.h"
#include "LmOptionMenu.h"
#include "LmPopupMenu.h"
#include "LmQuestionDialog.h"
#include "LmSubMenu.h"

#include <Xm/DrawingA.h>
#include <Xm/RowColumn.h>

#include <chrono>

using namespace lmtest;

namespace {

std::vector<std::string> ran;

void note(Widget w, XtPointer, XtPointer) { ran.emplace_back(XtName(w)); }

// clang-format off
LmMenuDesc deeper[] = {
    {MENU_ACTION, "Dark", note},
    {MENU_END}};
LmMenuDesc colours[] = {
    {MENU_ACTION, "Red", note},
    {MENU_ACTION, "Green", note},
    {MENU_ACTION, "Blue", note},
    {MENU_SUBMENU, "More", nullptr, deeper},
    {MENU_CONFIRM_FIRST_ACTION, "Erase", note},
    {MENU_END}};
// clang-format on

struct MenuOnScreen : OnScreen {
    MenuOnScreen() { XtSetMultiClickTime(app().display(), 0); }   // Motif takes fast drags for clicks
    struct Column : LmComponent {
        explicit Column(Widget parent)
        {
            _w = XtVaCreateWidget("column", xmRowColumnWidgetClass, parent, nullptr);
            installDestroyHandler();
        }
    };
    Widget area(const char* name)
    {
        return XtVaCreateManagedWidget(name, xmDrawingAreaWidgetClass, column.baseWidget(), XmNwidth, 200, XmNheight, 90,
                                       XmNresizePolicy, XmRESIZE_NONE, nullptr);
    }
    Column column{shell()};
};

/// Motif takes button events of the same millisecond for one.
void nextMillisecond()
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(2);
    settleUntil([=] { return std::chrono::steady_clock::now() > end; });
}

Widget widgetOf(LmMenuItem* item) { return item->LmComponent::baseWidget(); }

}   // namespace

TEST_F(MenuOnScreen, AnOptionMenuShowsWhatWasChosen)
{
    LmOptionMenu menu("colour", colours, nullptr);
    EXPECT_EQ(menu.getIndex(), 0);
    EXPECT_EQ(menu.getItem(), menu[0]);
    menu.set(99);
    menu.set("Blue");
    EXPECT_EQ(menu.getIndex(), 2);
    menu.setLabel("Colour");
    menu.build(column.baseWidget());
    show(column);
    EXPECT_EQ(menu.getIndex(), 2);
    EXPECT_EQ(textOf(XmOptionButtonGadget(menu.baseWidget())), "Blue");
    EXPECT_EQ(textOf(XmOptionLabelGadget(menu.baseWidget())), "Colour");

    const auto choose = [&](int index) {
        press(XmOptionButtonGadget(menu.baseWidget()), 5, 5);
        EXPECT_TRUE(isViewable(menu.menuParent()));
        pointAt(widgetOf(menu[index]), 5, 5);
        release();
    };
    choose(0);
    EXPECT_EQ(ran, std::vector<std::string>{"Red"});
    EXPECT_EQ(menu.getItem(), menu[0]);
    settleUntil([&] { return menu.findNamedItem("Dark", false, true)->baseWidget() != nullptr; });
    menu.set("Dark");
    EXPECT_STREQ(menu.getItem()->name(), "Dark");
    EXPECT_EQ(menu.getIndex(), 0);
    menu.forceWidth(222);
    Dimension width = 0;
    XtVaGetValues(widgetOf(menu[1]), XmNwidth, &width, nullptr);
    EXPECT_EQ(width, 222);

    menu.set(1);
    delete menu[1];   // the chosen one
    settle();
    choose(1);
    EXPECT_STREQ(menu.getItem()->name(), "Blue");

    LmOptionMenu stale(colours, nullptr);
    stale.set(0);
    delete stale[0];
    stale.build(column.baseWidget());
    EXPECT_STREQ(stale.getItem()->name(), "Green");
}

TEST_F(MenuOnScreen, APopupMenuFollowsButtonThreeOverWhatItIsAttachedTo)
{
    Widget first = area("first"), second = area("second");
    LmPopupMenu menu(first, colours, nullptr);
    menu.attach(second);
    menu.attach(second);
    show(column);
    for (const std::vector<KeySym>& locks : {std::vector<KeySym>{}, {XK_Num_Lock}, {XK_Caps_Lock}}) {
        for (KeySym lock : locks)
            key(lock);
        for (Widget over : {first, second}) {
            click(over, 10, 10, 1);
            EXPECT_FALSE(menu.isPoppedUp());
            nextMillisecond();
            press(over, 10, 10, 3);
            EXPECT_TRUE(menu.isPoppedUp());
            Widget blue = widgetOf(menu[2]);
            pointAt(blue, 5, 5);
            release(3);
            EXPECT_FALSE(menu.isPoppedUp());
            EXPECT_EQ(ran, std::vector<std::string>{"Blue"}) << locks.size();
            ran.clear();
        }
        for (KeySym lock : locks)
            key(lock);
    }
    menu.detach(second);
    click(second, 10, 10, 3);
    EXPECT_FALSE(menu.isPoppedUp());

    menu.attach(second);
    XtDestroyWidget(first);   // and the popup with it
    click(second, 10, 10, 3);
    EXPECT_FALSE(menu.isPoppedUp());
    menu.attach(second);
    {
        LmPopupMenu posted(second, "posted", colours, nullptr);
        menu.detach(second);
        press(second, 10, 10, 3);
        EXPECT_TRUE(posted.isPoppedUp());
    }
    release(3);
    menu.attach(second);
    press(second, 10, 10, 3);
    EXPECT_TRUE(menu.isPoppedUp());   // no grab is left
    release(3);
    key(XK_Escape);
}

TEST_F(MenuOnScreen, AConfirmFirstActionAsksAndOutlivesNothing)
{
    setResource("*Erase.noUndoQuestion: Really?");
    auto* menu = new LmPopupMenu(area("area"), colours, nullptr);
    show(column);
    struct Answer {   // given as soon as the question is there
        LmPopupMenu* menu;
        enum { Ok, Cancel, Delete } what;
        std::string asked;
        static void give(LmCallbackObject*, void* self, void* dialog)
        {
            static_cast<Answer*>(self)->dialog = static_cast<Widget>(dialog);
            XtAppAddTimeOut(app().appContext(), 0, later, self);
        }
        static void later(XtPointer self, XtIntervalId*)
        {
            auto* answer = static_cast<Answer*>(self);
            if (!isViewable(answer->dialog)) {
                XtAppAddTimeOut(app().appContext(), 5, later, self);
                return;
            }
            answer->asked = textOf(answer->dialog, "messageString");
            if (answer->what == Delete)
                delete answer->menu->findNamedItem("Erase", false, true);
            click(XtNameToWidget(answer->dialog, answer->what == Cancel ? "Cancel" : "OK"));
            XClearArea(app().display(), XtWindow(answer->parent), 0, 0, 0, 0, True);   // an event: the dialog's loop looks
            XFlush(app().display());
        }
        Widget parent;
        Widget dialog = nullptr;
    };
    Answer answer{menu, Answer::Cancel, "", column.baseWidget()};
    getTheQuestionDialog()->addCallback(LmDialogManager::prepostCallback, Answer::give, &answer);
    const auto choose = [&](auto what) {
        ran.clear();
        answer.what = what;
        XtCallCallbacks(widgetOf((*menu)[4]), XmNactivateCallback, nullptr);
        return ran;
    };
    EXPECT_EQ(choose(Answer::Cancel), std::vector<std::string>());
    EXPECT_EQ(answer.asked, "Really?");
    EXPECT_EQ(choose(Answer::Ok), std::vector<std::string>{"Erase"});
    EXPECT_EQ(choose(Answer::Delete), std::vector<std::string>());
    delete menu;
}
