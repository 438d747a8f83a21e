// What a child process costs, from its start to the news of its end, beside plain Xt with fork and a self-pipe.
#include <Lm/LmApp.h>
#include <Lm/LmSubProcess.h>

#include <benchmark/benchmark.h>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int children = 500;

LmApp& application()
{
    static char program[] = "bench_process";
    static char* arguments[] = {program, nullptr};
    static int count = 1;
    static auto* app = new LmApp("Bench", &count, arguments, nullptr, 0);
    return *app;
}

/// Our own user and system time, without that of the children once they are programs of their own.
double cpuMilliseconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& t) { return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/// Runs /bin/true again and again; `start` starts it and sets the flag back, which its end sets.
template <class Start> void runChildren(benchmark::State& state, const bool& ended, Start start)
{
    XtAppContext context = application().appContext();
    const double before = cpuMilliseconds();
    for (auto _ : state) {
        start();
        while (!ended)
            XtAppProcessEvent(context, XtIMAll);
    }
    state.counters["our_cpu_ms"] = (cpuMilliseconds() - before) / static_cast<double>(state.iterations());
}

int selfPipe[2];

void plain(benchmark::State& state)
{
    static bool ended = false;
    if (pipe2(selfPipe, O_CLOEXEC) != 0)
        state.SkipWithError("no pipe");
    const XtInputId input = XtAppAddInput(
        application().appContext(), selfPipe[0], reinterpret_cast<XtPointer>(XtInputReadMask),
        [](XtPointer, int* fd, XtInputId*) {
            char byte = 0;
            ended = read(*fd, &byte, 1) == 1;
        },
        nullptr);
    struct sigaction action = {};
    action.sa_handler = [](int) {
        while (waitpid(-1, nullptr, WNOHANG) > 0)
            ended = write(selfPipe[1], "", 1) != 1;
    };
    sigaction(SIGCHLD, &action, nullptr);

    runChildren(state, ended, [] {
        ended = false;
        if (fork() == 0) {
            execl("/bin/true", "true", nullptr);
            _exit(127);
        }
    });
    XtRemoveInput(input);
    close(selfPipe[0]);
    close(selfPipe[1]);
}

void subProcess(benchmark::State& state)
{
    static bool ended = false;
    runChildren(state, ended, [] {
        ended = false;
        RPtr_LmSubProcessRep child = LmSubProcessRep::create("/bin/true", 0, 0);
        child->addCallback(
            LmSubProcessRep::exitCallback, [](LmCallbackObject*, void*, void*) { ended = true; }, nullptr);
        child->run();
    });
}

}   // namespace

// The order matters: the library's SIGCHLD handler, once installed, stays.
BENCHMARK(plain)->Iterations(children)->Repetitions(5)->ReportAggregatesOnly()->Unit(benchmark::kMillisecond);
BENCHMARK(subProcess)->Iterations(children)->Repetitions(5)->ReportAggregatesOnly()->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
