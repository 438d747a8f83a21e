// Warnings.h: why a command could not be started, shown to the user.
#pragma once

namespace lm {

/// The application's name as it was called, for messages.
const char* programName();

/// Each posts the warning dialog and returns at once. The dialog handles events: objects may go meanwhile.
void warnOfFork(const char* command, int error);
void warnOfPipe(int error);
void warnOfNoCommand();

}   // namespace lm
