// Job.h: the jobs that programs of several toolkits do beside each other, and how each is measured.
#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

/// What the programs do, by their first argument:
///     start     a window with a menu bar of 5 menus with 10 entries, a text and 20 buttons, from exec until it is drawn
///     outline   100,000 rows in 1,000 groups, all open, from the first row to the first frame that shows them
///     console   20 MB that a child writes, into a scrolling text that keeps 10,000 lines, until the last line is drawn
class Job {
public:
    explicit Job(int argc, char** argv) : _name(argc > 1 ? argv[1] : "")
    {
        const char* start = std::getenv("PEERS_START");   // what launch says
        _start = start ? std::chrono::nanoseconds(std::atoll(start)) : now();
    }
    bool is(std::string_view name) const { return _name == name; }
    /// The job begins now: what came before does not count.
    void begin()
    {
        _start = now();
        _cpuBefore = cpu();
    }
    /// The job is done: says how many milliseconds it took, how many of the processor, and the peak of the memory in KiB.
    [[noreturn]] void done() const
    {
        const double wall = std::chrono::duration<double, std::milli>(now() - _start).count();
        std::printf("%.1f %.1f %ld\n", wall, cpu() - _cpuBefore, peak());
        if (const char* file = std::getenv("PEERS_PICTURE"))   // to see that all did the same
            std::exit(std::system((std::string("import -window root ") + file).c_str()));
        std::fflush(stdout);
        _exit(0);
    }

private:
    static std::chrono::nanoseconds now() { return std::chrono::steady_clock::now().time_since_epoch(); }
    static double cpu()
    {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        const auto ms = [](const timeval& t) {
            return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
        };
        return ms(usage.ru_utime) + ms(usage.ru_stime);
    }
    static long peak()
    {
        std::ifstream status("/proc/self/status");
        for (std::string word; status >> word;)
            if (word == "VmHWM:") {
                status >> word;
                return std::atol(word.c_str());
            }
        return 0;
    }

    std::string_view _name;
    std::chrono::nanoseconds _start;
    double _cpuBefore = 0;
};

constexpr int windowWidth = 700, windowHeight = 500;
constexpr int menus = 5, entriesPerMenu = 10, buttons = 20;
constexpr int groups = 1000, childrenPerGroup = 99;
constexpr int keptLines = 10000, lineLength = 81;
constexpr char writer[] =
    "yes 12345678901234567890123456789012345678901234567890123456789012345678901234567890 | head -c 20000000";

inline std::string title(const char* kind, int number) { return std::string(kind).append(std::to_string(number)); }
inline std::string groupName(int g) { return title("group ", g); }
inline std::string nodeName(int g, int i) { return title("node ", g) + title(".", i); }
