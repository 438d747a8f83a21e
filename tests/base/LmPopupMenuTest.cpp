#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuConfirmFirstAction.h"
#include "LmOptionMenu.h"
#include "LmPopupMenu.h"
#include "LmQuestionDialog.h"

#include <Xm/DrawingA.h>
#include <Xm/RowColumn.h>

#include <chrono>

using namespace lmtest;

namespace {

std::vector<std::string> ran;

using Names = std::vector<std::string>;
/// What ran since the last call.
Names heard() { return std::exchange(ran, {}); }
void note(Widget w, XtPointer, XtPointer) { ran.emplace_back(XtName(w)); }

LmMenuDesc colours[] = {{MENU_ACTION, "Red", note},
                        {MENU_ACTION, "Green", note},
                        {MENU_ACTION, "Blue", note},
                        {MENU_CONFIRM_FIRST_ACTION, "Erase", note},
                        {MENU_END}};

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
    menu.set(99);
    menu.set("Blue");
    menu.build(column.baseWidget());
    show(column);
    EXPECT_EQ(menu.getIndex(), 2);
    EXPECT_EQ(textOf(XmOptionButtonGadget(menu.baseWidget())), "Blue");
    const auto choose = [&](int index) {
        press(XmOptionButtonGadget(menu.baseWidget()), 5, 5);
        pointAt(widgetOf(menu[index]), 5, 5);
        release();
    };
    choose(0);
    EXPECT_EQ(heard(), Names{"Red"});
    EXPECT_EQ(menu.getItem(), menu[0]);
    menu.set(1);
    delete menu[1];   // the chosen one
    settle();
    choose(1);
    EXPECT_STREQ(menu.getItem()->name(), "Blue");
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
            nextMillisecond();
            press(over, 10, 10, 3);
            pointAt(widgetOf(menu[2]), 5, 5);
            release(3);
            EXPECT_EQ(heard(), Names{"Blue"}) << locks.size();
        }
        for (KeySym lock : locks)
            key(lock);
    }
    menu.detach(second);
    click(second, 10, 10, 3);
    EXPECT_FALSE(menu.isPoppedUp());
    XtDestroyWidget(first);   // and the popup with it
    {
        LmPopupMenu posted(second, "posted", colours, nullptr);
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
    LmPopupMenu menu(area("area"), colours, nullptr);
    show(column);
    static std::function<bool()> answer;   // given as soon as the question is drawn: true once it was
    const XtWorkProc whenWaiting = [](XtPointer) -> Boolean { return app().busyCount() == 0 && answer(); };
    const auto choose = [&](const char* button, bool deletes = false) {
        answer = [=, &menu] {
            if (deletes)
                delete menu.findNamedItem("Erase", false, true);
            click(XtNameToWidget(getTheQuestionDialog()->lastPosted(), button));
            return true;
        };
        XtAppAddWorkProc(app().appContext(), whenWaiting, nullptr);
        XtCallCallbacks(widgetOf(menu[3]), XmNactivateCallback, nullptr);
        return heard();
    };
    EXPECT_EQ(choose("Cancel"), Names());
    EXPECT_EQ(choose("OK"), Names{"Erase"});
    EXPECT_EQ(choose("OK", true), Names());
}
