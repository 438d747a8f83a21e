// main of every on-screen test program: a private X server per process, so that tests may run in parallel and none sees
// another's focus, grabs, selections or resources, nor the user's display.
#include <gtest/gtest.h>

#include "tests/support/Servers.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

/// The test's own empty home, removed at the end by the process that made it (forked children run exit handlers, too).
static void makeHome()
{
    static std::string home = std::filesystem::temp_directory_path() / "lmtest-XXXXXX";
    static const pid_t owner = getpid();
    if (!mkdtemp(home.data()))
        return;
    std::atexit([] {
        std::error_code ignored;
        if (getpid() == owner)
            std::filesystem::remove_all(home, ignored);
    });
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_CACHE_HOME", home.c_str(), 1);
}

/// Nothing of the developer's own session reaches a test.
static void cleanEnvironment()
{
    for (const char* name : {"DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "XENVIRONMENT", "XAPPLRESDIR", "XUSERFILESEARCHPATH",
                             "XFILESEARCHPATH", "XMODIFIERS", "XBMLANGPATH", "XMICONSEARCHPATH", "XMBINDDIR", "LANGUAGE",
                             "ZENTAHOME", "BRAMBLEON_ROOT", "DEFHELPPATH", "LUMORA_WARNINGS"})
        unsetenv(name);
    setenv("LC_ALL", "C", 1);
    setenv("LUMORA_DATA", LUMORA_SOURCE_DIR "/data", 1);
    makeHome();
}

/// A program whose last window goes ends with status 0, in the midst of a test, too: that is no success.
static void refuseEarlyExit()
{
    static const pid_t owner = getpid();   // a forked child may end as it likes
    std::atexit([] {
        const auto* running = testing::UnitTest::GetInstance()->current_test_info();
        if (getpid() != owner || !running)
            return;
        std::fprintf(stderr, "The program has ended in the midst of %s.%s\n", running->test_suite_name(), running->name());
        std::fflush(nullptr);
        _exit(1);
    });
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    refuseEarlyExit();
    if (!GTEST_FLAG_GET(list_tests)) {
        cleanEnvironment();
        setenv("DISPLAY", lmtest::server().displayName().c_str(), 1);
    }
    return RUN_ALL_TESTS();
}
