#include "process/ChildSide.h"

#include "base/core/SearchPath.h"
#include "pfm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <iterator>
#include <string_view>

#include <fcntl.h>
#include <sys/uio.h>

// --- before the child is made ------------------------------------------------------------------------------------------

lm::ChildEnvironment::ChildEnvironment()
{
    constexpr std::string_view variable = "XFILESEARCHPATH=";
    for (char** entry = environ; entry && *entry; ++entry) {
        if (!std::string_view(*entry).starts_with(variable))
            _strings.push_back(*entry);
    }
    if (const auto path = originalSearchPath()) {
        _searchPath = std::string(variable) + *path;
        _strings.push_back(_searchPath.data());
    }
    _strings.push_back(nullptr);
}

namespace {

/// A signal that the program ignores for a time. The whole of the handler before is kept: flags and mask, too.
struct IgnoredSignal {
    int sig;
    bool ignoring = false;
    struct sigaction before = {};

    void ignore()
    {
        struct sigaction action = {};
        action.sa_handler = SIG_IGN;
        ignoring = sigaction(sig, &action, &before) == 0;
    }
    void restore()
    {
        if (ignoring)
            sigaction(sig, &before, nullptr);
        ignoring = false;
    }
    bool wasIgnored() const
    {
        struct sigaction present = {};
        if (!ignoring)
            sigaction(sig, nullptr, &present);
        return (ignoring ? before : present).sa_handler == SIG_IGN;
    }
};

IgnoredSignal interrupt = {SIGINT};
IgnoredSignal quit = {SIGQUIT};

}   // namespace

void lm::ignoreInterrupts()
{
    interrupt.ignore();
    quit.ignore();
}

void lm::restoreInterrupts()
{
    interrupt.restore();
    quit.restore();
}

void lm::ignoreBrokenPipes()
{
    struct sigaction present = {};
    if (sigaction(SIGPIPE, nullptr, &present) != 0 || present.sa_handler != SIG_DFL)
        return;
    present.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &present, nullptr);
}

lm::ChildSignals::ChildSignals() : _ignoreInterrupt(interrupt.wasIgnored()), _ignoreQuit(quit.wasIgnored()) {}

// --- in the child ------------------------------------------------------------------------------------------------------

static void setAction(int sig, void (*handler)(int)) noexcept
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(sig, &action, nullptr);
}

void lm::ChildSignals::take() const noexcept
{
    for (int sig = 1; sig < NSIG; ++sig) {
        struct sigaction present = {};
        if (sigaction(sig, nullptr, &present) == 0 && present.sa_handler != SIG_DFL && present.sa_handler != SIG_IGN)
            setAction(sig, SIG_DFL);
    }
    setAction(SIGINT, _ignoreInterrupt ? SIG_IGN : SIG_DFL);
    setAction(SIGQUIT, _ignoreQuit ? SIG_IGN : SIG_DFL);
    setAction(SIGPIPE, SIG_DFL);
    setAction(SIGCHLD, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

void lm::fillStandardDescriptors() noexcept
{
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        const int flags = fcntl(fd, F_GETFD);
        if (flags != -1 && !(flags & FD_CLOEXEC))
            continue;
        const int null = open("/dev/null", O_RDWR);
        if (null == fd)
            continue;
        dup2(null, fd);
        close(null);
    }
}

void lm::closeOtherDescriptors() noexcept
{
    if (close_range(3, ~0U, 0) == 0)
        return;
    const long limit = sysconf(_SC_OPEN_MAX);
    const int end = limit < 0 ? 65536 : static_cast<int>(std::min(limit, 1L << 20));
    for (int fd = 3; fd < end; ++fd)
        close(fd);
}

void lm::say(std::initializer_list<const char*> pieces) noexcept
{
    std::array<iovec, 12> parts = {};
    std::size_t count = 0;
    for (const char* piece : pieces)
        parts.at(count++) = {const_cast<char*>(piece), std::strlen(piece)};
    [[maybe_unused]] const ssize_t written = writev(STDERR_FILENO, parts.data(), static_cast<int>(count));
}

const char* lm::errorText(int error) noexcept
{
    const char* text = strerrordesc_np(error);   // unlike strerror, it is safe here
    return text ? text : "Unknown error";
}

void lm::redirect(int from, int to, const char* word, const char* name, const char* role) noexcept
{
    if (close(to) == -1) {
        const int error = errno;
        say({word, " : Couldn't close ", name, " : ", errorText(error), "\n"});
        pfm_exit(error);
    }
    char number[12] = {};
    std::to_chars(std::begin(number), std::end(number), from);
    if (dup(from) != to)
        say({word, " : Couldn't dup ", name, " from ", number, " : ", errorText(errno), "\n"});
    else if (close(from) == -1)
        say({word, " : Couldn't close ", role, " fd ", number, " : ", errorText(errno), "\n"});
}
