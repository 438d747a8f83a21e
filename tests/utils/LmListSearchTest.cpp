#include "tests/support/Bells.h"

#include "LmListSearch.h"
#include "support/handles.h"
#include "support/resources.h"
#include "support/xt.h"

#include <Xm/List.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>

#include <functional>
#include <memory>

using namespace lmtest;

namespace {

/// A text above a list of six visible items.
struct Searched : LmComponent {
    explicit Searched(Widget parent)
    {
        _w = XtVaCreateWidget("column", xmRowColumnWidgetClass, parent, nullptr);
        installDestroyHandler();
        text = XtVaCreateManagedWidget("text", xmTextFieldWidgetClass, _w, nullptr);
        list = XmCreateScrolledList(_w, lm::xtText("list"), nullptr, 0);
        XtVaSetValues(list, XmNvisibleItemCount, 6, XmNselectionPolicy, XmBROWSE_SELECT, nullptr);
        XtManageChild(list);
        search = std::make_unique<LmListSearch>(list, text, False);
        lm::on<&Searched::choose>(list, XmNbrowseSelectionCallback, this);
    }
    void fill(std::initializer_list<const char*> items)
    {
        for (const char* item : items)
            XmListAddItemUnselected(list, lm::XmText(XmStringCreateLocalized(lm::xtText(item))).get(), 0);
    }
    void choose(XmListCallbackStruct*)
    {
        const auto action = onChoice;   // a copy: it may be replaced while it runs
        action();
    }
    void setText(const char* value) { XmTextFieldSetString(text, lm::xtText(value)); }
    /// "<selected positions> from <topmost position>"
    std::string picture() const
    {
        int top = 0, count = 0;
        XtVaGetValues(list, XmNtopItemPosition, &top, XmNitemCount, &count, nullptr);
        std::string shown;
        for (int i = 1; i <= count; ++i)
            shown += XmListPosSelected(list, i) ? std::to_string(i) + " " : "";
        return shown + "from " + std::to_string(top);
    }
    Widget text, list;
    std::unique_ptr<LmListSearch> search;
    std::function<void()> onChoice = [] {};
};

struct ListSearchOnScreen : OnScreen {
    ListSearchOnScreen()
    {
        pair.fill({"Zero", "Abbey", "Cabin", "four", "five", "six", "seven", "eight", "Abc", "ten", "eleven", "xABC"});
        show(pair);
        click(pair.text);
    }
    Searched pair{shell()};
    Bells bells;
};

}   // namespace

TEST_F(ListSearchOnScreen, FollowsWhatIsTyped)
{
    type("ab");
    EXPECT_EQ(pair.picture(), "2 from 1") << "visible already";
    type("c");
    EXPECT_EQ(pair.picture(), "9 from 6") << "in the middle";
    type("\n");
    EXPECT_EQ(pair.picture(), "12 from 9");
    type("\n");
    EXPECT_EQ(pair.picture(), "from 9");
    EXPECT_EQ(bells.rung(), 1);
    type("\n");
    EXPECT_EQ(pair.picture(), "9 from 9") << "from the first item again";

    key(XK_BackSpace);
    EXPECT_EQ(pair.picture(), "2 from 1");
    type("qq");
    EXPECT_EQ(pair.picture(), "from 1");
    EXPECT_EQ(bells.rung(), 1) << "once, not at each key";
}

TEST_F(ListSearchOnScreen, SurvivesWhatTheSelectionCallbackDoesAndItsWidgets)
{
    pair.onChoice = [this] { XmListDeletePos(pair.list, 1); };   // the match moves up
    type("ab");
    EXPECT_EQ(pair.search->currentPos(), 1);
    pair.onChoice = [this] { XmListDeleteItemsPos(pair.list, 20, 2); };   // the match goes
    type("i");
    EXPECT_EQ(pair.search->currentPos(), 0);

    pair.setText("");
    pair.fill({"", "gamma", "gamble"});
    pair.onChoice = [this] { pair.onChoice = [] {}, pair.setText("gamble"); };   // searches inside the search
    type("g");
    EXPECT_EQ(pair.search->currentPos(), 4);
    pair.onChoice = [this] { pair.search.reset(); };
    pair.setText("gamm");
    EXPECT_EQ(pair.search, nullptr);
    pair.search = std::make_unique<LmListSearch>(pair.list, pair.text, False);
    destroyShell();
    EXPECT_EQ(pair.search->do_search(1, "ab"), 0);
}
