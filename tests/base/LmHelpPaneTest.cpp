#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmHelpIndex.h"
#include "LmHelpPane.h"
#include "LmInfoDialog.h"
#include "LmMenuAction.h"
#include "LmMenuBar.h"
#include "LmOutline.h"
#include "LmWarningDialog.h"
#include "LmWindow.h"
#include "gu_help.h"

#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/RowColumn.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include <sys/stat.h>

using namespace lmtest;
namespace fs = std::filesystem;

using Asked = std::vector<std::string>;
static Asked asked;   // of the help service

/// The program's own, in the place of the library's.
int gu_help(void*, const char* name, int request, int)
{
    asked.push_back(std::string("gu_help ") + (name ? name : "-") + " " + std::to_string(request));
    return 0;
}

namespace {

void noteHelp(char* key, unsigned long time, Widget w)
{
    const char* who = w == app().baseWidget() ? " app" : w ? " other" : "";
    asked.push_back(std::string(key) + (time ? " timed" : "") + who);
    key[0] = '!';   // the key is ours
}

std::string mapfile;
char* mapfilePath() { return mapfile.data(); }

struct HelpWindow : LmWindow {
    explicit HelpWindow(const char* name) : LmWindow(name)
    {
        setMenuBar(static_cast<LmMenuDesc*>(nullptr));
        show();
        settle();
    }
    Widget setUpInterface(Widget parent) override { return XmCreateLabel(parent, const_cast<char*>("view"), nullptr, 0); }
    LmHelpPane* pane() { return menu()->helpPane(); }
    void chooseItem(const char* name)
    {
        XmPushButtonCallbackStruct call = {};
        XEvent event = {};
        event.xbutton.type = ButtonRelease;
        event.xbutton.time = 7;
        call.event = &event;
        XtCallCallbacks(pane()->findNamedItem(name, false, true)->baseWidget(), XmNactivateCallback, &call);
        settle();
    }
};

/// "Overview Group(A) -Index": what does not answer has a '-'. Names without "help" and "MenuItem".
std::string itemsOf(LmMenu* menu)
{
    struct Item : LmMenuItem {
        using LmMenuItem::_sensitive;
    };
    std::string text;
    for (int i = 0; i < menu->numItems(); ++i) {
        LmMenuItem* item = (*menu)[i];
        const std::string name = std::regex_replace(item->name(), std::regex("^help|MenuItem"), "");
        text += (i ? " " : "") + std::string(item->*&Item::_sensitive == 0 ? "-" : "") + name;
        if (item->isContainer())
            text += "(" + itemsOf(static_cast<LmMenu*>(item)) + ")";
    }
    return text;
}

struct HelpOnScreen : OnScreen {
    HelpOnScreen() { setenv("DEFHELPPATH", (folder + "/").c_str(), 1); }
    ~HelpOnScreen() override { fs::remove_all(folder); }
    std::string file(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder + "/" + name) << text;
        return folder + "/" + name;
    }
    Asked takeAsked() { return std::exchange(asked, {}); }

    const std::string folder = std::string(getenv("HOME")) + "/help";
    const bool made = fs::create_directories(folder);
    LmWindow* keeper = new LmWindow("keeper");   // so that no test ends the program with its last window
};
}   // namespace

TEST_F(HelpOnScreen, EveryWindowHasTheTasksOfItsScope)
{
    file("LmTest.helpmap", "1\n2;t;Saving;0;task.saving;LmTest.left\n2;g;Drawing;0;g;LmTest.left;LmTest.right\n"
                           "2;a;Lines;1;task.lines;LmTest.left;LmTest.right\n2;b;Dots;1;task.dots;LmTest.left.form\n");
    LmHelpPane fresh("helpMenu", nullptr, nullptr);
    EXPECT_EQ(fresh.numItems(), 0);
    HelpWindow left("left"), right("right");
    EXPECT_EQ(itemsOf(left.pane()), "Overview Saving Drawing(Lines Dots) separator Index separator Version");
    EXPECT_EQ(itemsOf(right.pane()), "Overview Drawing(Lines) separator Index separator Version");
    Widget helpWidget = nullptr;
    XtVaGetValues(left.menu()->baseWidget(), XmNmenuHelpWidget, &helpWidget, nullptr);
    EXPECT_EQ(helpWidget, static_cast<LmMenuItem*>(left.pane())->baseWidget());
    EXPECT_EQ(textOf((*left.pane())[0]->baseWidget()), "Overview");

    left.pane()->addAction("helpKeysMenuItem", LmHelpPane::keysCallback, left.pane());
    left.pane()->setItemSensitivities(false, false, true, true, false);
    left.pane()->setItemSensitivities(true, true, false, false, false);
    EXPECT_EQ(itemsOf(left.pane()), "Overview Saving Drawing(Lines Dots) separator -Index separator Version -Keys");

    LmHelpPane::setHelpFunctions(noteHelp, nullptr, mapfilePath);
    left.chooseItem("helpOverviewMenuItem");
    right.chooseItem("Lines");
    left.chooseItem("Dots");
    EXPECT_EQ(takeAsked(), (Asked{"left.overview timed app", "task.lines app", "task.dots app"}));
    delete left.pane();   // the bar forgets it
    settle();
}

TEST_F(HelpOnScreen, WhatTheMapDoesNotTellOfIsInsensitive)
{
    const LmMenuDesc table[] = {{MENU_ACTION, "helpOnContextMenuItem"},
                                {MENU_ACTION, "helpKeysMenuItem"},
                                {MENU_ACTION, "helpTutorialMenuItem"},
                                {MENU_END}};
    HelpWindow window("window");
    const auto built = [&] {
        LmHelpPane pane(window.menu()->baseWidget(), "help", table, nullptr);
        return itemsOf(&pane);
    };
    const std::string all = "OnContext Keys Tutorial Overview Index separator Version";
    EXPECT_EQ(built(), all);
    file("LmTest.helpmap", "1\n");
    EXPECT_EQ(built(), "OnContext -Keys -Tutorial Overview Index separator Version");
    file("LmTest.helpmap", "");
    EXPECT_EQ(built(), "-OnContext -Keys -Tutorial -Overview -Index separator Version");
    setenv("DEFHELPPATH", (folder + std::string(1024 - folder.size() - 14, '/')).c_str(), 1);   // 1024 bytes, and an end mark
    EXPECT_EQ(built(), all);
    setenv("DEFHELPPATH", (folder + "/").c_str(), 1);
    fs::remove(folder + "/LmTest.helpmap");
    ASSERT_EQ(mkfifo((folder + "/LmTest.helpmap").c_str(), 0600), 0);   // nobody will ever write
    EXPECT_EQ(built(), all);

    setlocale(LC_ALL, "C.UTF-8");   // which has a map of its own
    fs::create_directories(folder + "/" + setlocale(LC_ALL, nullptr));
    file(setlocale(LC_ALL, nullptr) + std::string("/LmTest.helpmap"), "3\n");
    EXPECT_EQ(built(), "OnContext Keys -Tutorial -Overview Index separator Version");
}

TEST_F(HelpOnScreen, TheOldArrangementHasFourEntries)
{
    file("LmTest.helpmap", "2;t;Saving;0;task.saving;LmTest.window\n");
    setResource("*useOldMenuArrangement: True");
    HelpWindow window("window");
    EXPECT_EQ(itemsOf(window.pane()), "aboutApplication OnWindow OnContextOld IndexOld");
    window.chooseItem("helpOnWindowMenuItem");
    window.chooseItem("helpIndexMenuItemOld");
    EXPECT_EQ(takeAsked(), (Asked{"gu_help LmTest 3", "gu_help - 11"}));

    window.chooseItem("aboutApplication");
    EXPECT_EQ(textOf(getTheInfoDialog()->lastPosted(), "messageString"), "Application Name: lmtest");
    getTheInfoDialog()->unpost();
    LmInfoDialog about("about");
    app().setAboutDialog(&about);
    window.chooseItem("aboutApplication");
    EXPECT_TRUE(about.lastPosted());
    EXPECT_FALSE(getTheInfoDialog()->lastPosted());
    app().setAboutDialog(nullptr);
}

TEST_F(HelpOnScreen, ADoubleClickInTheIndexAsksForTheTopic)
{
    mapfile = file("index", "FieldHelp\nPages\nChoosing/a/page\nMenus and more\nFieldHelp\nTransHelp\nTasks\nSaving\n");
    LmHelpPane::setHelpFunctions(noteHelp, mapfilePath, nullptr);
    HelpWindow window("window");
    window.chooseItem("helpIndexMenuItem");
    Widget dialog = getTheHelpIndex()->lastPosted();
    ASSERT_TRUE(dialog);
    settleUntil([&] { return isViewable(dialog); });
    EXPECT_EQ(textOf(dialog, "cancelLabelString"), "Dismiss");
    Widget list = getTheHelpIndex()->outline()->listWidget();
    int count = 0;
    XtVaGetValues(list, XmNitemCount, &count, nullptr);
    ASSERT_EQ(count, 3);   // a section that the file ends is not shown

    Position x = 0, y = 0;
    Dimension width = 0, height = 0;
    ASSERT_TRUE(XmListPosToBounds(list, 2, &x, &y, &width, &height));
    click(list, x + 60, y + height / 2);
    click(list, x + 60, y + height / 2);
    EXPECT_EQ(takeAsked(), Asked{"Choosing/a/page timed app"});

    myHelpIndexMsg("again");
    EXPECT_EQ(getTheHelpIndex()->lastPosted(), dialog);
    XtDestroyWidget(XtParent(dialog));
    settle();
    EXPECT_EQ(getTheHelpIndex()->outline(), nullptr);
    myHelpIndexMsg("and again");
    EXPECT_TRUE(getTheHelpIndex()->outline());
    getTheHelpIndex()->unpost();
}

TEST_F(HelpOnScreen, MapFilesThatCannotBeOpenedAreNamed)
{
    mapfile = "/nowhere/map";
    LmHelpPane::setHelpFunctions(noteHelp, nullptr, mapfilePath);
    HelpWindow window("window");
    window.chooseItem("helpIndexMenuItem");
    EXPECT_EQ(textOf(getTheWarningDialog()->lastPosted(), "messageString"), "Error opening mapfiles:\n/nowhere/map, ");
    XmListCallbackStruct call = {};
    XtCallCallbacks(getTheHelpIndex()->outline()->listWidget(), XmNdefaultActionCallback, &call);
    EXPECT_TRUE(takeAsked().empty());
    getTheWarningDialog()->unpost();
    getTheHelpIndex()->unpost();

    char text[] = "a/b c\td";
    MapfileToText(text);
    EXPECT_STREQ(text, "a b c\td");
    TextToMapfile(text);
    EXPECT_STREQ(text, "a/b/c\td");
    EXPECT_STREQ(lm::CString(gettoken("one/x two")).get(), "one/x");
    EXPECT_STREQ(lm::CString(gettoken("a\tb")).get(), "a");
}
