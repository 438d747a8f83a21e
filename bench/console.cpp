// How fast a console shows what a command writes: 50 MB of lines of 80 columns in a UTF-8 locale, with the default limit of the
// history, beside plain Motif with fork and a pipe. Also the longest time for which the event loop did not come round.
#include <Lm/LmApp.h>
#include <Lm/LmForkIO.h>

#include <Xm/Text.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double megabytes = 50;
constexpr char writer[] =
    "yes 1234567890123456789012345678901234567890123456789012345678901234567890123456789 | head -c 50000000";

LmApp& application()
{
    static char program[] = "bench_console";
    static char* arguments[] = {program, nullptr};
    static int count = 1;
    static auto* app = [] {
        setenv("LC_ALL", "C.UTF-8", 1);
        return new LmApp("Bench", &count, arguments, nullptr, 0);
    }();
    return *app;
}

double cpuMilliseconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& t) { return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/// Runs the event loop until the flag is set, and notes the longest turn.
void untilEnded(benchmark::State& state, const bool& ended)
{
    XtAppContext context = application().appContext();
    const double cpuBefore = cpuMilliseconds();
    const auto start = Clock::now();
    double longest = 0, longestWork = 0;
    double work = cpuMilliseconds();
    for (auto turn = start; !ended;) {
        XtAppProcessEvent(context, XtIMAll);
        const auto now = Clock::now();
        longest = std::max(longest, std::chrono::duration<double, std::milli>(now - turn).count());
        turn = now;
        longestWork = std::max(longestWork, cpuMilliseconds() - work);
        work = cpuMilliseconds();
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    state.SetIterationTime(seconds);
    state.counters["MB/s"] = megabytes / seconds;
    state.counters["longest_gap_ms"] = longest;
    state.counters["longest_turn_cpu_ms"] = longestWork;   // the same without what other programs took
    state.counters["cpu_ms_per_MB"] = (cpuMilliseconds() - cpuBefore) / megabytes;
}

Widget newShell()
{
    return XtVaAppCreateShell("bench", "Bench", applicationShellWidgetClass, application().display(), XmNwidth, 700, XmNheight,
                              400, nullptr);
}

void console(benchmark::State& state)
{
    application();
    for (auto _ : state) {
        Widget shell = newShell();
        auto* pane = new LmForkIO("console", shell, "> ");
        static bool ended;
        ended = false;
        pane->addCallback(
            LmForkIO::exitCallback, [](LmCallbackObject*, void*, void*) { ended = true; }, nullptr);
        pane->show();
        XtRealizeWidget(shell);
        pane->execCommand((std::string("sh -c '") + writer + "'").c_str());
        untilEnded(state, ended);
        delete pane;
        XtDestroyWidget(shell);
    }
}

/// What a program does without the library: each piece goes to the end of the text, and the front goes now and then.
struct Plain {
    static void read(XtPointer self, int* fd, XtInputId* id)
    {
        auto* plain = static_cast<Plain*>(self);
        char bytes[65537];
        const ssize_t count = ::read(*fd, bytes, sizeof bytes - 1);
        if (count <= 0) {
            XtRemoveInput(*id);
            plain->ended = true;
            return;
        }
        bytes[count] = '\0';
        XmTextInsert(plain->text, XmTextGetLastPosition(plain->text), bytes);
        const XmTextPosition last = XmTextGetLastPosition(plain->text);
        if (last > 4'500'000)
            XmTextReplace(plain->text, 0, last - 4'000'000, const_cast<char*>(""));
        XmTextShowPosition(plain->text, XmTextGetLastPosition(plain->text));
    }
    Widget text;
    bool ended = false;
};

void plainMotif(benchmark::State& state)
{
    application();
    for (auto _ : state) {
        Widget shell = newShell();
        Arg args[] = {{const_cast<char*>(XmNeditMode), XmMULTI_LINE_EDIT},
                      {const_cast<char*>(XmNscrollHorizontal), False},
                      {const_cast<char*>(XmNwordWrap), True}};
        Plain plain{XmCreateScrolledText(shell, const_cast<char*>("console"), args, 3)};
        XtManageChild(plain.text);
        XtRealizeWidget(shell);
        int ends[2];
        if (pipe(ends) != 0)
            state.SkipWithError("no pipe");
        if (fork() == 0) {
            dup2(ends[1], STDOUT_FILENO);
            close(ends[0]);
            close(ends[1]);
            execl("/bin/sh", "sh", "-c", writer, nullptr);
            _exit(127);
        }
        close(ends[1]);
        XtAppAddInput(application().appContext(), ends[0], reinterpret_cast<XtPointer>(XtInputReadMask), Plain::read, &plain);
        untilEnded(state, plain.ended);
        close(ends[0]);
        wait(nullptr);
        XtDestroyWidget(shell);
    }
}

}   // namespace

BENCHMARK(plainMotif)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(console)->Iterations(1)->Repetitions(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
