#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmContextHelp.h"
#include "LmCursorList.h"
#include "LmVersion.h"
#include "LmWidgetTools.h"
#include "LmWindow.h"

#include <X11/Shell.h>
#include <X11/Xresource.h>
#include <Xm/Label.h>
#include <Xm/Text.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lmtest;
using namespace std::chrono_literals;

namespace {

struct Picky : LmSimpleWindow {
    explicit Picky(const char* name, Boolean consent = True) : LmSimpleWindow(name, nullptr, 0), agrees(consent) {}
    Boolean okToQuit() override { return agrees; }
    void handleRawEvent(XEvent* event) override { lastRawEvent = event->type; }
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmTextWidgetClass, parent, XmNwidth, 200, XmNheight, 100, nullptr);
    }
    Boolean agrees;
    int lastRawEvent = 0;
};

/// An application object of the child process's own, with these arguments after the program's name.
struct Program {
    explicit Program(std::vector<std::string> commandLine) : words(std::move(commandLine))
    {
        for (std::string& word : words)
            arguments.push_back(word.data());
        count = static_cast<int>(arguments.size());
        arguments.push_back(nullptr);
        application = new LmApp("Prog", &count, arguments.data(), options, 1);
    }
    std::vector<std::string> words;
    std::vector<char*> arguments;
    int count = 0;
    XrmOptionDescRec options[1] = {{const_cast<char*>("-speed"), const_cast<char*>("*speed"), XrmoptionSepArg, nullptr}};
    LmApp* application;
};

std::string databaseValue(const char* name)
{
    char* type = nullptr;
    XrmValue value = {};
    return XrmGetResource(XtDatabase(theApplication->display()), name, "X.Y", &type, &value) ? value.addr : "(none)";
}

using AppOnScreen = OnScreen;
struct AppStart : testing::Test {};

}   // namespace

TEST(AppStart, TheCommandLineIsTakenApart)
{
    EXPECT_EQ(exitStatusOf([] {
                  Program program(
                      {"/some/where/prog", "-iconic", "a", "-speed", "9", "-debugLevel", "3", "-geometry", "300x200+5+6", "b"});
                  const LmApp& app = *program.application;
                  EXPECT_STREQ(app.name(), "prog");
                  EXPECT_EQ(program.count, 3);
                  EXPECT_EQ(app.argc(), 3);
                  EXPECT_STREQ(app.argv(1), "a");
                  EXPECT_STREQ(app.argv(2), "b");
                  EXPECT_EQ(app.argv(3), nullptr);
                  EXPECT_EQ(app.argv(-1), nullptr);
                  EXPECT_EQ(databaseValue("prog.speed"), "9");
                  EXPECT_EQ(databaseValue("prog.debugLevel"), "3");
                  EXPECT_STREQ(app.shellGeometry(), "300x200+5+6");
                  EXPECT_TRUE(app.iconic());
                  EXPECT_EQ(databaseValue("prog.helpMenu.mnemonic"), "H");
              }),
              0);
}

TEST(AppStart, OddProgramNamesAndLocalesAreSurvived)
{
    struct Case {
        const char* name;   // null: no argument at all
        const char* expected;
    };
    static const std::string fourKilobytes(4096, 'x');
    for (const Case& c : {Case{nullptr, "main"}, Case{"", "main"}, Case{"dir/", "main"}, Case{"a/b/c", "c"},
                          Case{fourKilobytes.c_str(), fourKilobytes.c_str()}}) {
        EXPECT_EQ(exitStatusOf([&] {
                      setenv("LC_ALL", "xx_YY", 1);
                      std::string name = c.name ? c.name : "";
                      char* arguments[] = {c.name ? name.data() : nullptr, nullptr};
                      int count = c.name ? 1 : 0;
                      LmApp app("Prog", &count, arguments, nullptr, 0);
                      EXPECT_STREQ(app.name(), c.expected);
                      (new LmSimpleWindow("window"))->show();
                      app.handlePendingEvents();
                  }),
                  0)
            << c.expected;
    }
    EXPECT_EQ(exitStatusOf([] { LmApp app("Prog", nullptr, nullptr, nullptr, 0); }), 0);
}

TEST(AppStart, WithoutDisplayOrApplicationTheProgramEndsAndSaysWhy)
{
    const auto saying = [](const std::function<void()>& action) {
        int status = 0;
        const std::string text = stderrOf([&] { status = exitStatusOf(action); });
        return std::to_string(status) + " " + text;
    };
    EXPECT_EQ(saying([] { new LmSimpleWindow("early"); }), "1 LmSimpleWindow: construct the application object first\n");
    EXPECT_EQ(saying([] {
                  setenv("DISPLAY", ":987", 1);
                  Program program({"prog"});
              }),
              "1 Error: Prog: Can't Open Display\n");
}

TEST(AppStart, TheSearchPathIsExtendedOnce)
{
    const auto pathAfter = [](const char* before) {
        if (before)
            setenv("XFILESEARCHPATH", before, 1);
        else
            unsetenv("XFILESEARCHPATH");
        set_XFILESEARCHPATH();
        set_XFILESEARCHPATH();
        return std::string(getenv("XFILESEARCHPATH"));
    };
    EXPECT_EQ(pathAfter(nullptr), "/usr/lib/X11/%T/%N%S");
    EXPECT_EQ(pathAfter("/mine/%N"), "/mine/%N:/usr/lib/X11/%T/%N%S");
    EXPECT_EQ(pathAfter("/usr/lib/X11/%T/%N%S:/mine/%N"), "/usr/lib/X11/%T/%N%S:/mine/%N");
}

TEST(AppStart, AnExistingApplicationIsAdoptedOnce)
{
    EXPECT_EQ(exitStatusOf([] {
                  XtAppContext context;
                  int argc = 0;
                  Widget shell = XtVaOpenApplication(&context, "Theirs", nullptr, 0, &argc, nullptr, nullptr,
                                                     applicationShellWidgetClass, nullptr);
                  LmCreateAppStub(shell);
                  LmApp* first = theApplication;
                  LmCreateAppStub(shell);
                  EXPECT_EQ(theApplication, first);
                  EXPECT_EQ(first->appContext(), context);
                  EXPECT_STREQ(first->applicationClass(), "Theirs");
                  EXPECT_EQ(first->baseWidget(), shell);
                  EXPECT_EQ(first->mainWindow(), nullptr);
              }),
              0);
}

/// Kills the server under a program of its own and measures how long the program takes to end, and how.
static void expectEndWithTheServer(bool busy)
{
    Server victim;
    const pid_t child = fork();
    if (child == 0) {
        setenv("DISPLAY", victim.displayName().c_str(), 1);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        Program program({"prog"});
        (new Picky("window"))->show();
        program.application->handlePendingEvents();
        if (busy)
            program.application->busy("working");
        program.application->run();
    }
    Display* watcher = XOpenDisplay(victim.displayName().c_str());
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    while (count < 2) {   // the program's shells exist
        if (children)
            XFree(children);
        XQueryTree(watcher, DefaultRootWindow(watcher), &root, &parent, &children, &count);
    }
    XFree(children);
    XCloseDisplay(watcher);
    const auto start = std::chrono::steady_clock::now();
    victim.crash();
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

TEST(AppStart, TheServersDeathEndsTheIdleProgram) { expectEndWithTheServer(false); }

TEST(AppStart, TheServersDeathEndsTheBusyProgram) { expectEndWithTheServer(true); }

TEST_F(AppOnScreen, TheFirstWindowIsTheMainWindowUntilItGoes)
{
    auto* first = new Picky("first");
    auto* second = new Picky("second");
    EXPECT_EQ(app().mainWindow(), first);
    app().setMainWindow(second);
    EXPECT_EQ(app().mainWindow(), second);
    app().setMainWindow(nullptr);
    delete first;
    EXPECT_EQ(app().mainWindow(), second);
}

TEST_F(AppOnScreen, QuittingAsksEveryWindowAndTheMainWindowLast)
{
    auto* main = new Picky("main", False);
    auto* stays = new Picky("stays", False);
    auto* goes = new Picky("goes");
    goes->show();
    settle();
    sendProtocol(goes->baseWidget(), "_WM_QUIT_APP");
    EXPECT_EQ(app().windows(), (std::vector<LmSimpleWindow*>{main, stays}));

    stays->agrees = True;
    app().quitYourself();
    EXPECT_EQ(app().windows(), std::vector<LmSimpleWindow*>{main});
}

TEST(AppStart, TheLastWindowEndsTheProgram)
{
    EXPECT_EQ(exitStatusOf([] {
                  Program program({"prog"});
                  auto* window = new Picky("only");
                  window->show();
                  delete window;
                  _exit(9);   // never reached
              }),
              0);
}

TEST_F(AppOnScreen, BusyNestsBlocksInputAndReturns)
{
    Picky window("window");
    window.show();
    settle();
    click(window.viewWidget(), 20, 20);

    app().busy();
    app().busy();
    EXPECT_TRUE(window.isBusy());
    settle();
    Window child = None;
    int x = 0, y = 0;
    XTranslateCoordinates(app().display(), XtWindow(window.baseWidget()), XtWindow(window.baseWidget()), 20, 20, &x, &y, &child);
    XWindowAttributes attributes;
    ASSERT_NE(child, static_cast<Window>(None));
    XGetWindowAttributes(app().display(), child, &attributes);
    EXPECT_EQ(attributes.c_class, InputOnly);   // lies over everything

    const Cursor before = app().busyCursor();
    app().progressing();
    EXPECT_EQ(app().busyCursor(), before);   // the first progress shows the first frame again
    app().progressing();
    EXPECT_NE(app().busyCursor(), before);
    app().notBusy();
    EXPECT_TRUE(window.isBusy());
    app().notBusy();
    EXPECT_FALSE(window.isBusy());
    app().progressing();   // not busy: nothing
    {
        LmBusyScope busy;
        Picky late("late");
        EXPECT_TRUE(late.isBusy());
    }
    EXPECT_EQ(app().busyCount(), 0);
}

TEST_F(AppOnScreen, PendingEventsAreHandledAndAFloodIsNot)
{
    Picky window("window");
    window.show();
    app().handlePendingEvents();
    EXPECT_TRUE(XtIsRealized(window.viewWidget()));

    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const XtInputId flood = XtAppAddInput(
        app().appContext(), pipe[0], reinterpret_cast<XtPointer>(XtInputReadMask), [](XtPointer, int*, XtInputId*) {}, nullptr);
    ASSERT_EQ(write(pipe[1], "x", 1), 1);   // never read
    bool due = false;
    XtAppAddTimeOut(
        app().appContext(), 0, [](XtPointer flag, XtIntervalId*) { *static_cast<bool*>(flag) = true; }, &due);
    XEvent event = {};
    event.type = PropertyNotify;   // of a window that has no widget
    event.xproperty.window = DefaultRootWindow(app().display());
    XSelectInput(app().display(), event.xproperty.window, PropertyChangeMask);
    XSendEvent(app().display(), event.xproperty.window, False, PropertyChangeMask, &event);

    const auto start = std::chrono::steady_clock::now();
    app().handlePendingEvents();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
    EXPECT_TRUE(due);
    EXPECT_EQ(window.lastRawEvent, PropertyNotify);
    XtRemoveInput(flood);
    close(pipe[0]);
    close(pipe[1]);
}

TEST_F(AppOnScreen, TextsCanBeReplacedByResources)
{
    app().setVersionString("2.1");
    EXPECT_STREQ(app().versionString(), "2.1");
    setResource("*Release: 2.1 of the user");
    app().setVersionString("Release");
    EXPECT_STREQ(app().versionString(), "2.1 of the user");
    app().setVersionString(app().versionString());
    EXPECT_STREQ(app().versionString(), "2.1 of the user");

    char line[128];
    libzentalm_sprintf_verid(line);
    EXPECT_EQ(stdoutOf([] { libzentalm_print_verid(); }), line);
    EXPECT_EQ(std::string(line).substr(0, 47), "libzentalm                        2003.06.10+ (");
}

TEST_F(AppOnScreen, WidgetToolsTellAndDoWhatTheySay)
{
    Widget label = XtVaCreateWidget("label", xmLabelWidgetClass, shell(), nullptr);
    EXPECT_STREQ(XtClassName(label), "XmLabel");
    EXPECT_FALSE(isPoppedUp(label));
    EXPECT_FALSE(isPoppedUp(shell()));
    setPopupCursors(nullptr, app().busyCursor());
    setPopupCursors(label, app().busyCursor());
    XtManageChild(label);
    XtPopup(shell(), XtGrabNone);
    EXPECT_TRUE(isPoppedUp(shell()));
    UnmanageChildrenOfWidget(shell());
    EXPECT_FALSE(XtIsManaged(label));
    ManageChildrenOfWidget(shell());
    EXPECT_TRUE(XtIsManaged(label));
    EXPECT_FALSE(isBeingDestroyed(label));
    XtAddCallback(
        label, XmNdestroyCallback, [](Widget w, XtPointer, XtPointer) { EXPECT_TRUE(isBeingDestroyed(w)); }, nullptr);
}
