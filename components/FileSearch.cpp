#include "components/FileSearch.h"

#include "LmApp.h"
#include "LmBusyDialog.h"
#include "LmInterruptDialog.h"
#include "base/core/EventLoop.h"
#include "process/ShellCommand.h"
#include "support/handles.h"

#include <utility>

// --- the busy dialog ---------------------------------------------------------------------------------------------------

lm::InterruptibleBusy::InterruptibleBusy(LmSimpleWindow* window)
    : _window(window),
      _replaced(getTheBusyDialog() == getTheDefaultBusyDialog())
{
    theApplication->busy();
    if (_replaced)
        theApplication->setBusyDialog(getTheInterruptDialog());
}

lm::InterruptibleBusy::~InterruptibleBusy()
{
    theApplication->notBusy();
    if (!_replaced)
        return;
    if (_said)
        getTheInterruptDialog()->unpost();   // the application may be busy otherwise, and its own dialog be up
    if (getTheBusyDialog() == getTheInterruptDialog())
        theApplication->setBusyDialog(nullptr);
}

void lm::InterruptibleBusy::say(const std::string& message)
{
    _said = true;
    theApplication->busy(message.c_str(), _window);
    theApplication->notBusy();
}

bool lm::InterruptibleBusy::wasCancelled() const
{
    const auto* dialog = _said ? dynamic_cast<LmInterruptDialog*>(getTheBusyDialog()) : nullptr;
    return dialog && dialog->action() == LmDialogManager::REASON_CANCEL;
}

// --- the search --------------------------------------------------------------------------------------------------------

static constexpr const char* searching = "Searching, Please wait...";
static constexpr std::size_t progressStep = 25;           // lines
static constexpr unsigned long quietMilliseconds = 500;   // without a message

lm::FileSearch::FileSearch(LmSimpleWindow* window, std::size_t limit, std::function<bool()> goesOn)
    : _busy(window),
      _limit(limit),
      _goesOn(std::move(goesOn))
{}

void lm::FileSearch::announce()
{
    _announced = true;
    _busy.say(searching);
}

namespace {

/// What a command has printed, collected from the event loop.
class Output {
public:
    explicit Output(lm::ShellCommand& command) : _command(command)
    {
        auto* condition = reinterpret_cast<XtPointer>(XtInputReadMask);
        _input = lm::InputHandle(XtAppAddInput(theApplication->appContext(), command.descriptor(), condition, takeInput, this));
    }
    bool isWaiting() const { return bytes.size() == _seen && !atEnd; }
    void see() { _seen = bytes.size(); }

    std::string bytes;
    bool atEnd = false;

private:
    static void takeInput(XtPointer self, int*, XtInputId*) noexcept
    {
        auto* output = static_cast<Output*>(self);
        output->atEnd = !output->_command.read(output->bytes);
        if (output->atEnd)
            output->_input = {};   // the end of a pipe stays readable
    }

    lm::ShellCommand& _command;
    lm::InputHandle _input;
    std::size_t _seen = 0;   // bytes that were looked at, and are the start of a line
};

/// A moment from now, in the event loop.
class Later {
public:
    explicit Later(unsigned long milliseconds) : _timer(XtAppAddTimeOut(theApplication->appContext(), milliseconds, happen, this))
    {}
    explicit operator bool() const { return _happened; }

private:
    static void happen(XtPointer self, XtIntervalId*) noexcept
    {
        static_cast<Later*>(self)->_timer.fired();
        static_cast<Later*>(self)->_happened = true;
    }
    bool _happened = false;
    lm::TimerHandle _timer;
};

}   // namespace

lm::FileSearch::End lm::FileSearch::run(const std::string& command, const std::string& directory)
{
    ShellCommand child(command, directory);
    if (!child)
        return isStopped() ? End::stopped : End::finished;
    Output output(child);
    const Later late(quietMilliseconds);
    while (!isStopped()) {
        dispatchUntil([&] { return !output.isWaiting() || isStopped() || (late && !_announced); });
        if (isStopped())
            break;
        if (late && !_announced)
            announce();
        if (!takeLines(output.bytes, output.atEnd))
            return _lines.size() >= _limit ? End::tooMany : End::stopped;
        output.see();
        if (output.atEnd)
            return End::finished;
    }
    return End::stopped;
}

/// Takes the complete lines out of the bytes. False when that was the last that is wanted.
bool lm::FileSearch::takeLines(std::string& bytes, bool atEnd)
{
    std::size_t start = 0;
    for (std::size_t end = 0; start < bytes.size(); start = end + 1) {
        end = bytes.find('\n', start);
        if (end == std::string::npos && !atEnd)
            break;
        end = std::min(end, bytes.size());
        const std::size_t before = _lines.size();
        takeLine(bytes.substr(start, end - start));
        if (_lines.size() == before)
            continue;
        if (_lines.size() >= _limit)
            return false;
        if (_announced && _lines.size() % progressStep == 0)
            _busy.say(searching + ("\n" + std::to_string(_lines.size())) + " files added to the fileset");
        if (isStopped())
            return false;
    }
    bytes.erase(0, start);
    return true;
}

void lm::FileSearch::takeLine(std::string line)
{
    if (line.size() > longestLine)
        _foundTooLong = true;
    else if (!line.empty())
        _lines.push_back(std::move(line));
}
