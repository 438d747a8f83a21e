#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmOlNode.h"
#include "LmOutline.h"
#include "LmScrolledList.h"
#include "support/xmtext.h"

#include <Xm/List.h>
#include <Xm/ScrollBar.h>

#include <map>
#include <memory>
#include <random>
#include <set>

using namespace lmtest;

namespace {

char* text(const std::string& string) { return const_cast<char*>(string.c_str()); }

/// Keys for the calls that want an array ended by null.
struct Keys : std::vector<char*> {
    explicit Keys(const std::vector<std::string>& keys)
    {
        for (const std::string& key : keys)
            push_back(text(key));
        push_back(nullptr);
    }
};

struct OutlineOnScreen : OnScreen {
    std::unique_ptr<LmOutline> make(Boolean policy = XmCONSTANT)
    {
        return std::make_unique<LmOutline>("outline", shell(), policy);
    }
};

std::string row(LmOutline& outline, int position)
{
    XmStringTable items = nullptr;
    XtVaGetValues(outline.listWidget(), XmNitems, &items, nullptr);
    return lm::plainText(items[position - 1]);
}

int rows(LmOutline& outline)
{
    int count = 0;
    XtVaGetValues(outline.listWidget(), XmNitemCount, &count, nullptr);
    return count;
}

/// The tree as it should be: simple, slow and without cleverness.
struct Model {
    std::string key;
    Model* parent = nullptr;
    std::vector<std::unique_ptr<Model>> children;
    bool open = true;
    int attr = 0;
    unsigned mask = 1;

    Model* add(const std::string& name)
    {
        children.push_back(std::make_unique<Model>());
        children.back()->key = name;
        children.back()->parent = this;
        return children.back().get();
    }
    void list(std::vector<std::pair<Model*, int>>& shown, int level = 0)
    {
        if (level > 0)
            shown.emplace_back(this, level);
        for (auto& child : children)
            if (open)
                child->list(shown, level + 1);
    }
    void highlight(int set)
    {
        if (set <= attr)
            return;
        attr = set;
        for (Model* above = parent; above && !(above->mask & 1U << set); above = above->parent)
            above->mask |= 1U << set;
    }
    void unhighlight(int set)
    {
        if (attr == set) {
            attr = 0;
            for (Model* above = parent; above && (above->mask & 1U << set); above = above->parent)
                above->mask &= ~(1U << set);
        }
        if (highest() >= set)
            for (auto& child : children)
                child->unhighlight(set);
    }
    int highest() const { return 31 - __builtin_clz(mask | 1); }
};

/// What every row must be, by the model.
void compare(LmOutline& outline, Model& root, std::map<std::string, Pixmap>& icons)
{
    std::vector<std::pair<Model*, int>> shown;
    root.list(shown);
    ASSERT_EQ(rows(outline), static_cast<int>(shown.size()));
    for (int at = 1; at <= rows(outline); ++at) {
        const auto [model, level] = shown[static_cast<std::size_t>(at) - 1];
        const auto* node = static_cast<LmOlNode*>(outline.getHookAt(at));
        ASSERT_NE(node, nullptr) << "row " << at;
        ASSERT_EQ(row(outline, at), model->key) << "row " << at;
        ASSERT_STREQ(node->key(), text(model->key));
        ASSERT_EQ(node->whereDisplayed(), at);
        ASSERT_EQ(node->attrIndex(), model->attr);
        ASSERT_EQ(LmListGetPositionIndent(outline.listWidget(), at), 30 * (level - 1));
        const Pixmap icon = LmListGetPositionIcon(outline.listWidget(), at);
        const std::string look = model->children.empty() ? "none" : model->open ? "open" : std::to_string(model->highest());
        const auto [known, isNew] = icons.try_emplace(look, icon);
        ASSERT_EQ(icon, known->second) << look;
        ASSERT_EQ(icon == None, look == "none");
        ASSERT_EQ(node->maxChildAttrIndex(), model->highest());
    }
    std::set<Pixmap> distinct;   // one for each look
    for (const auto& [look, icon] : icons)
        distinct.insert(icon);
    ASSERT_EQ(distinct.size(), icons.size());
}

TEST_F(OutlineOnScreen, BehavesAsASimpleModelThroughTenThousandRandomEditsTogglesAndHighlights)
{
    auto outline = make();
    show(*outline, 300, 400);
    std::map<std::string, Pixmap> icons;
    for (int i = 1; i <= 4; ++i)
        ASSERT_EQ(outline->setHighlightAttributes(1, 2, 3, nullptr), i);
    Model root;
    std::vector<Model*> models{&root};
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    bool isStale = false;
    const auto path = [&](const Model* model) {
        std::vector<std::string> keys;
        for (; model->parent; model = model->parent)
            keys.insert(keys.begin(), model->key);
        return keys;
    };

    for (int step = 0; step < reducedInSanitizer(10000); ++step) {
        std::vector<std::pair<Model*, int>> shown;
        const auto action = models.size() < 2 ? 0 : below(20);
        if (action == 0) {   // a few children below a random node
            Model* parent = models[below(models.size())];
            const std::vector<std::string> keys = path(parent);
            for (std::size_t i = 0, n = below(models.size() > 2000 ? 1 : step % 500 == 0 ? 400 : 6); i < n; ++i) {
                models.push_back(parent->add("k" + std::to_string(models.size())));
                std::vector<std::string> own = keys;
                own.push_back(models.back()->key);
                LmOlNode* node = outline->createPath(Keys(own).data(), Keys(own).data());
                node->setHook(node);
            }
            isStale = true;
        } else if (action == 1 || isStale) {
            outline->displayAll();
            isStale = false;
        } else if (action < 10) {
            root.list(shown);
            if (shown.empty())
                continue;
            const auto at = below(shown.size());
            Model* model = shown[at].first;
            outline->toggleChildren(static_cast<int>(at) + 1);
            if (!model->children.empty())
                model->open = !model->open;
        } else if (action < 18) {
            Model* model = models[1 + below(models.size() - 1)];
            const int set = 1 + static_cast<int>(below(4));
            outline->highlight(Keys({model->key}).data(), set);
            model->highlight(set);
        } else {
            const int set = 1 + static_cast<int>(below(4));
            outline->unhighlight(set);
            root.unhighlight(set);
        }
        if (!isStale && step % 20 == 0)
            compare(*outline, root, icons);
        if (HasFatalFailure())
            FAIL() << "at step " << step;
    }
    settle();
}

TEST_F(OutlineOnScreen, PairsBuildTheTreeInAnyOrder)
{
    auto outline = make();
    show(*outline, 300, 300);
    outline->displayAll();
    EXPECT_EQ(rows(*outline), 0);
    outline->add(text("b"), text("c"));
    outline->add(text("a"), text("b"));   // a top-level child moves below its new parent
    outline->add(text("a"), text("d"));
    outline->add(text("x"), text("d"));   // but one with a parent stays
    outline->add(text("d"), text("b"));   // and known pairs change nothing
    outline->displayAll();

    ASSERT_EQ(rows(*outline), 4);
    const std::string labels = row(*outline, 1) + row(*outline, 2) + row(*outline, 3) + row(*outline, 4);
    EXPECT_EQ(labels, "abcd");
    EXPECT_EQ(LmListGetPositionIndent(outline->listWidget(), 3), 60);
    EXPECT_EQ(outline->isPathClosed(Keys({"a", "d"}).data()), -1);
    EXPECT_EQ(outline->isPathClosed(Keys({"a", "b"}).data()), 0);
    EXPECT_EQ(outline->isPathClosed(Keys({"b"}).data()), -1);

    int position = 0, count = 0;
    outline->toggleChildren(1);
    EXPECT_EQ(outline->effectOfLastToggle(position, count), 0);
    EXPECT_EQ(position * 10 + count, 13);
    outline->toggleChildren(1);
    EXPECT_EQ(outline->effectOfLastToggle(position, count), 1);
    EXPECT_EQ(position * 10 + count, 13);
    outline->toggleChildren(3);   // a leaf
    EXPECT_EQ(outline->effectOfLastToggle(position, count) + position + count, 0);

    outline->reset();
    outline->displayAll();
    EXPECT_EQ(rows(*outline), 0);
    EXPECT_EQ(outline->setHighlightAttributes(0, 0, 0, nullptr), 1);
    outline->setIndentationWidth(0);
}

TEST_F(OutlineOnScreen, TabsLineUpTheTextBehindThem)
{
    auto outline = make();
    outline->setTabProcessing(True);
    char* labels[] = {strdup("x\tone"), strdup("longer\ttwo"), strdup("plain"), nullptr};
    outline->addChildren(Keys({}).data(), labels, Keys({"1", "2", "3"}).data(), nullptr);
    outline->displayAll();
    EXPECT_EQ(row(*outline, 1), "x      one");
    EXPECT_EQ(row(*outline, 2), "longer two");
    EXPECT_EQ(row(*outline, 3), "plain");
    for (char* label : labels)
        std::free(label);
}

/// 100,000 rows: the last of them is found with keys and the mouse, and a double click on a group opens it.
TEST_F(OutlineOnScreen, TheLastOfAHundredThousandRowsIsClickedAndGroupsOpenInPlace)
{
    auto outline = make();
    std::vector<std::string> names;
    for (int i = 0; i < 99999; ++i)
        names.push_back("row " + std::to_string(i));
    outline->add(text("top"), text("under"));
    outline->addChildren(Keys({"top"}).data(), Keys(names).data());
    outline->displayAll();
    show(*outline, 300, 400);
    Widget list = outline->listWidget();
    ASSERT_EQ(rows(*outline), 100001);

    Position x = 0, y = 0;
    Dimension width = 0, height = 0;
    ASSERT_TRUE(XmListPosToBounds(list, 1, &x, &y, &width, &height));
    for (int i = 0; i < 2; ++i)
        click(list, x + 50, y + height / 2);
    EXPECT_EQ(rows(*outline), 1);
    key(XK_Return);
    EXPECT_EQ(rows(*outline), 100001);

    XmListSetBottomPos(list, 0);
    settle();
    ASSERT_TRUE(XmListPosToBounds(list, 0, &x, &y, &width, &height));
    click(list, x + 50, y + height / 2);
    EXPECT_TRUE(XmListPosSelected(list, 100001));
    Pixel foreground = 0;
    XtVaGetValues(list, XmNforeground, &foreground, nullptr);
    EXPECT_EQ(pixelAt(list, x + width - 30, y + height / 2), foreground) << "a selected row is drawn over its whole width";
}

TEST_F(OutlineOnScreen, AChainOfFiftyThousandNodesBuildsShowsHighlightsAndDies)
{
    auto outline = std::make_unique<LmOutlineASB>("outline", shell());
    const int set = outline->setHighlightAttributes(1, 2, 3, nullptr);
    outline->setAnnotation(set, True);
    std::vector<std::string> names;
    for (int i = 0; i < 50000; ++i)
        names.push_back(std::to_string(i));
    outline->createPath(Keys(names).data(), Keys(names).data());
    outline->setIndentationWidth(1);
    outline->displayAll();
    show(*outline, 300, 300);
    outline->highlight(Keys({"49999", "25000"}).data(), set);
    EXPECT_EQ(rows(*outline), 50000);
    EXPECT_EQ(outline->getHookAt(50000), nullptr);
    outline->toggleChildren(1);
    EXPECT_EQ(rows(*outline), 1);
    outline->unhighlight(set);
    settle();
}

/// What the list knows of itself must be what a plain XmList knows that got the same rows by ordinary calls.
TEST_F(OutlineOnScreen, TheListIsAnXmListToWhoeverLooks)
{
    Widget form = shell();
    auto outline = std::make_unique<LmOutline>("outline", form, XmCONSTANT);
    show(*outline, 300, 300);
    std::vector<std::string> groups;
    for (int i = 0; i < 5; ++i)
        groups.push_back("group \xc3\xa4" + std::to_string(i));
    outline->addChildren(Keys({}).data(), Keys(groups).data());
    for (const std::string& group : groups) {
        std::vector<std::string> names;
        for (int i = 0; i < 300; ++i)
            names.push_back(group + "/" + std::string(static_cast<std::size_t>(i) % 50, 'w') + std::to_string(i));
        outline->addChildren(Keys({group}).data(), Keys(names).data());
    }
    outline->displayAll();
    settle();
    Widget list = outline->listWidget();
    short spacing = 0;
    Dimension width = 0, height = 0;
    XtVaGetValues(list, XmNlistSpacing, &spacing, nullptr);
    XtVaGetValues(outline->baseWidget(), XmNwidth, &width, XmNheight, &height, nullptr);
    Widget other =
        XtVaCreatePopupShell("other", topLevelShellWidgetClass, app().baseWidget(), XmNwidth, width, XmNheight, height, nullptr);
    Arg args[] = {{const_cast<char*>(XmNlistSizePolicy), XmCONSTANT},
                  {const_cast<char*>(XmNlistSpacing), static_cast<XtArgVal>(spacing)}};
    Widget plain = XmCreateScrolledList(other, const_cast<char*>("plain"), args, 2);
    XtManageChild(plain);
    XtPopup(other, XtGrabNone);
    settle();

    std::mt19937 random(3);
    for (int step = 0; step < 40; ++step) {
        const int at = 1 + static_cast<int>(random() % static_cast<unsigned>(rows(*outline)));
        outline->toggleChildren(at);
        settle();
        XmStringTable items = nullptr;
        XtVaGetValues(list, XmNitems, &items, nullptr);
        XmListDeleteAllItems(plain);
        XmListAddItemsUnselected(plain, items, rows(*outline), 0);
        const int top = 1 + static_cast<int>(random() % static_cast<unsigned>(rows(*outline)));
        XmListSetPos(list, top);
        XmListSetPos(plain, top);
        for (Widget w : {list, plain})
            settle(), XmListSetBottomPos(w, std::min(top + 20, rows(*outline)));
        settle();

        int tops[2], visible[2], values[2][3], index = 0;
        Position places[2][2];
        Dimension sizes[2][2];
        for (Widget w : {list, plain}) {
            Widget bar = nullptr;
            XtVaGetValues(w, XmNtopItemPosition, &tops[index], XmNvisibleItemCount, &visible[index], nullptr);
            XtVaGetValues(XtParent(w), XmNverticalScrollBar, &bar, nullptr);
            XtVaGetValues(bar, XmNvalue, &values[index][0], XmNmaximum, &values[index][1], XmNsliderSize, &values[index][2],
                          nullptr);
            EXPECT_TRUE(
                XmListPosToBounds(w, tops[index], &places[index][0], &places[index][1], &sizes[index][0], &sizes[index][1]));
            const int probe = 1 + step * 7 % rows(*outline);
            EXPECT_EQ(XmListItemPos(w, items[probe - 1]), probe);
            int* matches = nullptr;
            int count = 0;
            EXPECT_TRUE(XmListGetMatchPos(w, items[probe - 1], &matches, &count));
            EXPECT_EQ(count, 1);
            XtFree(reinterpret_cast<char*>(matches));
            ++index;
        }
        EXPECT_EQ(tops[0], tops[1]) << "step " << step;
        EXPECT_EQ(visible[0], visible[1]);
        EXPECT_EQ(std::vector<int>(values[0], values[0] + 3), std::vector<int>(values[1], values[1] + 3));
        EXPECT_EQ(places[0][1], places[1][1]);
        EXPECT_EQ(sizes[0][1], sizes[1][1]);
        for (int i = 0; i < rows(*outline); i += 37) {
            const lm::XmText localized(XmStringCreateLocalized(const_cast<char*>(lm::plainText(items[i]).c_str())));
            EXPECT_TRUE(XmStringByteCompare(items[i], localized.get()));
        }
    }
    XtDestroyWidget(other);
}

TEST_F(OutlineOnScreen, MarksStandInTheScrollBarAndAHighlightScrollsToThem)
{
    auto outline = std::make_unique<LmOutlineASB>("outline", shell());
    const Pixel mark = app().baseWidget() ? BlackPixelOfScreen(XtScreen(shell())) ^ 0xff0000 : 0;
    const int set = outline->setHighlightAttributes(0, 0xffff00, mark, nullptr);
    for (int g = 0; g < 20; ++g)
        for (int i = 0; i < 10; ++i)
            outline->add(text("g" + std::to_string(g)), text("n" + std::to_string(g * 10 + i)));
    outline->displayAll();
    show(*outline, 200, 300);
    Widget bar = nullptr;
    XtVaGetValues(outline->baseWidget(), XmNverticalScrollBar, &bar, nullptr);

    outline->highlight(Keys({"n155"}).data(), set);   // not annotated yet
    settle();
    EXPECT_EQ(pixelCount(bar, mark), 0);
    outline->setAnnotation(set, True);
    outline->setAnnotation(7, True);
    outline->toggleChildren(1 + 11 * 16);
    outline->highlight(Keys({"n163", "unknown", "n190"}).data(), set);   // in the closed group
    settle();
    EXPECT_GT(pixelCount(bar, mark), 0);
    int top = 0, visible = 0;
    XtVaGetValues(outline->listWidget(), XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, nullptr);
    EXPECT_EQ(top, 172 - visible / 2) << "n155 is the first row that is marked";
    outline->unhighlight(set);
    settle();
    EXPECT_EQ(pixelCount(bar, mark), 0);
}

TEST_F(OutlineOnScreen, RowsAppendedWhileUpdatesAreOffAreTrueAtOnceAndSurviveOthersEdits)
{
    Widget list = LmCreateScrolledList(shell(), "list", nullptr, 0);
    XtManageChild(list);
    XtPopup(shell(), XtGrabNone);
    settle();
    XtVaSetValues(list, XmNvisibleItemCount, 10, "showIcons", True, XtNupdate, False, nullptr);
    const Pixmap icon = XCreatePixmap(app().display(), XtWindow(list), 40, 40, 24);
    const auto string = [](int i) { return lm::compound(("row " + std::to_string(i)).c_str()); };
    for (int i = 0; i < 1000; ++i) {
        LmListAddItem(list, string(i).get(), 0);
        LmListSetPositionIndent(list, i + 1, i % 7);
    }
    EXPECT_EQ(XmListItemPos(list, string(999).get()), 1000);
    LmListSetPositionIcon(list, 3, icon);
    LmListSetPositionIcon(list, 2000, icon);
    XmListDeletePos(list, 1);   // an ordinary call
    XmListAddItemUnselected(list, string(5000).get(), 1);
    XtVaSetValues(list, XtNupdate, True, nullptr);
    settle();
    EXPECT_EQ(LmListGetPositionIcon(list, 3), icon);
    EXPECT_EQ(LmListGetPositionIndent(list, 7), 6);
    LmListDeleteItemsPos(list, 900, 50);
    EXPECT_EQ(XmListItemPos(list, string(999).get()), 100);
    Position x = 0, y1 = 0, y2 = 0;
    Dimension width = 0, height = 0;
    XmListSetPos(list, 1);
    ASSERT_TRUE(XmListPosToBounds(list, 1, &x, &y1, &width, &height));
    ASSERT_TRUE(XmListPosToBounds(list, 2, &x, &y2, &width, &height));
    EXPECT_GE(y2 - y1, 40) << "rows are as high as the icon";
    Dimension listWidth = 0, shadow = 0;
    XtVaGetValues(list, XmNwidth, &listWidth, XmNshadowThickness, &shadow, nullptr);
    EXPECT_GT(listWidth, 44 + 6 + 2 * shadow) << "and the list is as wide as icon, indentation and label";

    LmListDeleteAllItems(list);
    for (Widget wrong : {shell(), static_cast<Widget>(nullptr)})
        LmListAddItem(wrong, string(1).get(), 1);
    XtUnrealizeWidget(shell());
    XtRealizeWidget(shell());
    settle();
    XFreePixmap(app().display(), icon);
}

TEST_F(OutlineOnScreen, NodesAreTheNodesTheirUsersExpect)
{
    LmOlNode plain(text("name"));
    EXPECT_STREQ(plain.key(), "name");
    EXPECT_EQ(plain.isOpen(), 1);
    EXPECT_EQ(plain.attrIndex() + plain.whereDisplayed() + plain.nchild() + plain.maxChildAttrIndex(), 0);
    EXPECT_EQ(plain.getHook(), nullptr);

    const std::string longName(300, 'x');
    LmOlNode root(text("root"), text("key"), &plain);
    auto* first = new LmOlNode(text("label"), text("first"), nullptr);
    auto* second = new LmOlNode(text(longName), text("second"), nullptr);
    auto* third = new LmOlNode(text("two\nlines"), text("third"), nullptr);
    for (LmOlNode* child : {first, second, third, static_cast<LmOlNode*>(nullptr), &root})
        root.addChild(child);
    first->addChild(&root);   // no cycles
    EXPECT_EQ(root.nchild(), 3);
    EXPECT_STREQ(third->key(), "third");
    EXPECT_EQ(root.pathToNode(Keys({}).data()), &root);
    EXPECT_EQ(root.pathToNode(Keys({"third"}).data()), third);
    EXPECT_EQ(root.pathToNode(Keys({"third", "none"}).data()), nullptr);
    int level = 7;
    EXPECT_EQ(root.getNodeOf(text("second"), &level), second);
    EXPECT_EQ(level, 1);
    EXPECT_EQ(root.getNodeOf(lm::compound("label").get(), &level), first);
    EXPECT_EQ(root.getNodeAt(5, &level), nullptr);
    EXPECT_EQ(level, 0);
    EXPECT_EQ(root.countVisibleItems(), 3);
    LmOlNode::setItemCount(0);
    LmOlNode::initCorrection();
    root.correctPositions(first);
    EXPECT_EQ(second->whereDisplayed() * 10 + third->whereDisplayed(), 12);

    root.removeChild(second);
    root.removeChild(second);
    EXPECT_EQ(second->getParent(), &root);
    EXPECT_EQ(root.child(1), third);
    delete second;
    delete third;   // takes itself out
    EXPECT_EQ(root.nchild(), 1);
    EXPECT_EQ(stdoutOf([&] { root.print(1); }), "    root\n        label\n");
}

TEST_F(OutlineOnScreen, OutlivesItsWidgets)
{
    auto outline = std::make_unique<LmOutlineASB>("outline", shell());
    outline->add(text("a"), text("b"));
    outline->displayAll();
    show(*outline, 200, 200);
    destroyShell();
    outline->highlight(Keys({"a"}).data(), 1);
    outline->toggleChildren(1);
    outline->displayAll();
    outline->reset();
    EXPECT_EQ(outline->setHighlightAttributes(0, 0, 0, nullptr), 0);
}

}   // namespace
