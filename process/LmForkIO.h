// LmForkIO: a console that runs commands.
#pragma once

#include "LmInput.h"
#include "LmSubProcess.h"
#include "LmTextIO.h"

#include <chrono>
#include <memory>
#include <vector>

namespace lm {
class OutputQueue;
}   // namespace lm

/// A console that runs one command at a time: shows what it writes on standard output and standard error, and sends it
/// each line that the user types. Ctrl-C terminates it. The console is active only while a command runs.
///
///     auto* console = new LmForkIO("console", parent, "> ");
///     console->show();
///     console->execCommand("sort");
///
/// Nothing here waits. Output goes through a queue and is shown in short turns of the event loop, while what the history
/// limit would drop at once is left out; a writer that is faster than the screen does not keep the window from working.
/// What a command wrote before its end is shown before exitCallback. When another process keeps its pipes open, what that
/// writes is shown, too.
///
///   Widgets    as LmTextIO
///   Resources  as LmTextIO
///   Callbacks  inputCallback, call data an integer: 1 the component is being destroyed, 2 Ctrl-C was pressed, 3 Ctrl-D
///                (doCtrlD()) on an empty input line
///              exitCallback, when a command has ended and all it wrote is shown; call data: the wait status as an
///                integer, or 0 when the component is destroyed while a command runs
///   Errors     a command that cannot be started leaves the console idle (LmProgram tells the user); one that cannot be
///              executed says so in the console. A pipe that fails is no longer read
class LM_API LmForkIO : public LmTextIO {
public:
    static const char* const inputCallback;   ///< "inputCallback"
    static const char* const exitCallback;    ///< "exitCallback"

    /// Idle and inactive, with the prompt (null: none).
    LmForkIO(const char* name, Widget parent, const char* prompt);
    /// Terminates the command and announces exitCallback and inputCallback.
    ~LmForkIO() override;

    const char* className() override { return "LmForkIO"; }
    /// Terminates the command, if one runs.
    void doCtrlC() override;
    /// Sends the input line to the command.
    void doNewLine() override;
    /// Ctrl-D: on an empty input line announces it. The command's input stays open.
    virtual void doCtrlD();

    /// Runs a command (see LmParseCommand). One that runs already gets SIGTERM; its end is still announced, but no longer
    /// changes the console.
    void execCommand(const char* command);
    /// Sends text to the command; what it does not read at once waits. Null, or no command: nothing.
    void inputString(const char* text);
    /// Sends SIGTERM to the command and its process group.
    void killProcess();
    /// Whether a command runs, as the console shows it.
    Boolean running() const { return _running; }
    /// The command's record; empty (its arrow gives null) when there is none.
    const RPtr_LmSubProcessRep& process() const { return _process; }

protected:
    /// The command's pipe `callData`, an LmInput, can be read.
    void cmdOutput(LmCallbackObject* caller, void* clientData, void* callData);
    /// The command whose record is the caller has ended with the wait status `callData`.
    void cmdExit(LmCallbackObject* caller, void* clientData, void* callData);
    /// Reads at most 1023 bytes and shows them. Returns what read() returned.
    int readAndOutput(LmInput* input);

private:
    struct Pipe;
    struct Run;
    using Clock = std::chrono::steady_clock;

    Pipe* pipeOf(const LmInput* input);
    ssize_t readInto(Pipe& pipe, int fd, size_t most);
    bool readSome(LmInput* input, size_t most, Clock::duration time);
    void endPipe(LmInput* input);
    void drain(Run& run);

    void showSoon();
    void showTurn();
    void frameDue();
    Boolean showWhenIdle();
    void insertSlices();
    void leaveOut();
    size_t queueLimit() const;

    void announceExits();
    void announceExit(const Run& run);
    void forgetEndedRuns();
    void sendInput();

    Boolean _running = False;
    LmInput _inputWriter;   // waits until the command takes more input
    RPtr_LmSubProcessRep _process;
    std::string _unsent;                       // input that waits for that
    std::vector<std::unique_ptr<Run>> _runs;   // commands that run or whose pipes are open, oldest first
    std::unique_ptr<Pipe> _strangers;          // for pipes given to readAndOutput() that are no command's
    std::unique_ptr<lm::OutputQueue> _queue;
    bool _fed = false;       // something was read since the last turn
    bool _leftOut = false;   // the queue lost its front: the history is to go as well
    Clock::time_point _lastTurn{};
    lm::TimerHandle _frame;
    lm::WorkProcHandle _idle;
};
