#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmForkIO.h"
#include "LmForkWindow.h"
#include "LmPeriodic.h"
#include "LmWarningDialog.h"
#include "support/handles.h"
#include "support/resources.h"

#include <Xm/Text.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

using namespace lmtest;
using Clock = std::chrono::steady_clock;

namespace {

/// A locale whose characters are UTF-8; made before the application is.
struct Utf8Locale {
    Utf8Locale() { setenv("LC_ALL", "C.UTF-8", 1); }
};

std::string textIn(const LmTextIO& pane) { return lm::XtString(XmTextGetString(pane.textWidget())).get(); }

long millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

/// How long, at most, a tick of 50 ms came late.
struct Ticks : LmCallbackObject {
    Ticks()
    {
        timer.addCallback(LmPeriodic::timerCallback, this, &Ticks::tick, nullptr);
        timer.start(0);
    }
    void tick(LmCallbackObject*, void*, void*)
    {
        if (++count > 1)
            longestLag = std::max(longestLag, millisecondsSince(last) - 50);
        last = Clock::now();
    }
    LmPeriodic timer{50};
    Clock::time_point last;
    long longestLag = 0;
    int count = 0;
};

/// Our resident memory in MB.
long residentMegabytes()
{
    std::ifstream file("/proc/self/statm");
    long total = 0, resident = 0;
    file >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE) / (1024 * 1024);
}

struct ForkIOOnScreen : Utf8Locale, OnScreen {
    void open()
    {
        show(pane, 600, 300);
        click(pane.textWidget());
    }
    void run(const char* command)
    {
        const size_t before = exits.values.size();
        pane.execCommand(command);
        settleUntil([&] { return exits.values.size() > before; }, 60000);
    }
    void untilText(const std::string& wanted)
    {
        settleUntil([&] { return textIn(pane) == wanted; });
    }

    ~ForkIOOnScreen() override { delete &pane; }   // which announces: the listeners still live

    LmForkIO& pane = *new LmForkIO("console", shell(), "> ");
    Heard exits{pane, LmForkIO::exitCallback};
    Heard keys{pane, LmForkIO::inputCallback};
};

struct ForkIOLongRun : ForkIOOnScreen {};

}   // namespace

TEST_F(ForkIOOnScreen, WhatACommandWritesStandsThereWhenItEnds)
{
    open();
    EXPECT_EQ(textIn(pane), "> ");
    EXPECT_FALSE(pane.activated());
    pane.execCommand("sh -c 'printf \"a\\377\\000\\303\"; sleep 0.1; printf \"\\251\\n\"; exit 3'");
    EXPECT_TRUE(pane.activated());
    EXPECT_EQ(textIn(pane), "> ");
    settleUntil([&] { return !exits.values.empty(); });
    EXPECT_EQ(exits.values, std::vector<int>{3 << 8});
    EXPECT_EQ(textIn(pane), "a\uFFFD\uFFFDé\n");
    EXPECT_FALSE(pane.activated());
    EXPECT_EQ(pane.process().operator->(), nullptr);

    pane.clearHistory();
    run("/no/such/program");
    EXPECT_EQ(textIn(pane), "lmtest: exec() failed for \"/no/such/program\" : No such file or directory\n");
    pane.clearHistory();
    pane.execCommand(" ");
    getTheWarningDialog()->unpost();
    EXPECT_FALSE(pane.activated());
    EXPECT_FALSE(pane.running());
    EXPECT_EQ(textIn(pane), "");

    for (int i = 0; i < reducedInSanitizer(100); ++i) {
        pane.clearHistory();
        run("sh -c 'yes 12345678é | head -c 59994; echo ends'");
        ASSERT_EQ(textIn(pane).size(), 59999U) << "run " << i;
    }
}

TEST_F(ForkIOOnScreen, TypedLinesReachTheCommandAndKeysEndIt)
{
    open();
    pane.execCommand("cat");
    type("hello");
    key(XK_Return);
    untilText("> hello\nhello\n> ");
    type("half");
    pane.doCtrlD();
    EXPECT_EQ(textIn(pane), "> hello\nhello\n> half");
    pane.doKillLine();
    pane.doCtrlD();
    EXPECT_EQ(textIn(pane), "> hello\nhello\n> ^D\n> ");
    type("lost");
    key(XK_c, {XK_Control_L});
    settleUntil([&] { return !exits.values.empty(); });
    EXPECT_EQ(textIn(pane), "> hello\nhello\n> ^D\n> lost^C\n");
    EXPECT_EQ(exits.values, std::vector<int>{SIGTERM});
    EXPECT_EQ(keys.values, (std::vector<int>{3, 2}));

    pane.clearHistory();   // more input than a pipe holds, to one that reads late
    pane.execCommand("sh -c 'sleep 0.2; wc -c; sleep 1000'");
    const std::string much(1'000'000, 'x');
    pane.inputString(much.c_str());
    pane.process()->kill(SIGCONT);
    settle();
    pane.killProcess();
    settleUntil([&] { return exits.values.size() == 2; });
}

TEST_F(ForkIOOnScreen, ASecondCommandKeepsThePaneWhenTheFirstEnds)
{
    open();
    pane.execCommand(
        "sh -c 'exec 2>/dev/null; trap \"sleep 0.2; echo bye; exit 5\" TERM; echo up; while :; do sleep 0.05; done'");
    untilText("up\n> ");
    pane.execCommand("cat");
    settleUntil([&] { return !exits.values.empty(); });
    EXPECT_EQ(exits.values, std::vector<int>{5 << 8});
    EXPECT_TRUE(pane.running());
    EXPECT_TRUE(pane.activated());
    untilText("up\nbye\n> ");
    type("x");
    key(XK_Return);
    untilText("up\nbye\n> x\nx\n> ");
    pane.killProcess();
    settleUntil([&] { return exits.values.size() == 2; });

    pane.clearHistory();
    run("sh -c '(sleep 0.3; echo late) & exit 7'");   // another process keeps the pipe
    EXPECT_EQ(exits.values.back(), 7 << 8);
    untilText("late\n");
    for (int i = 0; i < reducedInSanitizer(100); ++i)
        pane.execCommand("sleep 1000");
    pane.killProcess();
    settleUntil([&] { return static_cast<int>(exits.values.size()) == 3 + reducedInSanitizer(100); }, 60000);
}

TEST_F(ForkIOOnScreen, ThePaneMayGoWhileACommandRuns)
{
    auto* window = new LmForkWindow("terminal", nullptr);
    EXPECT_EQ(window->prompt(), nullptr);
    EXPECT_STREQ(window->className(), "LmWindow");
    EXPECT_NE(childNamed(window->baseWidget(), "*forkWindowForm.terminalSW.terminal"), nullptr);
    const Heard ends(*window->forkIO(), LmForkIO::exitCallback);
    const Heard notes(*window->forkIO(), LmForkIO::inputCallback);
    window->show();
    window->forkIO()->execCommand("yes");
    settleUntil([&] { return XmTextGetLastPosition(window->forkIO()->textWidget()) > 1000; });
    const int pid = window->forkIO()->process()->pid();
    (new LmSimpleWindow("other"))->show();   // the program goes on
    delete window;
    EXPECT_EQ(ends.values, std::vector<int>{0});
    EXPECT_EQ(notes.values, std::vector<int>{1});
    settleUntil([&] { return kill(pid, 0) == -1; });

    show(pane);
    pane.execCommand("sh -c 'echo x; exit 2'");
    destroyShell();
    settleUntil([&] { return !exits.values.empty(); });
    EXPECT_EQ(exits.values, std::vector<int>{2 << 8});

    auto* brief = new LmForkIO("brief", shell(), "");
    bool gone = false;
    brief->addCallback(
        LmForkIO::exitCallback,
        [](LmCallbackObject* sender, void* flag, void* status) {
            *static_cast<bool*>(flag) = true;
            if (lm::asInt(status) != 0)
                delete sender;
        },
        &gone);
    brief->execCommand("false");
    settleUntil([&] { return gone; });
}

TEST_F(ForkIOOnScreen, ALineOfAMegabyteDoesNotFreezeThePane)
{
    open();
    const Ticks ticks;
    run("sh -c 'head -c 1000000 /dev/zero | tr \"\\000\" x'");
    EXPECT_EQ(textIn(pane), std::string(1'000'000, 'x'));
    EXPECT_LE(ticks.longestLag, 200);
}

TEST_F(ForkIOLongRun, AFloodLeavesTheWindowResponsive)
{
    open();
    const Ticks ticks;
    const long before = residentMegabytes();
    const long lines = reducedInSanitizer(50'000'000);
    const auto start = Clock::now();
    run(("sh -c 'yes | head -n " + std::to_string(lines) + "; echo last'").c_str());
    std::printf("%ld MB in %ld ms, longest lag %ld ms, %ld MB more memory\n", lines / 500'000, millisecondsSince(start),
                ticks.longestLag, residentMegabytes() - before);
    settleUntil([&] { return XmTextGetLastPosition(pane.textWidget()) <= 4'000'000; });
    EXPECT_LE(ticks.longestLag, 200);
    const std::string text = textIn(pane);   // which takes its time
    EXPECT_EQ(text.substr(text.size() - 9), "y\ny\nlast\n");
    EXPECT_EQ(text.front(), 'y');
    EXPECT_GT(text.size(), 3'900'000U);
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LE(residentMegabytes() - before, 100);
#endif

    const Ticks again;
    pane.execCommand("yes");   // goes on until it is stopped
    settleUntil([&] { return again.count > 10; });
    pane.doCtrlC();
    settleUntil([&] { return exits.values.size() == 2; });
    EXPECT_LE(again.longestLag, 200);
}
