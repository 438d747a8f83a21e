#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include <X11/Shell.h>
#include <X11/Xresource.h>
#include <Xm/Text.h>

#include <chrono>
#include <map>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lmtest;
using namespace std::chrono_literals;

namespace {

struct Picky : LmSimpleWindow {
    explicit Picky(const char* name, Boolean consent = True) : LmSimpleWindow(name, nullptr, 0), agrees(consent) {}
    Boolean okToQuit() override { return agrees; }
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmTextWidgetClass, parent, XmNwidth, 200, XmNheight, 100, nullptr);
    }
    Boolean agrees;
};

/// An application object of the child process's own, with this command line.
LmApp& start(std::vector<std::string> words)
{
    static std::vector<std::string> kept;
    static std::vector<char*> arguments;
    static int count;
    static XrmOptionDescRec options[] = {{const_cast<char*>("-speed"), const_cast<char*>("*speed"), XrmoptionSepArg, nullptr}};
    kept = std::move(words);
    for (std::string& word : kept)
        arguments.push_back(word.data());
    count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    return *new LmApp("Prog", &count, arguments.data(), options, 1);
}

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
    const auto check = [] {
        LmApp& app = start({"/some/where/prog", "-iconic", "a", "-speed", "9", "-geometry", "300x200+5+6", "b"});
        EXPECT_STREQ(app.name(), "prog");
        EXPECT_EQ(app.argc(), 3);
        EXPECT_STREQ(app.argv(2), "b");
        EXPECT_EQ(app.argv(3), nullptr);
        EXPECT_EQ(app.argv(-1), nullptr);
        EXPECT_EQ(databaseValue("prog.speed"), "9");
        EXPECT_STREQ(app.shellGeometry(), "300x200+5+6");
        EXPECT_TRUE(app.iconic());
    };
    EXPECT_EQ(exitStatusOf(check), 0);
}

TEST(AppStart, OddProgramNamesAndLocalesAreSurvived)
{
    const std::string fourKilobytes(4096, 'x');
    setenv("LC_ALL", "xx_YY", 1);
    for (const auto& [name, expected] : std::map<std::string, std::string>{
             {"", "main"}, {"dir/", "main"}, {"a/b/c", "c"}, {fourKilobytes, fourKilobytes}, {"no argument", "main"}}) {
        const auto check = [&] {
            LmApp& app = start(name == "no argument" ? std::vector<std::string>() : std::vector{name});
            EXPECT_EQ(app.name(), expected);
            (new LmSimpleWindow("window"))->show();
            app.handlePendingEvents();
        };
        EXPECT_EQ(exitStatusOf(check), 0) << name;
    }
    EXPECT_EQ(exitStatusOf([] { LmApp app("Prog", nullptr, nullptr, nullptr, 0); }), 0);
}

TEST(AppStart, WithoutDisplayOrApplicationTheProgramEndsAndSaysWhy)
{
    const auto saying = [](const std::function<void()>& action) { return stderrOf([&] { EXPECT_EQ(exitStatusOf(action), 1); }); };
    EXPECT_EQ(saying([] { new LmSimpleWindow("early"); }), "LmSimpleWindow: construct the application object first\n");
    setenv("DISPLAY", ":987", 1);
    EXPECT_EQ(saying([] { start({"prog"}); }), "Error: Prog: Can't Open Display\n");
}

TEST(AppStart, AnExistingApplicationIsAdoptedOnce)
{
    const auto check = [] {
        XtAppContext context;
        int argc = 0;
        Widget shell =
            XtOpenApplication(&context, "Theirs", nullptr, 0, &argc, nullptr, nullptr, applicationShellWidgetClass, nullptr, 0);
        LmCreateAppStub(shell);
        LmApp* first = theApplication;
        LmCreateAppStub(shell);
        EXPECT_EQ(theApplication, first);
        EXPECT_EQ(first->baseWidget(), shell);
    };
    EXPECT_EQ(exitStatusOf(check), 0);
}

/// Kills the server under a program of its own, which ends in time and says so.
static void expectEndWithTheServer(bool busy)
{
    Server victim;
    int shown[2];
    ASSERT_EQ(pipe(shown), 0);
    const pid_t child = fork();
    if (child == 0) {
        setenv("DISPLAY", victim.displayName().c_str(), 1);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        LmApp& app = start({"prog"});
        (new Picky("window"))->show();
        app.handlePendingEvents();
        if (busy)
            app.busy("working");
        EXPECT_EQ(write(shown[1], "!", 1), 1);
        app.run();
    }
    char byte;
    ASSERT_EQ(read(shown[0], &byte, 1), 1);
    const auto start = std::chrono::steady_clock::now();
    victim.crash();
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

TEST(AppStart, TheServersDeathEndsTheIdleProgram) { expectEndWithTheServer(false); }

TEST(AppStart, TheServersDeathEndsTheBusyProgram) { expectEndWithTheServer(true); }

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
    const auto check = [] {
        start({"prog"});
        delete new Picky("only");
        _exit(9);   // never reached
    };
    EXPECT_EQ(exitStatusOf(check), 0);
}

TEST_F(AppOnScreen, BusyNestsBlocksInputAndReturns)
{
    new LmSimpleWindow("keeper");   // the program ends with its last window
    Picky window("window");
    window.show();
    settle();
    app().busy();
    app().busy();
    EXPECT_TRUE(window.isBusy());
    settle();
    Window root = None, parent = None, *children = nullptr;
    unsigned count = 0;
    XQueryTree(app().display(), XtWindow(window.baseWidget()), &root, &parent, &children, &count);
    XWindowAttributes attributes;
    XGetWindowAttributes(app().display(), children[count - 1], &attributes);
    EXPECT_EQ(attributes.c_class, InputOnly);   // lies over everything
    XFree(children);
    const Cursor before = app().busyCursor();
    app().progressing();
    EXPECT_EQ(app().busyCursor(), before);   // the first progress shows the first frame again
    app().progressing();
    EXPECT_NE(app().busyCursor(), before);
    app().notBusy();
    EXPECT_TRUE(window.isBusy());
    app().notBusy();
    EXPECT_FALSE(window.isBusy());
    {
        LmBusyScope busy;
        Picky late("late");
        EXPECT_TRUE(late.isBusy());
    }
    EXPECT_EQ(app().busyCount(), 0);
}

TEST_F(AppOnScreen, PendingEventsAreHandledAndAFloodIsNot)
{
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const XtInputId flood = XtAppAddInput(
        app().appContext(), pipe[0], reinterpret_cast<XtPointer>(XtInputReadMask), [](XtPointer, int*, XtInputId*) {}, nullptr);
    ASSERT_EQ(write(pipe[1], "x", 1), 1);   // never read
    bool due = false;
    XtAppAddTimeOut(
        app().appContext(), 0, [](XtPointer flag, XtIntervalId*) { *static_cast<bool*>(flag) = true; }, &due);
    const auto start = std::chrono::steady_clock::now();
    app().handlePendingEvents();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
    EXPECT_TRUE(due);
    XtRemoveInput(flood);
    close(pipe[0]);
    close(pipe[1]);
}
