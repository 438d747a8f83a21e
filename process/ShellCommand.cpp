#include "process/ShellCommand.h"

#include "process/ChildSide.h"
#include "process/PipeEnds.h"
#include "support/resources.h"

#include <array>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>

/// The environment without the style in which ls quotes names, also where nobody reads them.
static std::vector<char*> plainNames(char** environment)
{
    std::vector<char*> strings;
    for (; *environment; ++environment) {
        if (!std::string_view(*environment).starts_with("QUOTING_STYLE="))
            strings.push_back(*environment);
    }
    strings.push_back(nullptr);
    return strings;
}

lm::ShellCommand::ShellCommand(const std::string& command, const std::string& directory)
{
    PipeEnds pipe = openPipe();
    const FileDescriptor null(open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!pipe || !null || !makeNonBlocking(pipe.read.get()))
        return;
    const ChildEnvironment environment;
    const std::vector<char*> strings = plainNames(environment.strings());
    const ChildSignals signals;
    const std::string line = "exec " + command;   // the command itself is our child
    char* const arguments[] = {xtText("sh"), xtText("-c"), xtText(line.c_str()), nullptr};
    _pid = makeChild([&]() noexcept {
        setsid();
        prctl(PR_SET_PDEATHSIG, SIGKILL);   // a program that ends stops its searches, too
        if (chdir(directory.c_str()) == -1)
            _exit(127);
        if (dup2(null.get(), STDIN_FILENO) == -1 || dup2(pipe.write.get(), STDOUT_FILENO) == -1)
            _exit(127);
        fillStandardDescriptors();
        closeOtherDescriptors();
        signals.take();
        execve("/bin/sh", arguments, strings.data());
    });
    if (_pid > 0)
        _output = std::move(pipe.read);
}

/// Whether the child is still ours to end: a handler of SIGCHLD may have taken it up, and its number be another's now.
static bool isOurs(pid_t pid)
{
    siginfo_t info = {};
    return waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) == 0;
}

lm::ShellCommand::~ShellCommand()
{
    if (_pid <= 0)
        return;
    const SignalBlock noHandler(SIGCHLD);
    if (!isOurs(_pid))
        return;
    kill(-_pid, SIGKILL);
    for (int patience = 100; patience > 0 && waitpid(_pid, nullptr, WNOHANG) == 0; --patience)
        poll(nullptr, 0, 1);
}

bool lm::ShellCommand::read(std::string& bytes)
{
    constexpr int chunks = 16;   // so that a fast command does not keep the caller
    std::array<char, 4096> chunk;
    for (int i = 0; i < chunks;) {
        const ssize_t count = ::read(_output.get(), chunk.data(), chunk.size());
        if (count == -1 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == -1 && errno == EAGAIN;
        bytes.append(chunk.data(), static_cast<std::size_t>(count));
        ++i;
    }
    return true;
}
