// forkwindow: a window that runs one command after another.
//   forkwindow [COMMAND ARGUMENT...]    without a command: a shell
// Lines typed go to the command, Ctrl-C ends it, Run in the menu starts it again.
#include <Lm/LmApp.h>
#include <Lm/LmForkIO.h>
#include <Lm/LmForkWindow.h>
#include <Lm/LmSubMenu.h>

#include <string>

/// The window, with its menu.
class TerminalWindow : public LmForkWindow {
public:
    explicit TerminalWindow(std::string command) : LmForkWindow("terminal", "> "), _command(std::move(command))
    {
        LmSubMenu* menu = addMenuPane("commandMenu");
        menu->addAction("run", runCommand, this);
        menu->addAction("stop", stopCommand, this);
        menu->addAction("clear", clearText, this);
        forkIO()->execCommand(_command.c_str());
    }

private:
    static void runCommand(Widget, XtPointer window, XtPointer) noexcept
    {
        auto* self = static_cast<TerminalWindow*>(window);
        self->forkIO()->execCommand(self->_command.c_str());
    }
    static void stopCommand(Widget, XtPointer window, XtPointer) noexcept
    {
        static_cast<TerminalWindow*>(window)->forkIO()->killProcess();
    }
    static void clearText(Widget, XtPointer window, XtPointer) noexcept
    {
        LmForkIO& console = *static_cast<TerminalWindow*>(window)->forkIO();
        console.clearHistory();
        if (console.running())
            console.newInput();
    }

    std::string _command;
};

int main(int argc, char** argv)
{
    LmApp app("Forkwindow", &argc, argv, nullptr, 0);
    std::string command;
    for (int i = 1; i < app.argc(); ++i)
        command.append(i > 1 ? " \"" : "\"").append(app.argv(i)).append("\"");
    auto* window = new TerminalWindow(command.empty() ? "sh" : command);   // deletes itself when it is closed
    window->show();
    app.run();
}
