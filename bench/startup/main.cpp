// The sample window as a plain Motif program, or, compiled with PREPARED, after lm::prepareDisplay: everything else is
// the same. With the argument "later" it adds another scrolled text when the window is up.
#include "SampleWindow.h"

#ifdef PREPARED
#include "base/core/StartUp.h"
#endif

#include <Xm/Xm.h>

#include <string_view>

static XtAppContext context;

static void addLater(XtPointer shell, XtIntervalId*) { addScrolledText(static_cast<Widget>(shell)); }

int main(int argc, char** argv)
{
    XtSetLanguageProc(nullptr, nullptr, nullptr);
    XtToolkitInitialize();
    context = XtCreateApplicationContext();
    Display* display = XtOpenDisplay(context, nullptr, nullptr, "Sample", nullptr, 0, &argc, argv);
    if (!display)
        XtAppError(context, "Can't Open Display");

    String name = nullptr, className = nullptr;
    XtGetApplicationNameAndClass(display, &name, &className);
#ifdef PREPARED
    lm::prepareDisplay(display, name, className);
#endif
    Widget shell = XtVaAppCreateShell(name, className, applicationShellWidgetClass, display, nullptr);
    makeSampleWindow(shell);
    XtRealizeWidget(shell);
    if (argc > 1 && std::string_view(argv[1]) == "later")
        XtAppAddTimeOut(context, 100, addLater, shell);
    XtAppMainLoop(context);
}
