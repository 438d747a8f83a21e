#include "LmForkIO.h"

#include "LmApp.h"
#include "LmPipe.h"
#include "LmProgram.h"
#include "process/OutputQueue.h"
#include "support/calldata.h"
#include "support/resources.h"
#include "support/xt.h"
#include "utils/Characters.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;

const char* const LmForkIO::inputCallback = "inputCallback";
const char* const LmForkIO::exitCallback = "exitCallback";

// A turn of the event loop reads for `readTime` and shows for `showTime`, the latter once in a `frameTime`.
static constexpr auto readTime = 3ms, showTime = 6ms, frameTime = 20ms;
static constexpr size_t mostShown = 512 * 1024;   // in one turn
static constexpr size_t readSize = 64 * 1024, sliceSize = 4 * 1024;
static constexpr size_t pipeSize = 256 * 1024;

/// One of a command's pipes.
struct LmForkIO::Pipe {
    lm::TextDecoder decoder{lm::localeUnits()};
};

/// One command.
struct LmForkIO::Run {
    explicit Run(const RPtr_LmSubProcessRep& started) : process(started) {}

    LmPipe* pipe(size_t i) const { return i == 0 ? process->stdoutPipe() : process->stderrPipe(); }
    bool isOpen(size_t i) const { return pipe(i) && pipe(i)->input()->isAttached(); }

    RPtr_LmSubProcessRep process;
    std::array<Pipe, 2> pipes;
    bool ended = false;
    bool announced = false;
    int status = 0;
};

LmForkIO::LmForkIO(const char* name, Widget parent, const char* prompt)
    : LmTextIO(name, parent, prompt),
      _strangers(std::make_unique<Pipe>()),
      _queue(std::make_unique<lm::OutputQueue>())
{
    _inputWriter.addCallback(
        LmInput::inputCallback, [](LmCallbackObject*, void* self, void*) { static_cast<LmForkIO*>(self)->sendInput(); }, this);
    deactivate();
}

LmForkIO::~LmForkIO()
{
    if (_process.operator->())
        callCallbacks(exitCallback, nullptr);
    killProcess();
    callCallbacks(inputCallback, lm::asPointer(1));
    _inputWriter.remove();
    for (const auto& run : _runs) {   // nobody reads any more
        for (size_t i = 0; i < run->pipes.size(); ++i) {
            if (run->isOpen(i))
                run->pipe(i)->input()->remove();
        }
        run->process->closeInput();
    }
}

// --- commands ----------------------------------------------------------------------------------------------------------

void LmForkIO::execCommand(const char* command)
{
    const lm::Watch here(liveness());
    killProcess();
    LmProgram program(command, 0);
    program.addCallback(LmProgram::stdoutCallback, this, &LmForkIO::cmdOutput, nullptr);
    program.addCallback(LmProgram::stderrCallback, this, &LmForkIO::cmdOutput, nullptr);
    program.addCallback(LmProgram::exitCallback, this, &LmForkIO::cmdExit, nullptr);
    program.setWantInput(1);
    const RPtr_LmSubProcessRep started = program.run();   // a dialog may say why not
    if (!here)
        return;
    _inputWriter.remove();
    _unsent.clear();
    flushInput();
    if (started->pid() == 0) {
        _process = {};
        _running = False;
        deactivate();
        return;
    }
    _process = started;
    _runs.push_back(std::make_unique<Run>(started));
    for (size_t i = 0; i < 2; ++i)
        fcntl(_runs.back()->pipe(i)->readFd(), F_SETPIPE_SZ, static_cast<int>(pipeSize));   // fewer changes between processes
    newInput();
    if (!here)
        return;
    _running = True;
    activate();
}

void LmForkIO::killProcess()
{
    if (_running && _process.operator->())
        _process->kill(SIGTERM);
}

// --- input -------------------------------------------------------------------------------------------------------------

void LmForkIO::inputString(const char* text)
{
    if (!text || !_process.operator->() || _process->inputFd() == -1)
        return;
    _unsent += text;
    sendInput();
}

/// Writes what the command takes now, and waits for it with the rest. Input that nobody reads any more is dropped.
void LmForkIO::sendInput()
{
    size_t sent = 0;
    while (sent < _unsent.size()) {
        const ssize_t count = write(_process->inputFd(), _unsent.data() + sent, _unsent.size() - sent);
        if (count > 0)
            sent += static_cast<size_t>(count);
        else if (errno == EAGAIN)
            break;
        else if (errno != EINTR)
            sent = _unsent.size();
    }
    _unsent.erase(0, sent);
    if (_unsent.empty())
        _inputWriter.remove();
    else if (!_inputWriter.isAttached())
        _inputWriter.attach(_process->inputFd(), XtInputWriteMask);
}

void LmForkIO::doNewLine()
{
    inputString((inputText() + "\n").c_str());
    LmTextIO::doNewLine();
}

void LmForkIO::doCtrlC()
{
    const lm::Watch here(liveness());
    killProcess();
    abandonInput("^C\n");
    if (here)
        callCallbacks(inputCallback, lm::asPointer(2));
}

void LmForkIO::doCtrlD()
{
    if (buffSize() > 0)
        return;
    const lm::Watch here(liveness());
    abandonInput("^D\n");
    if (here)
        callCallbacks(inputCallback, lm::asPointer(3));
}

// --- reading -----------------------------------------------------------------------------------------------------------

/// The pipe that the watcher belongs to.
LmForkIO::Pipe* LmForkIO::pipeOf(const LmInput* input)
{
    for (const auto& run : _runs) {
        for (size_t i = 0; i < run->pipes.size(); ++i) {
            if (run->pipe(i) && run->pipe(i)->input() == input)
                return &run->pipes[i];
        }
    }
    return _strangers.get();
}

/// Reads once, into the queue.
ssize_t LmForkIO::readInto(Pipe& pipe, int fd, size_t most)
{
    std::array<char, readSize> bytes;
    const ssize_t count = read(fd, bytes.data(), std::min(most, bytes.size()));
    if (count > 0)
        pipe.decoder.decode({bytes.data(), static_cast<size_t>(count)}, _queue->tail());
    return count;
}

int LmForkIO::readAndOutput(LmInput* input)
{
    const ssize_t count = readInto(*pipeOf(input), input->fd(), 1023);
    const int error = errno;
    if (count > 0) {
        const lm::Watch here(liveness());
        while (here && !_queue->empty())
            insertSlices();
    }
    errno = error;
    return static_cast<int>(count);
}

/// Reads what is there, within bounds. False when the pipe has ended or failed.
bool LmForkIO::readSome(LmInput* input, size_t most, Clock::duration time)
{
    Pipe& pipe = *pipeOf(input);
    const auto end = Clock::now() + time;
    for (size_t total = 0; total < most;) {
        const ssize_t count = readInto(pipe, input->fd(), most - total);
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
            return false;
        if (count < 0)
            break;
        total += static_cast<size_t>(count);
        _fed = true;
        leaveOut();
        if (Clock::now() >= end)
            break;
    }
    return true;
}

/// No longer watches, and shows a character that broke off.
void LmForkIO::endPipe(LmInput* input)
{
    pipeOf(input)->decoder.finish(_queue->tail());
    input->remove();
}

void LmForkIO::cmdOutput(LmCallbackObject*, void*, void* callData)
{
    auto* input = static_cast<LmInput*>(callData);
    const lm::Watch here(liveness());
    if (_queue->size() > queueLimit() + queueLimit() / 2) {   // everything is to be kept: the writer has to wait
        showTurn();
        return;
    }
    if (!readSome(input, pipeSize, readTime))
        endPipe(input);
    showSoon();
    if (here)
        forgetEndedRuns();
}

/// Takes what the pipes of an ended command hold now.
void LmForkIO::drain(Run& run)
{
    for (size_t i = 0; i < run.pipes.size(); ++i) {
        if (run.isOpen(i) && !readSome(run.pipe(i)->input(), pipeSize, 1h))
            endPipe(run.pipe(i)->input());
    }
}

// --- showing -----------------------------------------------------------------------------------------------------------

/// How much may wait in the queue.
size_t LmForkIO::queueLimit() const
{
    constexpr size_t withoutLimit = 4'000'000;
    return historyLimit() > 0 ? static_cast<size_t>(historyLimit()) : withoutLimit;
}

/// Drops from the queue what the history limit would drop anyway, once all were shown.
void LmForkIO::leaveOut()
{
    if (historyLimit() > 0 && _queue->keepNewest(queueLimit()))
        _leftOut = true;
}

/// Shows what waits: at once after a pause, else with the next frame. In idle time, too, unless more keeps coming: most of
/// a flood is never shown, and reading it comes first.
void LmForkIO::showSoon()
{
    if (_queue->empty()) {
        _frame = {};
        _idle = {};
        announceExits();
        return;
    }
    const auto since = Clock::now() - _lastTurn;
    if (since >= frameTime) {
        showTurn();
        return;
    }
    XtAppContext context = theApplication->appContext();
    if (!_frame) {
        const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(frameTime - since) + 1ms;
        _frame = lm::TimerHandle(lm::after<&LmForkIO::frameDue>(context, static_cast<unsigned long>(wait.count()), this));
    }
    if (!_idle && !_fed)
        _idle = lm::WorkProcHandle(lm::whenIdle<&LmForkIO::showWhenIdle>(context, this));
}

void LmForkIO::frameDue()
{
    _frame.fired();
    showTurn();
}

Boolean LmForkIO::showWhenIdle()
{
    _idle.fired();
    showTurn();
    return True;
}

void LmForkIO::showTurn()
{
    const lm::Watch here(liveness());
    _fed = false;
    insertSlices();
    if (!here)
        return;
    _lastTurn = Clock::now();
    showSoon();
}

/// Hands the front of the queue over, for a short time.
void LmForkIO::insertSlices()
{
    const lm::Watch here(liveness());
    const Unseen unseen(*this);
    const bool dropped = std::exchange(_leftOut, false);
    if (dropped)
        dropHistory();
    else if (cutLongHistory())
        return;
    const size_t most = dropped ? mostShown / 8 : mostShown;   // dropping has taken its time, too
    const auto end = Clock::now() + showTime;
    for (size_t shown = 0; here && !_queue->empty() && shown < most;) {
        std::string text(_queue->slice(sliceSize));
        _queue->pop(text.size());
        shown += text.size();
        outputString(text.data(), True);
        if (Clock::now() >= end)
            break;
    }
}

// --- exits -------------------------------------------------------------------------------------------------------------

void LmForkIO::cmdExit(LmCallbackObject* caller, void*, void* callData)
{
    for (const auto& run : _runs) {
        if (run->process.operator->() != caller || run->ended)
            continue;
        run->ended = true;
        run->status = lm::asInt(callData);
        drain(*run);
        break;
    }
    showSoon();
}

/// Announces what has ended, when all that was written before is shown.
void LmForkIO::announceExits()
{
    const lm::Watch here(liveness());
    while (here && _queue->empty()) {
        const auto ended = std::ranges::find_if(_runs, [](const auto& run) { return run->ended && !run->announced; });
        if (ended == _runs.end())
            break;
        (*ended)->announced = true;
        announceExit(**ended);
    }
    if (here)
        forgetEndedRuns();
}

void LmForkIO::announceExit(const Run& run)
{
    const lm::Watch here(liveness());
    const RPtr_LmSubProcessRep process = run.process;
    const int status = run.status;
    const auto isPresent = [&] { return _process.operator->() == process.operator->(); };
    if (isPresent()) {
        _running = False;
        _inputWriter.remove();
        _unsent.clear();
        flushInput();
        deactivate();
    }
    callCallbacks(exitCallback, lm::asPointer(status));
    if (here && isPresent())
        _process = {};
}

/// A command is remembered as long as it runs or somebody writes into its pipes.
void LmForkIO::forgetEndedRuns()
{
    std::erase_if(_runs, [](const auto& run) { return run->announced && !run->isOpen(0) && !run->isOpen(1); });
}
