#include "process/ShellCommand.h"

#include "process/ChildSide.h"
#include "process/PipeEnds.h"
#include "support/resources.h"

#include <array>
#include <iterator>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>

lm::ShellCommand::ShellCommand(const std::string& command, const std::string& directory)
{
    PipeEnds pipe = openPipe();
    const FileDescriptor null(open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!pipe || !null || !makeNonBlocking(pipe.read.get()))
        return;
    const ChildEnvironment environment;
    const ChildSignals signals;
    char* const arguments[] = {xtText("sh"), xtText("-c"), xtText(command.c_str()), nullptr};
    _pid = makeChild([&]() noexcept {
        setsid();
        if (chdir(directory.c_str()) == -1)
            _exit(127);
        if (dup2(pipe.write.get(), STDOUT_FILENO) == -1 || dup2(null.get(), STDIN_FILENO) == -1)
            _exit(127);
        fillStandardDescriptors();
        closeOtherDescriptors();
        signals.take();
        execve("/bin/sh", arguments, environment.strings());
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
