#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmTabPanel.h"

#include <X11/IntrinsicP.h>
#include <Xm/RowColumn.h>

#include <memory>

using namespace lmtest;

namespace {

struct TabsOnScreen : OnScreen {
    TabsOnScreen() { XtSetMultiClickTime(app().display(), 0); }   // Motif takes fast drags for clicks

    /// Notes what the panel announces: "+a0" tab 0, "a", is selected; "?-1" button 3 beside the tabs.
    void hear(LmCallbackObject& panel)
    {
        panel.addCallback(LmTabPanel::tabSelectCallback, note<'+'>, this);
        panel.addCallback(LmTabPanel::tabPopupCallback, note<'?'>, this);
    }
    template <char Kind> static void note(LmCallbackObject*, void* test, void* callData)
    {
        const auto& choice = *static_cast<LmTabCallbackStruct*>(callData);
        static_cast<TabsOnScreen*>(test)->heard += std::string(1, Kind) + (choice.label ? choice.label : "") +
                                                   std::to_string(choice.tabIndex) + (choice.event ? "! " : " ");
    }
    std::string takeHeard() { return std::exchange(heard, ""); }
    std::string heard;
};

/// Ten tabs, "tab0" to "tab9", of which a few show at 260 pixels.
std::unique_ptr<LmTabPanel> tenTabs(Widget parent, bool horizontal = true)
{
    auto panel = std::make_unique<LmTabPanel>("tabs", parent, horizontal, 0);
    for (int i = 0; i < 10; ++i)
        panel->addTab(("tab" + std::to_string(i)).c_str(), nullptr, False);
    panel->show();
    return panel;
}

Widget stripOf(LmTabPanel& panel) { return childNamed(panel.baseWidget(), "*tabArea"); }

std::string labels(LmTabPanel& panel)
{
    std::string text;
    for (int i = 0; i < panel.size(); ++i) {
        char* label = nullptr;
        EXPECT_TRUE(panel.getTab(i, &label, nullptr));
        text += std::string(label) + " ";
    }
    return text;
}

Widget menuItem(LmTabPanel& panel, int index)
{
    Widget menu = childNamed(panel.baseWidget(), "*popupMenu");
    WidgetList items = nullptr;
    Cardinal count = 0;
    if (menu)
        XtVaGetValues(menu, XmNchildren, &items, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; ++i) {
        XtPointer data = nullptr;
        XtVaGetValues(items[i], XmNuserData, &data, nullptr);
        if (XtName(items[i]) == std::string("tabMenuItem") && lm::asInt(data) == index)
            return items[i];
    }
    return nullptr;
}

/// Presses on the outermost edge at the right end, which pops the menu up.
void pressRightEnd(LmTabPanel& panel, unsigned button)
{
    Widget strip = stripOf(panel);
    for (int x = strip->core.width - 1; x > 0 && !menuItem(panel, 0); x -= 5) {
        release(button);
        press(strip, x, 2, button);
    }
}

}   // namespace

TEST_F(TabsOnScreen, TabsComeAndGoAndOneStaysSelected)
{
    setResource("*tabArea.quit: Leave");
    LmTabPanel panel("tabs", shell(), True, 0);
    hear(panel);
    for (const char* label : {"b", "c", "a"})
        panel.addTab(label, nullptr, True);
    EXPECT_EQ(labels(panel), "a b c ");
    EXPECT_EQ(panel.selectedTab(), 1);
    EXPECT_EQ(takeHeard(), "+b0 ");
    const char* more[] = {"quit", "z"};
    panel.addTabs(more, nullptr, 2, False);
    EXPECT_TRUE(panel.selectTab("quit", nullptr));
    EXPECT_TRUE(panel.selectTab("Leave", nullptr));
    EXPECT_FALSE(panel.selectTab("nowhere", nullptr));
    EXPECT_FALSE(panel.selectTab(5, nullptr));
    EXPECT_FALSE(panel.selectTab(-1, nullptr));
    EXPECT_EQ(takeHeard(), "+Leave3 +Leave3 ");

    EXPECT_TRUE(panel.removeTab(3));
    EXPECT_EQ(takeHeard(), "+c2 ");
    EXPECT_TRUE(panel.removeTab("a"));
    EXPECT_EQ(panel.selectedTab(), 1);
    EXPECT_TRUE(panel.setTabLabel(1, "quit"));
    EXPECT_EQ(labels(panel), "b Leave z ");
    panel.selectTab(0, nullptr);
    panel.removeTab(0);
    EXPECT_EQ(takeHeard(), "+b0 +Leave0 ");
    panel.addCallback(
        LmTabPanel::tabSelectCallback, [](LmCallbackObject* p, void*, void*) { static_cast<LmTabPanel*>(p)->removeTab("z"); },
        nullptr);
    hear(panel);   // told of a tab that the one before has taken away
    panel.selectTab("z", nullptr);
    EXPECT_EQ(takeHeard(), "+z1 +Leave0 +Leave0 +z1 ");
    EXPECT_TRUE(panel.removeTab(0));
    EXPECT_EQ(takeHeard(), "+-1 +-1 ");
    EXPECT_FALSE(panel.removeTab(0));
    char none[] = "none", *label = none;
    EXPECT_FALSE(panel.getTab(0, &label, nullptr));
    EXPECT_EQ(label, nullptr);
}

TEST_F(TabsOnScreen, AClickSelectsTheTabAndJoinsItToThePage)
{
    setResource("*tabLabel.background: yellow");
    setResource("*tabLabel.foreground: blue");
    setResource("*tabLabel.fontList: fixed");   // 6 by 13 pixels a character
    setResource("*tabArea.uniformTabs: true");
    for (const bool horizontal : {true, false}) {
        LmTabPanel panel("tabs", shell(), horizontal, 0);
        hear(panel);
        for (const char* label : {"one", "a far longer one", "three"})
            panel.addTab(label, nullptr, False);
        show(panel, horizontal ? 600 : 60, horizontal ? 40 : 300);
        Widget strip = stripOf(panel);
        takeHeard();
        EXPECT_GT(pixelCount(strip, panel.labelBg()), 500);   // shown without having been asked
        const auto at = [&](auto act, int along, int across, unsigned button) {
            horizontal ? act(strip, along, across, button) : act(strip, strip->core.width - 1 - across, along, button);
        };
        const auto baseOf = [&](int along) {
            return horizontal ? pixelAt(strip, along, 0) : pixelAt(strip, strip->core.width - 1, along);
        };
        const int middle = horizontal ? 196 : 71;   // of the second tab: 125 + 17 + 108 / 2, and 42 + 17 + 25 / 2
        EXPECT_EQ(baseOf(middle), panel.labelFg());
        at([](Widget w, int x, int y, unsigned b) { click(w, x, y, b); }, middle, 10, 1);
        EXPECT_EQ(takeHeard(), "+a far longer one1! ");
        EXPECT_EQ(baseOf(middle), panel.selectedTabBg());
        EXPECT_EQ(baseOf(20), panel.labelFg());

        const auto before = pixelCount(strip, panel.labelFg());
        XClearArea(app().display(), XtWindow(strip), 0, 0, 0, 0, True);
        settle();
        EXPECT_EQ(pixelCount(strip, panel.labelFg()), before);
        at([](Widget w, int x, int y, unsigned b) { click(w, x, y, b); }, middle, 10, 3);
        at([](Widget w, int x, int y, unsigned b) { click(w, x, y, b); }, (horizontal ? 600 : 300) - 20, 10, 3);
        EXPECT_EQ(takeHeard(), "?a far longer one1! ?-1! ");
        screenshot(horizontal ? "tabsAcross" : "tabsDown");
        const char bits[8] = {~0, ~0, ~0, ~0, ~0, ~0, ~0, ~0};
        const Pixmap bitmap = XCreateBitmapFromData(app().display(), XtWindow(strip), bits, 8, 8);
        const int three = pixelCount(strip, panel.labelFg());
        panel.setTabLabel(2, "");
        settleUntil([&] { return pixelCount(strip, panel.labelFg()) < three; });
        const int none = pixelCount(strip, panel.labelFg());
        EXPECT_TRUE(panel.setTabPixmap("", bitmap));
        settleUntil([&] { return pixelCount(strip, panel.labelFg()) > none; });
        // down, three tabs get 8 + 3 pixels longer: so do their far edges, while the base line loses 11
        EXPECT_EQ(pixelCount(strip, panel.labelFg()) - none, 64 + (horizontal ? 0 : 3 * 11 - 11));
        XFreePixmap(app().display(), bitmap);
        destroyShell();
    }
}

TEST_F(TabsOnScreen, ThePressAtAnEndPopsUpAMenuThatGoesWhenItIsUsed)
{
    for (const char* line : {"*tabLabel.renderTable: xft", "*xft.fontType: FONT_IS_XFT", "*xft.fontName: DejaVu Sans"})
        setResource(line);
    auto panel = tenTabs(shell());
    hear(*panel);
    show(*panel, 260, 40);
    Widget strip = stripOf(*panel);
    EXPECT_EQ(pixelAt(strip, 110, 0), panel->labelFg());   // of the second tab: no label's clip cuts the base line
    for (const int chosen : {9, 0}) {
        const unsigned button = chosen == 9 ? 3 : 1;
        if (chosen == 9)
            pressRightEnd(*panel, button);
        else
            press(strip, 1, 2, button);
        Widget item = menuItem(*panel, chosen);
        ASSERT_TRUE(item);
        EXPECT_TRUE(isViewable(XtParent(item)));
        screenshot("tabsMenu" + std::to_string(chosen));
        EXPECT_EQ(textOf(item), "tab" + std::to_string(chosen));
        heard.clear();
        pointAt(item, 5, 5);
        release(button);
        EXPECT_EQ(takeHeard(), "+tab" + std::to_string(chosen) + std::to_string(chosen) + " ");
        settle();
        EXPECT_EQ(menuItem(*panel, 0), nullptr);   // the run has moved
    }

    static std::unique_ptr<LmTabPanel>* victim = &panel;
    panel->addCallback(
        LmTabPanel::tabSelectCallback, [](LmCallbackObject*, void*, void*) { victim->reset(); }, nullptr);
    pressRightEnd(*panel, 3);
    pointAt(menuItem(*panel, 9), 5, 5);
    release(3);
    EXPECT_EQ(panel, nullptr);
    settle();
}

TEST_F(TabsOnScreen, AStripSurvivesEverySizeAndItsOwnEnd)
{
    auto panel = tenTabs(shell(), false);
    show(*panel, 60, 200);
    Widget strip = stripOf(*panel);
    for (const int size : {0, 1, 2, 40, 137, 32767}) {
        for (const bool wide : {true, false}) {
            XtResizeWidget(strip, static_cast<Dimension>(std::max(1, wide ? size : 30)),
                           static_cast<Dimension>(std::max(1, size)), 0);
            for (int i = 0; i < 10; i += 3)
                EXPECT_TRUE(panel->selectTab(i, nullptr));
        }
    }
    settle();
    panel->setTabLabel(2, "pending");
    panel.reset();
    settle();

    panel = tenTabs(shell());
    show(*panel, 200, 40);
    panel->setTabLabel(2, "pending");
    destroyShell();
    panel->addTab("late", nullptr, False);
    EXPECT_TRUE(panel->selectTab("late", nullptr));
    EXPECT_TRUE(panel->removeTab("late"));
    EXPECT_TRUE(panel->setTabPixmap(0, 1));
    settle();
}

TEST_F(TabsOnScreen, BothOrientationsLookAsTheyShouldAtEverySize)
{
    for (const bool horizontal : {true, false}) {
        setResource(horizontal ? "*tabArea.tabHeight: 13" : "*tabArea.tabHeight: 30");   // room for the labels
        const auto panel = tenTabs(shell(), horizontal);
        show(*panel, horizontal ? 260 : 60, horizontal ? 40 : 200);
        panel->selectTab(4, nullptr);
        expectPicture(panel->baseWidget(), horizontal ? "tabsAcross" : "tabsDown");
        const auto size = [](int i) { return static_cast<Dimension>(i == 0 ? 1 : i == 1 ? 32767 : 1 + i * 7919 % 1500); };
        for (int i = 0; i < reducedInSanitizer(500); ++i) {
            XtResizeWidget(panel->baseWidget(), size(i), size(i + 1), 0);
            panel->selectTab(i % 10, nullptr);
        }
        destroyShell();
    }
}
