// pfm.h: signals and the end of the process, as the platform's library has them.
#pragma once

#include "support/LmExport.h"

extern "C" {

/// What handles a signal: a function, SIG_IGN or SIG_DFL.
using PfmSignalHandler = void (*)(int sig);

/// Installs a handler for a signal and returns the one before, SIG_ERR after a failure (with errno). The handler stays
/// installed when it runs; interrupted system calls go on; stopped children are not announced.
LM_API PfmSignalHandler pfm_signal(int sig, PfmSignalHandler handler);

/// Ends the process with that status, as exit() does. In a child process that the library has made and that has not
/// become another program yet, as _exit() does: what the program registered and buffered is not the child's to end.
[[noreturn]] LM_API void pfm_exit(int status);
}
