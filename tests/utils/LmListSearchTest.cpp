#include "tests/support/Bells.h"

#include "LmListSearch.h"
#include "support/resources.h"
#include "support/xmtext.h"

#include <Xm/Form.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/TextF.h>

#include <functional>
#include <memory>

using namespace lmtest;

namespace {

/// A text above a list of six visible items.
struct Searched : LmComponent {
    explicit Searched(Widget parent)
    {
        _w = XtVaCreateWidget("form", xmFormWidgetClass, parent, nullptr);
        installDestroyHandler();
        text = XtVaCreateManagedWidget("text", xmTextFieldWidgetClass, _w, XmNtopAttachment, XmATTACH_FORM, nullptr);
        list = XmCreateScrolledList(_w, lm::xtText("list"), nullptr, 0);
        XtVaSetValues(XtParent(list), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, text, nullptr);
        XtVaSetValues(list, XmNvisibleItemCount, 6, XmNselectionPolicy, XmBROWSE_SELECT, nullptr);
        XtManageChild(list);
        search = std::make_unique<LmListSearch>(list, text, False);
    }
    void fill(std::initializer_list<const char*> items)
    {
        for (const char* item : items)
            XmListAddItemUnselected(list, lm::compound(item).get(), 0);
    }
    Widget text, list;
    std::unique_ptr<LmListSearch> search;
};

struct ListSearchOnScreen : OnScreen {
    ListSearchOnScreen()
    {
        pair.fill({"Zero", "Abbey", "Cabin", "four", "five", "six", "seven", "eight", "Abc", "ten", "eleven", "xABC"});
        XtAddCallback(
            pair.list, XmNbrowseSelectionCallback,
            [](Widget, XtPointer self, XtPointer data) {
                auto* test = static_cast<ListSearchOnScreen*>(self);
                test->chosen.push_back(static_cast<XmListCallbackStruct*>(data)->item_position);
                if (test->onChoice)
                    test->onChoice();
            },
            this);
        show(pair);
        click(pair.text);
    }
    int top() const
    {
        int position = 0;
        XtVaGetValues(pair.list, XmNtopItemPosition, &position, nullptr);
        return position;
    }
    int selected() const
    {
        int* positions = nullptr;
        int count = 0;
        if (!XmListGetSelectedPos(pair.list, &positions, &count))
            return 0;
        const int first = *positions;
        XtFree(reinterpret_cast<char*>(positions));
        return first;
    }
    Searched pair{shell()};
    std::vector<int> chosen;
    std::function<void()> onChoice;
    Bells bells;
};

}   // namespace

TEST_F(ListSearchOnScreen, FollowsWhatIsTyped)
{
    type("ab");
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(top(), 1) << "visible already";
    type("c");
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(top(), 6) << "in the middle";
    type("\n");
    EXPECT_EQ(selected(), 12);
    EXPECT_EQ(chosen, (std::vector{2, 9, 12}));
    EXPECT_EQ(bells.rung(), 0);

    type("\n");
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(bells.rung(), 1);
    type("\n");
    EXPECT_EQ(selected(), 9) << "from the first item again";

    key(XK_BackSpace);
    EXPECT_EQ(selected(), 2);
    type("qq");
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(bells.rung(), 1) << "once, not at each key";
    EXPECT_EQ(pair.search->currentPos(), 0);

    XmListSetBottomPos(pair.list, 0);
    XmTextFieldSetString(pair.text, lm::xtText(""));
    EXPECT_EQ(top(), 1);
    EXPECT_EQ(bells.rung(), 0);
}

TEST_F(ListSearchOnScreen, SurvivesWhatTheSelectionCallbackDoes)
{
    onChoice = [this] { XmListDeletePos(pair.list, 1); };   // the match moves up
    type("ab");
    EXPECT_EQ(pair.search->currentPos(), 1);
    onChoice = [this] { XmListDeleteItemsPos(pair.list, 20, 2); };   // the match goes
    type("i");
    EXPECT_EQ(chosen, (std::vector{2, 2}));
    EXPECT_EQ(pair.search->currentPos(), 0);

    XmTextFieldSetString(pair.text, lm::xtText(""));
    pair.fill({"", "gamma", "gamble"});
    onChoice = [this] {   // searches inside the search
        onChoice = nullptr;
        XmTextFieldSetString(pair.text, lm::xtText("gamble"));
    };
    type("g");
    EXPECT_EQ(selected(), pair.search->currentPos());
    EXPECT_EQ(pair.search->currentPos(), 4);

    onChoice = [this] { pair.search.reset(); };
    XmTextFieldSetString(pair.text, lm::xtText("gamm"));
    EXPECT_EQ(pair.search, nullptr);
}

TEST_F(ListSearchOnScreen, WidgetsMayGoFirstAndOtherTextsAreReported)
{
    LmListSearch iconSearch(pair.list, pair.text, True);
    Widget button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, pair.baseWidget(), nullptr);
    LmListSearch wrong(pair.list, button, False);
    takeErrors();   // a button has no list of that name
    const std::string message = stderrOf([button] { XtCallCallbacks(button, XmNactivateCallback, nullptr); });
    EXPECT_EQ(message, "LmListSearch: Unknown text widget type\n");

    destroyShell();
    EXPECT_EQ(iconSearch.do_search(1, "ab"), 0);
    iconSearch.search_change(nullptr, nullptr, nullptr);
}
