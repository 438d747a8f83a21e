#include "LmSubProcess.h"

#include "LmApp.h"
#include "LmErrorDialog.h"
#include "LmFormat.h"
#include "LmParseCommand.h"
#include "LmPipe.h"
#include "LmSPGenericList.h"
#include "base/core/RequireApplication.h"
#include "pfm.h"
#include "process/ChildSide.h"
#include "process/PipeEnds.h"
#include "process/Warnings.h"
#include "support/calldata.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

const char* const LmSubProcessRep::stdoutCallback = "stdoutCallback";
const char* const LmSubProcessRep::stderrCallback = "stderrCallback";
const char* const LmSubProcessRep::exitCallback = "exitCallback";

LmSPGenericList* LmSubProcessRep::children = nullptr;
int LmSubProcessRep::childCount = 0;
int LmSubProcessRep::doneStaticInit = 0;
int LmSubProcessRep::signalPipe[2] = {-1, -1};

namespace {

/// What the signal handler tells the event loop.
struct ExitRecord {
    std::int32_t pid;
    std::int32_t status;
};

/// The pipe was full: ended children are still to be looked for.
volatile std::sig_atomic_t childrenWait = 0;

/// The status as waitpid reports it.
int waitStatus(const siginfo_t& child)
{
    if (child.si_code == CLD_EXITED)
        return (child.si_status & 0xff) << 8;
    return child.si_code == CLD_DUMPED ? child.si_status | WCOREFLAG : child.si_status;
}

}   // namespace

// --- the record --------------------------------------------------------------------------------------------------------

RPtr_LmSubProcessRep LmSubProcessRep::create(const char* command, int createOption, int wantInput)
{
    lm::requireApplication("LmSubProcessRep");
    initialize();
    char* path = nullptr;
    char** argv = nullptr;
    LmParseCommand(command, &path, &argv);
    const RPtr_LmSubProcessRep made = [&] {
        const lm::SignalBlock noExit(SIGCHLD);
        return RPtr_LmSubProcessRep(new LmSubProcessRep(path, argv, createOption, wantInput));
    }();
    if (made->_inputError)
        lm::warnOfPipe(made->_inputError);
    return made;
}

void LmSubProcessRep::initialize()
{
    if (doneStaticInit)
        return;
    doneStaticInit = 1;
    lm::PipeEnds ends = lm::openPipe();
    if (!ends || !lm::makeNonBlocking(ends.read.get()) || !lm::makeNonBlocking(ends.write.get())) {
        std::perror("Unable to create pipe for SIGCLD handling");
        pfm_exit(-1);
    }
    signalPipe[0] = ends.read.release();
    signalPipe[1] = ends.write.release();
    auto* condition = reinterpret_cast<XtPointer>(XtInputReadMask);
    XtAppAddInput(theApplication->appContext(), signalPipe[0], condition, deleteChild, nullptr);
    pfm_signal(SIGCHLD, childHandler);
    lm::ignoreBrokenPipes();
}

LmSubProcessRep::LmSubProcessRep(const char* path, char** argv, int createOption, int wantInput)
    : _argv(argv),
      _path(const_cast<char*>(path)),
      _createOption(createOption)
{
    if (wantInput)
        _inputError = openInput();
}

LmSubProcessRep::~LmSubProcessRep()
{
    dropPipes();
    closeInput();
    LmFreeParsedCommand(_path, _argv);
}

static ino_t inodeOf(int fd)
{
    struct stat about = {};
    return fstat(fd, &about) == 0 ? about.st_ino : 0;
}

int LmSubProcessRep::openInput()
{
    lm::PipeEnds ends = lm::openPipe();
    if (!ends || !lm::makeNonBlocking(ends.write.get()))
        return errno;
    _stdinFd = ends.read.release();
    _inputFd = ends.write.release();
    _inputInode = inodeOf(_inputFd);
    return 0;
}

void LmSubProcessRep::closeInput()
{
    const int fd = std::exchange(_inputFd, -1);
    if (fd != -1 && inodeOf(fd) == _inputInode)   // somebody who closed it by hand may have given the number to a stranger
        close(fd);
    if (!_started && _stdinFd != 0)
        close(std::exchange(_stdinFd, 0));
}

// --- starting ----------------------------------------------------------------------------------------------------------

void LmSubProcessRep::run()
{
    if (_started || _inputError)
        return;
    const lm::Watch here(liveness());   // dialogs handle events
    if (!capture(stdoutCallback, _stdoutFd, _stdoutPipe) || !capture(stderrCallback, _stderrFd, _stderrPipe)) {
        if (here)
            dropPipes();
        return;
    }
    const lm::ChildStart start = {lm::programName(), {}, {}};
    const pid_t pid = lm::makeChild([&]() noexcept { exec(_argv, start); });
    if (pid < 0) {
        dropPipes();
        lm::warnOfFork(_argv[0], -pid);
        return;
    }
    _pid = pid;
    _started = true;
    addChild();
    closeChildEnds();
}

/// Has the child write into a pipe, when somebody wants to read it. False: there is no pipe, and we may be gone.
bool LmSubProcessRep::capture(const char* name, int& fd, std::unique_ptr<LmPipe>& pipe)
{
    if (!hasCallbacks(name))
        return true;
    const lm::Watch here(liveness());
    int writeFd = -1;
    auto made = std::make_unique<LmPipe>(writeFd);
    lm::FileDescriptor writeEnd(writeFd);
    if (!here || _started || made->readFd() == -1)
        return false;
    cloneCallback(name, LmPipe::inputCallback, made.get());
    fd = writeEnd.release();
    pipe = std::move(made);
    return true;
}

/// The ends that only the child uses.
void LmSubProcessRep::closeChildEnds()
{
    if (_stdoutPipe && _stdoutFd != STDOUT_FILENO)
        close(std::exchange(_stdoutFd, STDOUT_FILENO));
    if (_stderrPipe && _stderrFd != STDERR_FILENO)
        close(std::exchange(_stderrFd, STDERR_FILENO));
    if (_started && _stdinFd != 0)
        close(std::exchange(_stdinFd, 0));
}

static void drop(std::unique_ptr<LmPipe>& pipe)
{
    const lm::FileDescriptor readEnd(pipe ? pipe->readFd() : -1);
    pipe.reset();   // no longer watches, before the descriptor goes
}

void LmSubProcessRep::dropPipes()
{
    closeChildEnds();
    drop(_stdoutPipe);
    drop(_stderrPipe);
}

void LmSubProcessRep::addChild()
{
    if (childCount++ == 0)
        ignoreSignals();
    if (!children)
        children = new LmSPGenericList;
    children->append(new RPtr_LmSubProcessRep(this));
}

void LmSubProcessRep::ignoreSignals() { lm::ignoreInterrupts(); }

void LmSubProcessRep::restoreSignals() { lm::restoreInterrupts(); }

// --- the child ---------------------------------------------------------------------------------------------------------

void LmSubProcessRep::exec(char** argv, const lm::ChildStart& start) const noexcept
{
    const char* word = argv[0];
    lm::fillStandardDescriptors();
    if (setsid() == -1)
        lm::say({start.program, ": couldn't create process group for child \"", word, "\": ", lm::errorText(errno), "\n"});
    start.signals.take();
    const int input = _stdinFd != 0 ? _stdinFd : open("/dev/null", O_RDWR);
    if (input == -1) {
        const int error = errno;
        lm::say({word, " : Couldn't open /dev/null : ", lm::errorText(error), "\n"});
        pfm_exit(error);
    }
    lm::redirect(input, STDIN_FILENO, word, "stdin", "input");
    if (_stdoutFd != STDOUT_FILENO)
        lm::redirect(_stdoutFd, STDOUT_FILENO, word, "stdout", "output");
    if (_stderrFd != STDERR_FILENO)
        lm::redirect(_stderrFd, STDERR_FILENO, word, "stderr", "err");
    lm::closeOtherDescriptors();
    execvpe(_path, argv, start.environment.strings());
    const int error = errno;
    lm::say({start.program, ": exec() failed for \"", _path, "\" : ", lm::errorText(error), "\n"});
    pfm_exit(error);
}

// --- exits -------------------------------------------------------------------------------------------------------------

/// The SIGCHLD handler. A child is taken up only when its record is in the pipe: while that is full it stays a zombie, and
/// the event loop looks again once it has made room. So no exit is lost, and nothing waits.
void LmSubProcessRep::childHandler(int) noexcept
{
    const int error = errno;
    for (;;) {
        siginfo_t child = {};
        if (waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == -1 || child.si_pid == 0)
            break;
        const ExitRecord record = {child.si_pid, waitStatus(child)};
        if (write(signalPipe[1], &record, sizeof record) != sizeof record) {
            childrenWait = 1;
            break;
        }
        waitpid(child.si_pid, nullptr, WNOHANG);
    }
    errno = error;
}

void LmSubProcessRep::deleteChild(XtPointer, int* source, XtInputId*) noexcept
{
    ExitRecord record = {};
    const ssize_t count = read(*source, &record, sizeof record);
    if (count == -1 && (errno == EAGAIN || errno == EINTR))   // a local loop was faster
        return;
    if (count != sizeof record) {
        const std::string text = LmFormat("%s : INTERNAL error - child handler pipe corrupted\n", lm::programName());
        getTheFatalErrorDialog()->post(text.c_str());
        return;
    }
    if (childrenWait) {
        const lm::SignalBlock noExit(SIGCHLD);
        childrenWait = 0;
        childHandler(SIGCHLD);
    }
    RPtr_LmSubProcessRep* child = takeChild(record.pid);
    if (!child)
        return;   // of popen, system, or the application's own
    (*child)->processExited(record.status);
    delete child;   // and perhaps the record
    if (--childCount == 0)
        restoreSignals();
}

/// Takes the handle of a running child out of the list; null when it is not one of ours.
RPtr_LmSubProcessRep* LmSubProcessRep::takeChild(int pid)
{
    for (long i = 0; children && i < children->size(); ++i) {
        auto* child = static_cast<RPtr_LmSubProcessRep*>(children->findItem(i));
        if ((*child)->_pid == pid) {
            children->remove(i);
            return child;
        }
    }
    return nullptr;
}

void LmSubProcessRep::processExited(int status)
{
    _pid = 0;
    _exitStatus = status;
    if (_stdoutPipe)
        _stdoutPipe->deliverRest();
    if (_stderrPipe)
        _stderrPipe->deliverRest();
    callCallbacks(exitCallback, lm::asPointer(status));
}

/// Whether nobody has taken the child up yet, so that its process id is no stranger's.
static bool isOurs(pid_t pid)
{
    siginfo_t child = {};
    return waitid(P_PID, static_cast<id_t>(pid), &child, WEXITED | WNOHANG | WNOWAIT) == 0;
}

void LmSubProcessRep::signal(int sig)
{
    const lm::SignalBlock noExit(SIGCHLD);
    if (_pid == 0 || ::kill(-_pid, sig) == 0)
        return;
    if (errno == ESRCH && isOurs(_pid) && ::kill(_pid, sig) == 0)   // it could make no group of its own
        return;
    std::perror("Error signaling child");
}

// --- handles -----------------------------------------------------------------------------------------------------------

RPtr_LmSubProcessRep::RPtr_LmSubProcessRep(LmSubProcessRep* rep) : _rep(rep) { hold(rep); }

RPtr_LmSubProcessRep::RPtr_LmSubProcessRep(const RPtr_LmSubProcessRep& other) : _rep(other._rep) { hold(_rep); }

RPtr_LmSubProcessRep& RPtr_LmSubProcessRep::operator=(const RPtr_LmSubProcessRep& other)
{
    hold(other._rep);
    release(std::exchange(_rep, other._rep));
    return *this;
}

RPtr_LmSubProcessRep::~RPtr_LmSubProcessRep() { release(_rep); }

void RPtr_LmSubProcessRep::hold(LmSubProcessRep* rep)
{
    if (rep)
        ++rep->_references;
}

void RPtr_LmSubProcessRep::release(LmSubProcessRep* rep)
{
    if (rep && --rep->_references <= 0)
        delete rep;
}
