// once [-perhost] [-open] [ARGUMENT...]: a program that runs once. It says on standard output, a line each: "running", and for
// every other start "invoked", what was done to its window, and the arguments, each in < >. The arguments -perhost and -open
// are its own; they are handed over, too. It ends when its standard input does.
#include "LmApp.h"
#include "LmInput.h"
#include "LmRunOnce.h"
#include "LmSimpleWindow.h"
#include "support/handles.h"

#include <cstdio>
#include <string>
#include <utility>

#include <unistd.h>

/// Writes down what is done to it. The guard is tested, not the window manager: it never appears.
class QuietWindow : public LmSimpleWindow {
public:
    QuietWindow() : LmSimpleWindow("once") {}
    void show() override { done += " show"; }
    void open() override { done += " open"; }
    void iconify() override { done += " iconify"; }
    void raise() override { done += " raise"; }

    std::string done;
};

static void invoked(LmCallbackObject* caller, void* clientData, void*)
{
    const auto* once = static_cast<LmRunOnce*>(caller);
    std::string line = "invoked" + std::exchange(static_cast<QuietWindow*>(clientData)->done, "");
    for (int i = 0; i < once->numArgs(); ++i)
        line.append(" <").append(lm::CString(once->arg(i)).get()).append(">");
    std::puts(line.c_str());
}

int main(int argc, char** argv)
{
    setvbuf(stdout, nullptr, _IOLBF, 0);
    LmNameList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.add(argv[i]);
    const auto given = [&](const char* option) { return static_cast<Boolean>(arguments.exists(option)); };

    LmApp app("Once", &argc, argv, nullptr, 0);
    LmRunOnce once(&arguments, given("-perhost"), nullptr, given("-open"));
    once.addCallback(LmRunOnce::invokedCallback, invoked, new QuietWindow);   // the window deletes itself
    LmInput input;
    input.addCallback(
        LmInput::inputCallback,
        [](LmCallbackObject*, void*, void*) {
            char byte;
            if (read(STDIN_FILENO, &byte, 1) <= 0)
                _exit(0);
        },
        nullptr);
    input.attach(STDIN_FILENO, XtInputReadMask);
    std::puts("running");
    app.run();
}
