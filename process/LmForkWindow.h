// LmForkWindow: a window that runs commands.
#pragma once

#include "LmWindow.h"
#include "support/handles.h"

#include <memory>

class LmForkIO;

/// A top-level window whose view is a console for commands (LmForkIO).
///
///     auto* window = new LmForkWindow("shell", "$ ");   // deletes itself when it is closed
///     window->show();
///     window->forkIO()->execCommand("sh -i");
///
///   Widgets    as LmWindow; the form "forkWindowForm" with the console, which has the window's name
class LM_API LmForkWindow : public LmWindow {
public:
    /// The console is idle and has that prompt (null: none).
    LmForkWindow(const char* name, const char* prompt);
    /// Destroys the console, and so terminates its command.
    ~LmForkWindow() override;

    LmForkIO* forkIO() const { return _forkIO.get(); }     ///< The console; owned by the window.
    const char* prompt() const { return _prompt.get(); }   ///< as constructed; may be null

private:
    std::unique_ptr<LmForkIO> _forkIO;
    lm::CString _prompt;
};
