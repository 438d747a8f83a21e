// ChildSide.h: making child processes, and what a child does before it becomes another program.
#pragma once

#include "platform/ForkedChild.h"

#include <cerrno>
#include <csignal>
#include <initializer_list>
#include <string>
#include <vector>

#include <sys/types.h>
#include <unistd.h>

namespace lm {

/// Blocks signals while it lives.
class SignalBlock {
public:
    SignalBlock()   ///< all of them
    {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, &_before);
    }
    explicit SignalBlock(int sig)
    {
        sigset_t one;
        sigemptyset(&one);
        sigaddset(&one, sig);
        sigprocmask(SIG_BLOCK, &one, &_before);
    }
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;
    ~SignalBlock() { sigprocmask(SIG_SETMASK, &_before, nullptr); }

private:
    sigset_t _before;
};

// --- before the child is made ------------------------------------------------------------------------------------------

/// The environment for a child: the present one, with XFILESEARCHPATH as the program was started with.
class ChildEnvironment {
public:
    ChildEnvironment();
    ChildEnvironment(const ChildEnvironment&) = delete;
    ChildEnvironment& operator=(const ChildEnvironment&) = delete;
    char** strings() const { return const_cast<char**>(_strings.data()); }   ///< ended by null, as exec wants it

private:
    std::string _searchPath;
    std::vector<char*> _strings;
};

/// The signals of a child: none blocked, no handler, SIGPIPE and SIGCHLD default, SIGINT and SIGQUIT ignored only when
/// they were before ignoreInterrupts(), all others as they are.
class ChildSignals {
public:
    ChildSignals();
    /// In the child: makes it so.
    void take() const noexcept;

private:
    bool _ignoreInterrupt, _ignoreQuit;
};

/// All that a child needs and may not make itself.
struct ChildStart {
    const char* program;   // the application's name, for messages
    ChildEnvironment environment;
    ChildSignals signals;
};

/// Ignores SIGINT and SIGQUIT, until restoreInterrupts().
void ignoreInterrupts();
void restoreInterrupts();
/// Ignores SIGPIPE, unless the program handles it: a write to a child that is gone then fails with EPIPE.
void ignoreBrokenPipes();

/// Makes a child that runs `childSide`, which must end in another program or in _exit(). The process id, or the negative
/// error number.
///
/// The child is one of vfork: it uses our memory, and we stand still until it has become another program. So it costs the
/// same whatever the size of the program, and can be signalled as what it will be at once. It calls nothing but what a
/// signal handler may, changes no object of ours, and no handler of ours runs in it: its signals are blocked until
/// ChildSignals::take().
template <class ChildSide> [[gnu::noinline]] pid_t makeChild(const ChildSide& childSide) noexcept
{
    const SignalBlock all;
    const pid_t pid = vfork();
    if (pid == 0) {
        isForkedChild = true;
        childSide();
        _exit(127);
    }
    isForkedChild = false;
    return pid < 0 ? -errno : pid;
}

// --- in the child ------------------------------------------------------------------------------------------------------

/// Opens /dev/null in the place of every standard descriptor that is closed, or that is one of the program's own (the X
/// connection, when the program was started without): no message may go there.
void fillStandardDescriptors() noexcept;
/// Closes every descriptor from 3 on.
void closeOtherDescriptors() noexcept;
/// Writes the pieces to standard error as one message.
void say(std::initializer_list<const char*> pieces) noexcept;
/// The text for an error number.
const char* errorText(int error) noexcept;
/// Makes `from` the standard descriptor `to`, which messages in the name of `word` call `name`, and its source `role`.
void redirect(int from, int to, const char* word, const char* name, const char* role) noexcept;

}   // namespace lm
