// LmExecCommand: commands that are started and then left to themselves.
#pragma once

#include "LmParseCommand.h"
#include "support/LmExport.h"

/// Starts a command as a child process in a session of its own and returns its process id, or -1 when no child could be
/// made (or `command` is null). The command is taken apart by LmParseCommand and looked for along PATH. Non-zero
/// `sessionFirst` has the calling process make the session, before the child; zero, the child.
///
/// The child has the standard descriptors of the application and no other, the environment with XFILESEARCHPATH as the
/// program was started with, no signal blocked, and SIGPIPE and SIGCHLD at their defaults. Nobody is told how it ends: a
/// command that cannot be executed ends at once with status 0. Ended children are zombies until a SIGCHLD handler takes
/// them up: LmInitializeChildrenHandler() installs one; LmSubProcessRep has its own.
LM_API int LmExecCommand(const char* command, int sessionFirst);

/// The first call installs a SIGCHLD handler that takes up every child of the process that has ended; it never waits for
/// one. Later calls do nothing. The handler and that of LmSubProcessRep replace each other: a program that runs
/// sub-processes calls this before it makes the first one, or not at all, or their exits go unnoticed.
LM_API void LmInitializeChildrenHandler();
