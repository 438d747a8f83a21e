// LmSubProcess: commands as child processes, reported on from the event loop.
#pragma once

#include "LmCallbackObject.h"

#include <X11/Intrinsic.h>

#include <memory>

#include <sys/types.h>

class LmPipe;
class LmSPGenericList;
class RPtr_LmSubProcessRep;
namespace lm {
struct ChildStart;
}   // namespace lm

/// The base of objects that live as long as a handle holds them.
class LM_API LmSPCounted : public LmCallbackObject {
public:
    const char* className() override { return "LmSPCounted"; }

private:
    friend class RPtr_LmSubProcessRep;
    int _references = 0;
};

/// One run of a command as a child process.
///
///     RPtr_LmSubProcessRep ls = LmSubProcessRep::create("ls -l", 0, 0);
///     ls->addCallback(LmSubProcessRep::stdoutCallback, this, &Listing::read, nullptr);
///     ls->addCallback(LmSubProcessRep::exitCallback, this, &Listing::ended, nullptr);
///     ls->run();
///
/// Nothing here waits: what the child writes and how it ends comes through the callbacks, from the event loop. Handles
/// share the record; the library holds one for every child that runs, so a record lives at least until its exitCallback.
///
/// The child leads a session and a process group of its own. It has the environment with XFILESEARCHPATH as the program
/// was started with, no descriptor above 2, no signal blocked, SIGPIPE and SIGCHLD at their defaults, SIGINT and SIGQUIT
/// as the program had them before its first child. While a child runs the program itself ignores these two. Its standard
/// input is /dev/null unless input is wanted. Where the program itself has no standard descriptor the child has /dev/null.
///
/// The first create() installs a SIGCHLD handler, which takes up every child of the process, whoever made it (so pclose
/// and waitpid may find none), and has SIGPIPE ignored, unless the program handles it.
///
///   Callbacks  stdoutCallback, stderrCallback, when the child has written, and at the end of what it writes; call data:
///                the LmInput of the pipe. The receiver reads its descriptor until EAGAIN and calls its remove() when
///                read gives 0. Only with a registration made before run() is the output captured; otherwise it goes
///                where the program's own goes.
///              exitCallback, once the child has ended, after all that it wrote; call data: the wait status as an integer
///   Errors     no process or no pipe: the warning dialog shows why, pid() stays 0 and no exitCallback comes. A command
///              that cannot be executed says so on the child's standard error and ends with the error number as status.
class LM_API LmSubProcessRep : public LmSPCounted {
public:
    static const char* const stdoutCallback;   ///< "stdoutCallback"
    static const char* const stderrCallback;   ///< "stderrCallback"
    static const char* const exitCallback;     ///< "exitCallback"

    /// A record for the command (see LmParseCommand; null counts as the empty command), not started. Non-zero `wantInput`
    /// gives it an input pipe. `createOption` is only kept.
    static RPtr_LmSubProcessRep create(const char* command, int createOption, int wantInput);
    /// For create(): takes over what LmParseCommand made.
    LmSubProcessRep(const char* path, char** argv, int createOption, int wantInput);
    /// Neither signals nor waits for the child; ends its input.
    ~LmSubProcessRep() override;

    const char* className() override { return "LmSubProcessRep"; }
    /// Starts the child. A record runs once; when that failed, run() may be tried again.
    void run();
    /// Sends a signal to the child's process group. Nothing when the child is not running; a failure is printed on
    /// standard error.
    void signal(int sig);
    /// The same.
    void kill(int sig) { signal(sig); }

    int pid() const { return _pid; }                 ///< 0 before run() and once the exit was delivered
    int exitStatus() const { return _exitStatus; }   ///< as waitpid reports it; 0 before
    /// What is written here is the child's standard input; non-blocking. -1 without an input pipe.
    int inputFd() const { return _inputFd; }
    /// Ends the child's standard input. inputFd() is -1 then.
    void closeInput();
    LmPipe* stdoutPipe() const { return _stdoutPipe.get(); }   ///< null unless captured
    LmPipe* stderrPipe() const { return _stderrPipe.get(); }   ///< null unless captured
    int createOption() const { return _createOption; }         ///< As constructed.

private:
    static void initialize();
    static void deleteChild(XtPointer clientData, int* source, XtInputId* id) noexcept;
    static void childHandler(int sig) noexcept;
    static void ignoreSignals();
    static void restoreSignals();
    static RPtr_LmSubProcessRep* takeChild(int pid);

    int openInput();
    bool capture(const char* name, int& fd, std::unique_ptr<LmPipe>& pipe);
    void dropPipes();
    void closeChildEnds();
    [[noreturn]] void exec(char** argv, const lm::ChildStart& start) const noexcept;
    void addChild();
    void processExited(int status);

    static LmSPGenericList* children;   // of RPtr_LmSubProcessRep*: the running ones, oldest first; null until the first
    static int childCount;
    static int doneStaticInit;
    static int signalPipe[2];

    char** _argv;        // owned, by LmParseCommand
    int _stdinFd = 0;    // what the child gets; 0: /dev/null
    int _stdoutFd = 1;   // the same; other than 1: the writing end of the pipe
    int _stderrFd = 2;
    std::unique_ptr<LmPipe> _stdoutPipe;
    std::unique_ptr<LmPipe> _stderrPipe;
    int _inputFd = -1;
    char* _path;   // owned, by LmParseCommand
    int _createOption;
    int _pid = 0;
    int _exitStatus = 0;
    ino_t _inputInode = 0;   // which pipe _inputFd was
    int _inputError = 0;     // why the input pipe that was wanted could not be made
    bool _started = false;
};

/// A handle: the record lives while there is one.
class LM_API RPtr_LmSubProcessRep {
public:
    RPtr_LmSubProcessRep() = default;
    RPtr_LmSubProcessRep(LmSubProcessRep* rep);                           ///< Holds the record; null: holds none.
    RPtr_LmSubProcessRep(const RPtr_LmSubProcessRep& other);              ///< Holds the same record.
    RPtr_LmSubProcessRep& operator=(const RPtr_LmSubProcessRep& other);   ///< Lets go of its record and holds the other's.
    ~RPtr_LmSubProcessRep();

    LmSubProcessRep& operator*() const { return *_rep; }   ///< The record; there must be one.
    LmSubProcessRep* operator->() const { return _rep; }   ///< The record; null when there is none.

private:
    static void hold(LmSubProcessRep* rep);
    static void release(LmSubProcessRep* rep);

    LmSubProcessRep* _rep = nullptr;
};
