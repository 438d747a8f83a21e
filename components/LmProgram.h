// LmProgram: a command that can be run any number of times.
#pragma once

#include "LmSubProcess.h"
#include "support/handles.h"

/// A command with the callbacks that every run of it gets. Each run is a process of its own; what is registered here
/// later reaches later runs only, and runs outlive the program object.
///
///     LmProgram ls("ls -l", 0);
///     ls.addCallback(LmProgram::stdoutCallback, this, &Listing::read, nullptr);
///     ls.run();
///
///   Callbacks  stdoutCallback, stderrCallback, exitCallback, as those of LmSubProcessRep, which is the caller
///   Errors     a null or blank command is refused: the warning dialog says so and nothing is started
class LM_API LmProgram : public LmCallbackObject {
public:
    static const char* const stdoutCallback;   ///< "stdoutCallback"
    static const char* const stderrCallback;   ///< "stderrCallback"
    static const char* const exitCallback;     ///< "exitCallback"

    /// The command is copied without the blanks, tabs and newlines around it. `createOption` goes to
    /// LmSubProcessRep::create().
    LmProgram(const char* command, int createOption);

    const char* className() override { return "LmProgram"; }
    /// Starts one process and returns its record, never null. Its pid is 0 when it could not be started.
    virtual RPtr_LmSubProcessRep run();

    /// Non-zero: later runs get an input pipe. Initially 0.
    void setWantInput(int wantInput) { _wantInput = wantInput; }
    int wantInput() const { return _wantInput; }             ///< What setWantInput() set.
    const char* command() const { return _command.get(); }   ///< null when constructed with null
    int createOption() const { return _createOption; }       ///< As constructed.

private:
    lm::CString _command;
    int _createOption;
    int _wantInput = 0;
};
