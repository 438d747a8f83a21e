// ShellCommand.h: a command of the shell whose output is read.
#pragma once

#include "support/handles.h"

#include <string>

#include <sys/types.h>

namespace lm {

/// A child that runs one simple command with /bin/sh in a directory, in a session of its own. Its input is /dev/null, its
/// messages go where the program's go. It has the signals and the environment of every child (ChildSide.h), without
/// QUOTING_STYLE, which changes what ls prints. When the object goes, or the program, the child ends; it is waited for, a tenth
/// of a second at most.
class ShellCommand {
public:
    ShellCommand(const std::string& command, const std::string& directory);
    ShellCommand(const ShellCommand&) = delete;
    ShellCommand& operator=(const ShellCommand&) = delete;
    ~ShellCommand();

    /// Whether the child was made.
    explicit operator bool() const { return _pid > 0; }
    /// Where the output is read; non-blocking.
    int descriptor() const { return _output.get(); }
    /// Appends what the command has written so far, up to a limit. False at the end of the output.
    bool read(std::string& bytes);

private:
    FileDescriptor _output;
    pid_t _pid = 0;   // 0 or less: there is none
};

}   // namespace lm
