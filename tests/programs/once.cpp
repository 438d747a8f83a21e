// once [ARGUMENT...]: a program that runs once, per host with the argument -perhost, and opens its window at other starts with
// -open. It says on standard output, a line each: "running", and for every other start "invoked", what was done to the window,
// and the arguments, each in < >. It ends when -end is among them, or with the server.
#include "LmApp.h"
#include "LmRunOnce.h"
#include "LmSimpleWindow.h"
#include "support/handles.h"

#include <cstdio>

/// Says what is done to it, and never appears.
class QuietWindow : public LmSimpleWindow {
public:
    QuietWindow() : LmSimpleWindow("once") {}
    void show() override { std::printf("show "); }
    void open() override { std::printf("open "); }
    void iconify() override { std::printf("iconify "); }
    void raise() override { std::printf("raise "); }
};

static void invoked(LmCallbackObject* caller, void* arguments, void*)
{
    const auto* once = static_cast<LmRunOnce*>(caller);
    auto* list = static_cast<LmNameList*>(arguments);
    list->clear();
    std::printf("invoked");
    for (int i = 0; i < once->numArgs(); ++i) {
        list->add(lm::CString(once->arg(i)).get());
        std::printf(" <%s>", list->at(i));
    }
    std::puts("");
    if (list->exists("-end"))
        theApplication->terminate(0);
}

int main(int argc, char** argv)
{
    setvbuf(stdout, nullptr, _IOLBF, 0);
    LmNameList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.add(argv[i]);
    LmApp app("Once", &argc, argv, nullptr, 0);
    LmRunOnce once(&arguments, arguments.exists("-perhost") != 0, nullptr, arguments.exists("-open") != 0);
    once.addCallback(LmRunOnce::invokedCallback, invoked, &arguments);
    new QuietWindow;   // deletes itself
    std::puts("running");
    app.run();
}
