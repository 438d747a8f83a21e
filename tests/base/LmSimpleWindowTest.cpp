#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmWindow.h"

#include <X11/Xutil.h>
#include <Xm/Label.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>

using namespace lmtest;

namespace {

struct Window1 : LmWindow {
    explicit Window1(const char* name, ArgList args = nullptr, Cardinal count = 0) : LmWindow(name, args, count) {}
    Boolean okToQuit() override { return agrees; }
    Widget setUpInterface(Widget parent) override
    {
        EXPECT_TRUE(buildingInterface());
        return XmCreateLabel(parent, const_cast<char*>("view"), nullptr, 0);
    }
    void setUpWindowProperties() override { ++propertiesSet; }
    Boolean agrees = True;
    int propertiesSet = 0;
};

struct WindowOnScreen : OnScreen {
    Window1* keeper = new Window1("keeper");   // so that no test ends the program with its last window
};

std::string iconNameOf(Widget shell)
{
    String name = nullptr;
    XtVaGetValues(shell, XtNiconName, &name, nullptr);
    return name ? name : "";
}

}   // namespace

TEST_F(WindowOnScreen, TheViewIsMadeOnceAndLate)
{
    auto* window = new Window1("window");
    EXPECT_EQ(window->visibleState(), 2);
    EXPECT_EQ(window->viewWidget(), nullptr);
    window->build();
    Widget view = window->viewWidget();
    EXPECT_EQ(window->visibleState(), 0);
    EXPECT_EQ(window->propertiesSet, 0);

    window->show();
    settle();
    EXPECT_EQ(window->viewWidget(), view);
    EXPECT_EQ(window->propertiesSet, 1);
    EXPECT_TRUE(isViewable(view));
    EXPECT_EQ(static_cast<Widget>(*window), window->mainWindowWidget());
    window->hide();
    settle();
    EXPECT_FALSE(isViewable(view));
    EXPECT_EQ(window->iconState(), LmSimpleWindow::CLOSED);
    window->show();
    settle();
    EXPECT_TRUE(isViewable(view));

    window->removeView();
    Widget scrolled = XtVaCreateManagedWidget("scrolled", xmScrolledWindowWidgetClass, window->mainWindowWidget(), nullptr);
    window->addView(XtVaCreateWidget("text", xmTextWidgetClass, scrolled, nullptr));
    EXPECT_EQ(window->viewWidget(), scrolled);
    XtDestroyWidget(scrolled);
    EXPECT_EQ(window->viewWidget(), nullptr);
    window->removeView();
    delete window;
}

TEST_F(WindowOnScreen, TitlesFollowResourcesAndReachOldAndNewWindowManagers)
{
    setResource("*secret: Known");
    keeper->setTitle("secret");
    keeper->show();
    settle();
    EXPECT_STREQ(keeper->getTitle(), "Known");
    EXPECT_EQ(propertyOf(keeper->baseWidget(), "WM_NAME"), "Known");
    EXPECT_EQ(propertyOf(keeper->baseWidget(), "_NET_WM_NAME"), "Known");

    keeper->setTitle("Gr\xc3\xbc\xc3\x9f"
                     "e");
    keeper->setIconName("small");
    EXPECT_STREQ(keeper->getTitle(), "Gr\xc3\xbc\xc3\x9f"
                                     "e");
    EXPECT_EQ(propertyOf(keeper->baseWidget(), "_NET_WM_NAME"), "Gr\xc3\xbc\xc3\x9f"
                                                                "e");
    EXPECT_EQ(propertyOf(keeper->baseWidget(), "_NET_WM_ICON_NAME"), "small");
    EXPECT_EQ(iconNameOf(keeper->baseWidget()), "small");

    setenv("BRAMBLEON_ROOT", "/views/alpha", 1);
    keeper->setTitle("Editor");
    EXPECT_STREQ(keeper->getTitle(), "Editor (alpha)");
    unsetenv("BRAMBLEON_ROOT");

    keeper->setClassHint("Special");
    XClassHint hint;
    ASSERT_TRUE(XGetClassHint(app().display(), XtWindow(keeper->baseWidget()), &hint));
    EXPECT_STREQ(hint.res_class, "Special");
    EXPECT_STREQ(hint.res_name, "keeper");
    XFree(hint.res_name);
    XFree(hint.res_class);
}

TEST_F(WindowOnScreen, TheCloseRequestIsObeyedByThoseWhoAgree)
{
    auto* window = new Window1("window");
    window->show();
    settle();
    window->agrees = False;
    sendProtocol(window->baseWidget(), "WM_DELETE_WINDOW");
    EXPECT_TRUE(LmComponent::isComponent(window));
    window->agrees = True;
    sendProtocol(window->baseWidget(), "WM_DELETE_WINDOW");
    EXPECT_FALSE(LmComponent::isComponent(window));
}

TEST_F(WindowOnScreen, ThirteenShellArgumentsAreUsedAndNoMore)
{
    std::vector<Arg> args;
    for (int i = 0; i < 13; ++i)
        args.push_back({const_cast<char*>("title"), reinterpret_cast<XtArgVal>(i == 12 ? "thirteenth" : "early")});
    args.push_back({const_cast<char*>("title"), reinterpret_cast<XtArgVal>("beyond")});
    auto* window = new Window1("window", args.data(), static_cast<Cardinal>(args.size()));
    EXPECT_STREQ(window->getTitle(), "thirteenth");
    delete window;
}

TEST_F(WindowOnScreen, AWindowOutlivesItsShell)
{
    keeper->show();
    settle();
    XtDestroyWidget(keeper->baseWidget());
    EXPECT_EQ(keeper->baseWidget(), nullptr);
    EXPECT_EQ(keeper->mainWindowWidget(), nullptr);
    keeper->show();
    keeper->build();
    keeper->setTitle("gone");
    keeper->raise();
    keeper->iconify();
    app().busy();
    app().notBusy();
}

TEST_F(WindowOnScreen, TheWindowManagerIconifiesAndOpens)
{
    startWindowManager();
    auto* window = new Window1("window");
    window->iconify();
    window->show();
    keeper->show();
    settleUntil([&] { return isViewable(keeper->viewWidget()); });
    EXPECT_FALSE(isViewable(window->viewWidget()));   // appears iconified
    EXPECT_EQ(window->iconState(), LmSimpleWindow::CLOSED);

    window->open();
    settleUntil([&] { return isViewable(window->viewWidget()); });
    window->iconize();
    settleUntil([&] { return !isViewable(window->viewWidget()); });
    settleUntil([&] { return window->iconState() == LmSimpleWindow::CLOSED; });
    app().open();
    settleUntil([&] { return isViewable(window->viewWidget()); });
    window->lower();
    EXPECT_EQ(window->stackingState(), 1);
    app().raise();
    EXPECT_EQ(window->stackingState(), 0);
    delete window;
}
