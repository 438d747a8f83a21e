#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmWindow.h"

#include <Xm/Label.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>

using namespace lmtest;

namespace {

struct Window1 : LmWindow {
    using LmWindow::LmWindow;
    Boolean okToQuit() override { return agrees; }
    Widget setUpInterface(Widget parent) override
    {
        EXPECT_TRUE(buildingInterface());
        return XmCreateLabel(parent, const_cast<char*>("view"), nullptr, 0);
    }
    Boolean agrees = True;
};

struct WindowOnScreen : OnScreen {
    Window1* keeper = new Window1("keeper");   // so that no test ends the program with its last window
};

}   // namespace

TEST_F(WindowOnScreen, TheViewIsMadeOnceAndLate)
{
    auto* window = new Window1("window");
    EXPECT_EQ(window->viewWidget(), nullptr);
    window->build();
    Widget view = window->viewWidget();

    window->show();
    settle();
    EXPECT_TRUE(isViewable(view));
    window->hide();
    settle();
    EXPECT_FALSE(isViewable(view));
    EXPECT_EQ(window->iconState(), LmSimpleWindow::CLOSED);

    window->removeView();
    Widget scrolled = XtVaCreateManagedWidget("scrolled", xmScrolledWindowWidgetClass, window->mainWindowWidget(), nullptr);
    window->addView(XtVaCreateWidget("text", xmTextWidgetClass, scrolled, nullptr));
    EXPECT_EQ(window->viewWidget(), scrolled);
    XtDestroyWidget(scrolled);
    EXPECT_EQ(window->viewWidget(), nullptr);
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

    const std::string greeting = "Grüße";
    keeper->setTitle(greeting.c_str());
    keeper->setIconName("small");
    EXPECT_EQ(keeper->getTitle(), greeting);
    EXPECT_EQ(propertyOf(keeper->baseWidget(), "_NET_WM_NAME"), greeting);
    EXPECT_EQ(propertyOf(keeper->baseWidget(), "_NET_WM_ICON_NAME"), "small");
    setenv("BRAMBLEON_ROOT", "/views/alpha", 1);
    keeper->setTitle("Editor");
    EXPECT_STREQ(keeper->getTitle(), "Editor (alpha)");
    unsetenv("BRAMBLEON_ROOT");
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

    window->open();
    settleUntil([&] { return isViewable(window->viewWidget()); });
    window->iconize();
    settleUntil([&] { return window->iconState() == LmSimpleWindow::CLOSED; });
    app().open();
    settleUntil([&] { return isViewable(window->viewWidget()); });
    delete window;
}
