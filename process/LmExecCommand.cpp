#include "LmExecCommand.h"

#include "process/ChildSide.h"

#include <cerrno>
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

int LmExecCommand(const char* command, int sessionFirst)
{
    if (!command)
        return -1;
    char* path = nullptr;
    char** argv = nullptr;
    LmParseCommand(command, &path, &argv);
    const lm::ChildEnvironment environment;
    const lm::ChildSignals signals;
    if (sessionFirst)
        setsid();   // fails for the leader of a process group, which changes nothing

    const pid_t pid = lm::makeChild([&]() noexcept {
        lm::fillStandardDescriptors();
        lm::closeOtherDescriptors();
        if (!sessionFirst)
            setsid();
        signals.take();
        execvpe(path, argv, environment.strings());
        _exit(0);
    });
    LmFreeParsedCommand(path, argv);
    return pid > 0 ? pid : -1;
}

static void install();

/// Takes up every child that has ended, since signals that come together are delivered as one. Waiting for one more, as
/// wait() does when somebody else was faster, would stop the program.
static void LmChildrenHandler(int) noexcept
{
    const int error = errno;
    while (waitpid(-1, nullptr, WNOHANG) > 0) {}
    install();
    errno = error;
}

static void install()
{
    struct sigaction action = {};
    action.sa_handler = LmChildrenHandler;
    action.sa_flags = SA_RESTART | SA_NOCLDSTOP;
    sigaction(SIGCHLD, &action, nullptr);
}

void LmInitializeChildrenHandler()
{
    static bool installed = false;
    if (!installed)
        install();
    installed = true;
}
