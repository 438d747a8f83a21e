#include "Pictures.h"

#include <Lm/LmApp.h>
#include <Lm/support/handles.h>

#include <cstdlib>

/// The topmost ancestor below the root: the window manager's frame, or the window itself.
static Window frameOf(Display* display, Window window)
{
    Window root = None, parent = window, *children = nullptr;
    unsigned count = 0;
    while (XQueryTree(display, window, &root, &parent, &children, &count)) {
        if (children)
            XFree(children);
        if (parent == root || parent == None)
            break;
        window = parent;
    }
    return window;
}

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

int writePictures(GalleryWindow& window, const std::string& folder)
{
    int status = 0;
    Display* display = theApplication->display();
    for (int i = 0; i < window.pageCount(); ++i) {
        window.choose(i);
        run(500);
        const std::string frame = std::to_string(frameOf(display, XtWindow(window.baseWidget())));
        const std::string command = "import -window " + frame + " '" + folder + "/" + window.page(i).name() + ".png'";
        if (std::system(command.c_str()) != 0)
            status = 1;
    }
    return status;
}
