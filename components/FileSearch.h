// FileSearch.h: commands that print names, run while the application is busy and the user may stop them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class LmBusyDialog;
class LmSimpleWindow;

namespace lm {

/// Keeps the application busy while it lives. While the default busy dialog is the application's choice, the interrupt
/// dialog takes its place.
class InterruptibleBusy {
public:
    explicit InterruptibleBusy(LmSimpleWindow* window);
    InterruptibleBusy(const InterruptibleBusy&) = delete;
    InterruptibleBusy& operator=(const InterruptibleBusy&) = delete;
    ~InterruptibleBusy();

    /// Shows a message in the busy dialog over the window; the dialog stays.
    void say(const std::string& message);
    /// Whether the user pressed Cancel in it.
    bool wasCancelled() const;

private:
    LmSimpleWindow* _window;
    bool _replaced;   // the interrupt dialog is in the default one's place
    bool _said = false;
};

/// Collects the lines that commands print, while events are handled. The busy dialog says so at once when announce() is called,
/// else when a command takes more than half a second.
class FileSearch {
public:
    enum class End { finished, stopped, tooMany };
    static constexpr std::size_t unlimited = static_cast<std::size_t>(-1);
    static constexpr std::size_t longestLine = 1024;   // bytes

    /// Stops when `goesOn` answers false, which is asked often, and when `limit` lines are there. `window` may be null.
    FileSearch(LmSimpleWindow* window, std::size_t limit, std::function<bool()> goesOn);

    /// Shows the message.
    void announce();
    /// Runs the command in a directory. When it is stopped, or finds too many, its processes end.
    End run(const std::string& command, const std::string& directory);

    /// What the commands printed, without empty lines and those that are too long.
    std::vector<std::string>& lines() { return _lines; }
    bool foundTooLong() const { return _foundTooLong; }

private:
    bool isStopped() const { return !_goesOn() || _busy.wasCancelled(); }
    bool takeLines(std::string& bytes, bool atEnd);
    void takeLine(std::string line);

    InterruptibleBusy _busy;
    std::size_t _limit;
    std::function<bool()> _goesOn;
    std::vector<std::string> _lines;
    bool _announced = false;
    bool _foundTooLong = false;
};

}   // namespace lm
