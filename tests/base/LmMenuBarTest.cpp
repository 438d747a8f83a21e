#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmHelpPane.h"
#include "LmMenuAction.h"
#include "LmMenuBar.h"
#include "LmMenuToggle.h"
#include "LmMenuUndoManager.h"
#include "LmSubMenu.h"
#include "LmWindow.h"

#include <X11/IntrinsicP.h>
#include <Xm/Label.h>
#include <Xm/MenuShell.h>
#include <Xm/RowColumn.h>

using namespace lmtest;

namespace {

std::vector<std::string> ran;

void note(Widget w, XtPointer, XtPointer) { ran.emplace_back(XtName(w)); }
LmMenuItem* doomed;
void deleteDoomed(Widget, XtPointer, XtPointer) { delete doomed; }
void deleteObject(Widget, XtPointer object, XtPointer) { delete static_cast<LmComponent*>(object); }

// clang-format off
LmMenuDesc lineTable[] = {
    {MENU_ACTION, "Dotted", note},
    {MENU_ACTION, "Dashed", note},
    {MENU_END}};
LmMenuDesc fileTable[] = {
    {MENU_ACTION, "Open", note},
    {MENU_SUBMENU, "Line", nullptr, lineTable},
    {MENU_SEPARATOR},
    {MENU_ACTION_WIDGET, "Quit", note},
    {MENU_END}};
LmMenuDesc viewTable[] = {
    {MENU_TOGGLE, "Small", note},
    {MENU_TOGGLE, "Large", note},
    {MENU_END}};
LmMenuDesc barTable[] = {
    {MENU_SUBMENU, "File", nullptr, fileTable},
    {MENU_RADIO_SUBMENU, "View", nullptr, viewTable},
    {MENU_END}};
// clang-format on

struct BarWindow : LmWindow {
    BarWindow() : LmWindow("window") {}
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmLabelWidgetClass, parent, XmNwidth, 300, XmNheight, 200, nullptr);
    }
};

void heardClick(Widget, XtPointer flag, XEvent*, Boolean*) { *static_cast<bool*>(flag) = true; }

bool hasFocus(LmWindow* window)
{
    Window focus = None;
    int revertTo = 0;
    XGetInputFocus(app().display(), &focus, &revertTo);
    Widget w = focus > PointerRoot ? XtWindowToWidget(app().display(), focus) : nullptr;
    while (w && w != window->baseWidget())
        w = XtParent(w);
    return w != nullptr;
}

/// Shows what derived menus see.
struct SubMenu : LmSubMenu {
    using LmSubMenu::LmSubMenu;
    using LmMenuItem::_numUnmanagedWidgets;
    using LmMenuItem::_workProcList;
    using LmMenuItem::widgetOf;
};

Widget widgetOf(LmMenuItem* item) { return item ? SubMenu::widgetOf(item) : nullptr; }
bool anyPending() { return SubMenu::_workProcList != nullptr; }

struct MenuBarOnScreen : OnScreen {
    MenuBarOnScreen()
    {
        for (const char* line : {"*File.mnemonic: F", "*Open.mnemonic: O", "*Line.mnemonic: L", "*Dashed.mnemonic: s",
                                 "*Quit.accelerator: Ctrl<Key>q", "*Quit.acceleratorText: Ctrl+Q"})
            setResource(line);
        ran.clear();
    }
    BarWindow* shown(LmMenuDesc* table)
    {
        auto* window = new BarWindow;
        window->setMenuBar(table);
        window->show();
        settleUntil([&] { return isViewable(window->viewWidget()); });
        bool clicked = false;
        XtAddEventHandler(window->viewWidget(), ButtonReleaseMask, False, heardClick, &clicked);
        click(window->viewWidget());   // a window manager gives it the focus, and hands the click on, in its own time
        settleUntil([&] { return clicked && (!isManaged || hasFocus(window)); });
        XtRemoveEventHandler(window->viewWidget(), ButtonReleaseMask, False, heardClick, &clicked);
        return window;
    }
    bool isManaged = false;
    BarWindow* keeper = new BarWindow;   // so that no test ends the program with its last window
};

/// With (true) and without a window manager.
struct ManagedMenuBarOnScreen : MenuBarOnScreen, testing::WithParamInterface<bool> {
    ManagedMenuBarOnScreen()
    {
        isManaged = GetParam();
        if (isManaged)
            startWindowManager();
    }
};

LmMenuItem* item(LmWindow* window, const char* name) { return window->menu()->findNamedItem(name, false, true); }
LmSubMenu* pane(LmWindow* window, const char* name) { return static_cast<LmSubMenu*>(item(window, name)); }

}   // namespace

INSTANTIATE_TEST_SUITE_P(Manager, ManagedMenuBarOnScreen, testing::Values(false, true));

TEST_P(ManagedMenuBarOnScreen, ItemsAreChosenByPointerKeysAndAccelerators)
{
    BarWindow* window = shown(barTable);
    ASSERT_EQ(window->menu()->numItems(), 3);
    EXPECT_STREQ(window->menu()->helpPane()->name(), "helpMenu");
    EXPECT_EQ((*window->menu())[2], window->menu()->helpPane());
    EXPECT_EQ(window->menu()->ownerWindow(), window);
    settleUntil([] { return !anyPending(); });

    click(window->viewWidget());
    click(widgetOf(item(window, "File")));
    EXPECT_TRUE(isViewable(pane(window, "File")->pulldown()));
    click(widgetOf(item(window, "Open")));
    EXPECT_FALSE(isViewable(pane(window, "File")->pulldown()));
    EXPECT_EQ(ran, std::vector<std::string>{"Open"});

    for (const std::vector<KeySym>& locks : {std::vector<KeySym>{}, {XK_Num_Lock}, {XK_Caps_Lock}, {XK_Num_Lock, XK_Caps_Lock}}) {
        for (KeySym lock : locks)
            key(lock);
        ran.clear();
        key(XK_f, {XK_Alt_L});
        key(XK_l);
        settleUntil([&] { return isViewable(pane(window, "Line")->pulldown()); });
        key(XK_s);
        key(XK_q, {XK_Control_L});
        EXPECT_EQ(ran, (std::vector<std::string>{"Dashed", "Quit"})) << locks.size();
        for (KeySym lock : locks)
            key(lock);
    }

    ran.clear();
    Widget file = widgetOf(item(window, "File")), view = widgetOf(item(window, "View"));
    press(file, 5, 5);
    pointAt(view, 5, 5);
    EXPECT_FALSE(isViewable(pane(window, "File")->pulldown()));
    pointAt(widgetOf(item(window, "Large")), 5, 5);
    release();
    EXPECT_EQ(ran, std::vector<std::string>{"Large"});
    auto* small = static_cast<LmMenuToggle*>(item(window, "Small"));
    auto* large = static_cast<LmMenuToggle*>(item(window, "Large"));
    EXPECT_TRUE(large->getState());
    small->setStateAndNotify(true);
    EXPECT_FALSE(large->getState());
    delete window;
}

TEST_P(ManagedMenuBarOnScreen, APaneThatIsPostedEarlyIsFilledThen)
{
    BarWindow* window = shown(barTable);
    delete pane(window, "File");
    delete pane(window, "View");
    window->addRadioMenuPane("View", viewTable);
    window->addMenuPane("File", fileTable);
    settle();   // leaves no idle time
    ASSERT_TRUE(pane(window, "File")->isPending());
    click(widgetOf(item(window, "File")));
    EXPECT_TRUE(isViewable(pane(window, "File")->pulldown()));
    EXPECT_FALSE(pane(window, "File")->isPending());
    EXPECT_TRUE(pane(window, "Line")->isPending());
    Widget line = widgetOf(item(window, "Line"));
    ASSERT_TRUE(isViewable(line));
    click(line);
    ASSERT_TRUE(isViewable(pane(window, "Line")->pulldown()));
    click(widgetOf(item(window, "Dotted")));
    EXPECT_EQ(ran, std::vector<std::string>{"Dotted"});

    EXPECT_TRUE(pane(window, "View")->isPending());
    EXPECT_TRUE(item(window, "Small")->baseWidget());   // asks for everything
    EXPECT_FALSE(anyPending());
    delete window;
}

TEST_F(MenuBarOnScreen, TornOffPanesDieInEveryWay)
{
    enum Way { PaneDirectly, PaneInItsCallback, BarDirectly, WindowDirectly, PaneAfterDismissal, WidgetDirectly };
    for (const Way way : {PaneDirectly, PaneInItsCallback, BarDirectly, WindowDirectly, PaneAfterDismissal}) {
        BarWindow* window = shown(barTable);
        LmSubMenu* file = pane(window, "File");
        file->showTearOff(true);
        settleUntil([] { return !anyPending(); });
        click(widgetOf(file));
        Widget torn = file->pulldown();
        click(torn, 20, 4);
        key(XK_Escape);
        settleUntil([&] { return isViewable(torn) && !XmIsMenuShell(XtParent(torn)); });
        ran.clear();
        click(widgetOf(item(window, "Open")));
        EXPECT_EQ(ran, std::vector<std::string>{"Open"});
        EXPECT_TRUE(isViewable(torn));

        if (way == PaneDirectly)
            delete file;
        if (way == PaneInItsCallback) {
            XtAddCallback(widgetOf(item(window, "Open")), XmNactivateCallback, deleteObject, file);
            click(widgetOf(item(window, "Open")));
        }
        if (way == BarDirectly)
            delete window->menu();
        if (way == WindowDirectly)
            delete window;
        if (way == PaneAfterDismissal) {
            sendProtocol(XtParent(torn), "WM_DELETE_WINDOW");
            settleUntil([&] { return XmIsMenuShell(XtParent(torn)); });
            delete file;
        }
        settle();
        if (LmComponent::isComponent(window))
            delete window;
        settle();
    }
}

TEST_P(ManagedMenuBarOnScreen, MenusDieWhilePosted)
{
    for (int kind = 0; kind < 6; ++kind) {
        BarWindow* window = shown(barTable);
        doomed = pane(window, "File")->addAction("Doomed", deleteDoomed, note, nullptr, -1);
        click(widgetOf(item(window, "File")));
        ASSERT_TRUE(isViewable(pane(window, "File")->pulldown())) << "kind " << kind;
        if (kind == 0)
            delete pane(window, "File");
        if (kind == 1)
            delete window->menu();
        if (kind == 2)
            delete window;
        if (kind == 3)
            delete item(window, "Open");
        if (kind == 4) {
            XtAddCallback(widgetOf(item(window, "Open")), XmNactivateCallback, deleteObject, window);
            click(widgetOf(item(window, "Open")));
        }
        if (kind == 5)
            click(widgetOf(doomed));   // gone before it can go on the undo stack
        EXPECT_EQ(getTheUndoManager()->size(), 0);
        settle();
        if (LmComponent::isComponent(window)) {
            key(XK_Escape);
            delete window;
        }
        settle();

        BarWindow* next = shown(barTable);   // nothing of a grab is left
        ran.clear();
        click(widgetOf(item(next, "File")));
        click(widgetOf(item(next, "Open")));
        EXPECT_EQ(ran, std::vector<std::string>{"Open"}) << "kind " << kind;
        delete next;
        settle();
    }
}

TEST_F(MenuBarOnScreen, PanesAreFilledInIdleTimeInBatches)
{
    BarWindow* window = shown(barTable);
    LmSubMenu* many = window->addMenuPane("Many");
    for (int i = 0; i < 30; ++i)
        many->addAction(std::to_string(i).c_str(), note, nullptr);
    (*many)[0]->setLabel("Cut");
    (*many)[1]->hide();
    (*many)[2]->deactivate();
    setResource("*Cut: Ausschneiden");
    EXPECT_TRUE(isViewable(widgetOf(many)));
    EXPECT_TRUE(many->isPending());
    EXPECT_EQ(widgetOf((*many)[0]), nullptr);

    settleUntil([] { return !anyPending(); });
    EXPECT_EQ(textOf(widgetOf((*many)[0])), "Ausschneiden");
    EXPECT_FALSE(XtIsManaged(widgetOf((*many)[1])));
    EXPECT_FALSE(XtIsSensitive(widgetOf((*many)[2])));
    EXPECT_TRUE(XtIsManaged(widgetOf((*many)[29])));
    EXPECT_EQ(many->getItemPosition(widgetOf((*many)[7])), 7);

    Widget one = widgetOf((*many)[3]);
    (*many)[3]->build(many->pulldown());
    EXPECT_EQ(widgetOf((*many)[3]), one);
    LmMenuItem* added = many->addAction("late", note, nullptr, 0);   // at the end: the pane is built
    EXPECT_TRUE(XtIsManaged(widgetOf(added)));
    EXPECT_EQ((*many)[30], added);
    EXPECT_EQ(many->getItemPosition("late"), 30);
    std::unique_ptr<LmMenuItem> taken(many->removeItem("5"));
    EXPECT_EQ(widgetOf(taken.get()), nullptr);
    pane(window, "File")->add(taken.release());   // an item can move
    EXPECT_TRUE(XtIsManaged(widgetOf(item(window, "5"))));

    LmMenu::useWorkProcs(false);
    EXPECT_TRUE(widgetOf((*window->addMenuPane("Now", fileTable))[0]));
    LmMenu::useWorkProcs(true);
    delete window;
}

TEST_F(MenuBarOnScreen, TwentyFiveWidgetsMakeABatch)
{
    LmSubMenu* submenu = keeper->addMenuPane("Many");
    Widget pane = XmCreatePulldownMenu(keeper->mainWindowWidget(), const_cast<char*>("pane"), nullptr, 0);
    for (int i = 0; i < 30; ++i) {
        submenu->addAction("item", note, nullptr)->build(pane);
        EXPECT_EQ(SubMenu::_numUnmanagedWidgets, i < 25 ? i + 1 : i - 24) << i;
    }
    EXPECT_TRUE(XtIsManaged(widgetOf((*submenu)[24])));
    EXPECT_FALSE(XtIsManaged(widgetOf((*submenu)[25])));
    (*submenu)[25]->hide();
    delete (*submenu)[26];
    XtDestroyWidget(widgetOf((*submenu)[26]));
    EXPECT_EQ(SubMenu::_numUnmanagedWidgets, 2);
    LmMenuItem::manageAll();
    EXPECT_TRUE(XtIsManaged(widgetOf((*submenu)[28])));
}

TEST_F(MenuBarOnScreen, ASharedPaneServesSeveralButtons)
{
    auto* shared = new LmSubMenu("Shared", lineTable, nullptr);
    auto* first = new LmSubMenu("First", nullptr, nullptr, shared);
    keeper->addMenuPane("Any")->addSubmenu(shared);
    keeper->menu()->addSubmenu(first);
    keeper->show();
    settleUntil([&] { return isViewable(keeper->viewWidget()) && !anyPending(); });
    EXPECT_EQ(first->pulldown(), shared->pulldown());
    click(widgetOf(first));
    ASSERT_TRUE(isViewable(shared->pulldown()));
    click(widgetOf(item(keeper, "Dotted")));
    EXPECT_EQ(ran, std::vector<std::string>{"Dotted"});
}

TEST_F(MenuBarOnScreen, AThousandMenusAndWindowsComeAndGoWithoutIdleTime)
{
    for (int i = 0; i < 1000; ++i) {
        auto* window = new BarWindow;
        window->setMenuBar(barTable);
        if (i % 4 == 0)
            window->show();
        if (i % 4 == 1)
            window->menu()->build(window->mainWindowWidget());
        if (i % 8 == 4)
            item(window, "Dotted")->baseWidget();
        if (i % 3 == 0)
            delete window->menu();
        delete window;
    }
    EXPECT_FALSE(anyPending());
}
