#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmMenuAction.h"
#include "LmMenuBar.h"
#include "LmSubMenu.h"
#include "LmWindow.h"

#include <Xm/Label.h>
#include <Xm/MenuShell.h>

#include <span>

using namespace lmtest;

namespace {

using Names = std::vector<std::string>;
Names ran;

void note(Widget w, XtPointer, XtPointer) { ran.emplace_back(XtName(w)); }
void deleteObject(Widget, XtPointer object, XtPointer) { delete static_cast<LmComponent*>(object); }

LmMenuDesc lineTable[] = {{MENU_ACTION, "Dotted", note}, {MENU_ACTION, "Dashed", note}, {MENU_END}};
LmMenuDesc fileTable[] = {
    {MENU_ACTION, "Open", note}, {MENU_SUBMENU, "Line", nullptr, lineTable}, {MENU_ACTION_WIDGET, "Quit", note}, {MENU_END}};
LmMenuDesc viewTable[] = {{MENU_TOGGLE, "Small", note}, {MENU_TOGGLE, "Large", note}, {MENU_END}};
LmMenuDesc barTable[] = {
    {MENU_SUBMENU, "File", nullptr, fileTable}, {MENU_RADIO_SUBMENU, "View", nullptr, viewTable}, {MENU_END}};

struct BarWindow : LmWindow {
    BarWindow() : LmWindow("window") {}
    Widget setUpInterface(Widget parent) override { return XmCreateLabel(parent, const_cast<char*>("view"), nullptr, 0); }
};

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
    using LmMenuItem::_workProcList;
    using LmMenuItem::widgetOf;
};

Widget widgetOf(LmMenuItem* item) { return SubMenu::widgetOf(item); }
bool nonePending() { return SubMenu::_workProcList == nullptr; }

struct MenuBarOnScreen : OnScreen {
    MenuBarOnScreen()
    {
        for (const char* line :
             {"*File.mnemonic: F", "*Line.mnemonic: L", "*Dashed.mnemonic: s", "*Quit.accelerator: Ctrl<Key>q"})
            setResource(line);
    }
    BarWindow* shown()
    {
        auto* window = new BarWindow;
        window->setMenuBar(barTable);
        window->show();
        settleUntil([&] { return isViewable(window->viewWidget()); });
        bool clicked = false;
        const XtEventHandler heard = [](Widget, XtPointer flag, XEvent*, Boolean*) { *static_cast<bool*>(flag) = true; };
        XtAddEventHandler(window->viewWidget(), ButtonReleaseMask, False, heard, &clicked);
        click(window->viewWidget());   // a window manager gives it the focus, and hands the click on, in its own time
        settleUntil([&] { return clicked && (!isManaged || hasFocus(window)); });
        XtRemoveEventHandler(window->viewWidget(), ButtonReleaseMask, False, heard, &clicked);
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
bool isPosted(LmWindow* window, const char* name) { return isViewable(pane(window, name)->pulldown()); }
void choose(LmWindow* window, const char* name) { click(widgetOf(item(window, name))); }

/// What ran since the last call.
Names heard() { return std::exchange(ran, {}); }

/// A way in which a menu comes to its end.
struct Death {
    const char* name;
    void (*strike)(BarWindow*);
};
void deleteWhenOpened(BarWindow* window, LmComponent* victim)
{
    XtAddCallback(widgetOf(item(window, "Open")), XmNactivateCallback, deleteObject, victim);
    choose(window, "Open");
}
const Death deaths[] = {{"pane", [](BarWindow* window) { delete pane(window, "File"); }},
                        {"bar", [](BarWindow* window) { delete window->menu(); }},
                        {"window", [](BarWindow* window) { delete window; }},
                        {"chosen item", [](BarWindow* window) { deleteWhenOpened(window, item(window, "Open")); }},
                        {"pane in its callback", [](BarWindow* window) { deleteWhenOpened(window, item(window, "File")); }},
                        {"window in a callback", [](BarWindow* window) { deleteWhenOpened(window, window); }}};

void endOf(BarWindow* window)
{
    settle();
    if (LmComponent::isComponent(window))
        key(XK_Escape), delete window;
    settle();
}

}   // namespace

INSTANTIATE_TEST_SUITE_P(Manager, ManagedMenuBarOnScreen, testing::Values(false, true));

TEST_P(ManagedMenuBarOnScreen, ItemsAreChosenByPointerKeysAndAccelerators)
{
    BarWindow* window = shown();
    settleUntil(nonePending);
    choose(window, "File");
    EXPECT_TRUE(isPosted(window, "File"));
    choose(window, "Open");
    EXPECT_FALSE(isPosted(window, "File"));
    EXPECT_EQ(heard(), Names{"Open"});

    for (const std::vector<KeySym>& locks : {std::vector<KeySym>{}, {XK_Num_Lock}, {XK_Caps_Lock}, {XK_Num_Lock, XK_Caps_Lock}}) {
        for (KeySym lock : locks)
            key(lock);
        key(XK_f, {XK_Alt_L});
        key(XK_l);
        settleUntil([&] { return isPosted(window, "Line"); });
        key(XK_s);
        key(XK_q, {XK_Control_L});
        EXPECT_EQ(heard(), (Names{"Dashed", "Quit"})) << locks.size();
        for (KeySym lock : locks)
            key(lock);
    }
    press(widgetOf(item(window, "File")), 5, 5);
    pointAt(widgetOf(item(window, "View")), 5, 5);
    pointAt(widgetOf(item(window, "Large")), 5, 5);
    release();
    EXPECT_EQ(heard(), Names{"Large"});
    delete window;
}

TEST_P(ManagedMenuBarOnScreen, APaneThatIsPostedEarlyIsFilledThen)
{
    BarWindow* window = shown();
    delete pane(window, "File");
    delete pane(window, "View");
    window->addRadioMenuPane("View", viewTable);
    window->addMenuPane("File", fileTable);
    settle();   // leaves no idle time
    ASSERT_TRUE(pane(window, "File")->isPending());
    choose(window, "File");
    EXPECT_FALSE(pane(window, "File")->isPending());
    EXPECT_TRUE(pane(window, "Line")->isPending());
    choose(window, "Line");
    choose(window, "Dotted");
    EXPECT_EQ(heard(), Names{"Dotted"});
    EXPECT_TRUE(pane(window, "View")->isPending());
    EXPECT_TRUE(item(window, "Small")->baseWidget());   // asks for everything
    EXPECT_TRUE(nonePending());
    delete window;
}

TEST_F(MenuBarOnScreen, TornOffPanesDieInEveryWay)
{
    for (const Death& death : deaths) {
        SCOPED_TRACE(death.name);
        BarWindow* window = shown();
        LmSubMenu* file = pane(window, "File");
        file->showTearOff(true);
        settleUntil(nonePending);
        choose(window, "File");
        Widget torn = file->pulldown();
        click(torn, 20, 4);
        key(XK_Escape);
        settleUntil([&] { return isViewable(torn) && !XmIsMenuShell(XtParent(torn)); });
        choose(window, "Open");   // leaves it on the screen
        ASSERT_TRUE(isViewable(torn));
        death.strike(window);
        endOf(window);
    }
}

TEST_P(ManagedMenuBarOnScreen, MenusDieWhilePosted)
{
    for (const Death& death : deaths) {
        SCOPED_TRACE(death.name);
        BarWindow* window = shown();
        choose(window, "File");
        ASSERT_TRUE(isPosted(window, "File"));
        death.strike(window);
        endOf(window);
        heard();

        BarWindow* next = shown();   // nothing of a grab is left
        choose(next, "File");
        choose(next, "Open");
        EXPECT_EQ(heard(), Names{"Open"});
        endOf(next);
    }
}

TEST_F(MenuBarOnScreen, PanesAreFilledInIdleTime)
{
    LmSubMenu* many = keeper->addMenuPane("Many");
    for (int i = 0; i < 30; ++i)
        many->addAction(std::to_string(i).c_str(), note, nullptr);
    keeper->show();
    settle();
    EXPECT_TRUE(isViewable(widgetOf(many)));
    EXPECT_EQ(widgetOf((*many)[0]), nullptr);
    settleUntil(nonePending);
    EXPECT_TRUE(XtIsManaged(widgetOf((*many)[29])));
    LmMenuItem* added = many->addAction("late", note, nullptr, 0);   // at the end: the pane is built
    EXPECT_EQ((*many)[30], added);
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
        if (i % 3 == 0)
            delete window->menu();
        delete window;
    }
    EXPECT_TRUE(nonePending());
}
