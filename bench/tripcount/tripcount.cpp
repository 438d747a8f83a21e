// tripcount: runs an X program until its first window is painted and says what that took.
//
//   tripcount [-delay MS] COMMAND [ARGUMENT...]
//
// The program talks to the server of DISPLAY through a proxy, which holds everything back by MS in each direction. It has
// painted its window when it got an Expose event and then was quiet for a quarter of a second; then it is ended. Prints
//
//   trips=40 requests=750 connections=1 wall_ms=31.2 cpu_ms=27.8 peak_kb=8012
//
// trips: how often the program stopped and waited for the server. wall: from exec to its last request.
// Exit status 1 and a message when no window appeared within 30 seconds.
#include "bench/tripcount/XProxy.h"

#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace std::chrono_literals;
using Clock = lmtest::XProxy::Clock;

static pid_t start(char** command, const std::string& display)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    setenv("DISPLAY", display.c_str(), 1);
    execvp(command[0], command);
    std::perror(command[0]);
    _exit(127);
}

/// Has the program painted its window and come to rest?
static bool isDone(const lmtest::Traffic& traffic, std::chrono::milliseconds rest)
{
    return traffic.painted && Clock::now() - traffic.last > rest;
}

static double milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }
static double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

static int measure(char** command, std::chrono::milliseconds delay)
{
    const char* real = getenv("DISPLAY");
    lmtest::XProxy proxy(real ? real : "", delay);
    const auto started = Clock::now();
    const pid_t child = start(command, proxy.displayName());
    const lmtest::Traffic& traffic = proxy.traffic();
    while (!isDone(traffic, 250ms + 2 * delay) && Clock::now() - started < 30s && waitpid(child, nullptr, WNOHANG) == 0)
        proxy.forward(50ms);

    kill(child, SIGKILL);
    rusage used = {};
    if (!traffic.painted || wait4(child, nullptr, 0, &used) != child) {
        std::fprintf(stderr, "tripcount: %s showed no window that lasted\n", command[0]);
        return 1;
    }
    std::printf("trips=%d requests=%d connections=%d wall_ms=%.1f cpu_ms=%.1f peak_kb=%ld\n", traffic.trips, traffic.requests,
                traffic.connections, milliseconds(traffic.last - started),
                milliseconds(used.ru_utime) + milliseconds(used.ru_stime), used.ru_maxrss);
    return 0;
}

int main(int argc, char** argv)
{
    int delay = 0, first = 1;
    if (argc > 2 && std::strcmp(argv[1], "-delay") == 0) {
        std::from_chars(argv[2], argv[2] + std::strlen(argv[2]), delay);
        first = 3;
    }
    if (first >= argc) {
        std::fprintf(stderr, "usage: tripcount [-delay MS] COMMAND [ARGUMENT...]\n");
        return 2;
    }
    try {
        return measure(argv + first, std::chrono::milliseconds(delay));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tripcount: %s\n", error.what());
        return 1;
    }
}
