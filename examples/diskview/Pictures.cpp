#include "Pictures.h"

#include <Lm/LmApp.h>

#include <cstdlib>

/// Runs the event loop for a while: widgets paint, timers run.
static void run(unsigned long milliseconds)
{
    bool over = false;
    XtAppContext context = theApplication->appContext();
    XtAppAddTimeOut(
        context, milliseconds, [](XtPointer flag, XtIntervalId*) { *static_cast<bool*>(flag) = true; }, &over);
    while (!over)
        XtAppProcessEvent(context, XtIMAll);
    theApplication->handlePendingEvents();
}

static int write(Window window, const std::string& file)
{
    return std::system(("import -window " + std::to_string(window) + " '" + file + ".png'").c_str()) != 0;
}

static int writeSized(DiskWindow& window, int width, int height, const std::string& file)
{
    XtVaSetValues(window.baseWidget(), XmNwidth, width, XmNheight, height, nullptr);
    run(500);
    return write(XtWindow(window.baseWidget()), file);
}

int writePictures(DiskWindow& window, const std::string& folder)
{
    while (window.isBusyScanning())
        run(100);
    window.chooseRow(2);
    run(500);
    int failed = write(XtWindow(window.baseWidget()), folder + "/diskview");
    failed += writeSized(window, 480, 400, folder + "/small");
    failed += writeSized(window, 1200, 900, folder + "/large");
    Widget dialog = window.preferences().post(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &window);
    run(500);
    failed += write(XtWindow(XtParent(dialog)), folder + "/preferences");
    return failed != 0;
}
