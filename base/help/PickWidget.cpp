#include "base/help/PickWidget.h"

#include "LmApp.h"
#include "LmContextHelp.h"
#include "LmSimpleWindow.h"

#include <X11/cursorfont.h>
#include <Xm/MenuShell.h>
#include <Xm/Xm.h>

namespace lm {

/// The shell of the window: the panes of its menus stand in shells of their own, which are no windows.
static Widget windowOf(Widget w)
{
    while (w && (!XtIsShell(w) || XmIsMenuShell(w)))
        w = XtParent(w);
    return w;
}

static Widget mainWindow()
{
    LmSimpleWindow* window = theApplication->mainWindow();
    return window ? window->baseWidget() : nullptr;
}

static Cursor questionArrow(Display* display)
{
    static const Cursor cursor = XCreateFontCursor(display, XC_question_arrow);   // kept as long as the process
    return cursor;
}

void helpOnPickedWidget(Widget entry)
{
    if (!theApplication)
        return;
    if (Widget w = theApplication->baseWidget())
        XmUpdateDisplay(w);
    Widget shell = windowOf(entry);
    if (!shell)
        shell = mainWindow();
    if (!shell || !XtIsRealized(shell))
        return;
    Display* display = XtDisplay(shell);
    Widget picked = XmTrackingLocate(shell, questionArrow(display), False);
    XUngrabPointer(display, CurrentTime);   // whatever ended it, no grab is left
    if (!picked)
        return;
    LmContextHelpCallbackStruct call = {lm::pickedForHelp, nullptr, picked};
    Widget helper = picked;
    while (helper && XtHasCallbacks(helper, XmNhelpCallback) != XtCallbackHasSome)
        helper = XtParent(helper);
    if (helper)
        XtCallCallbacks(helper, XmNhelpCallback, &call);
    else
        _LmSmartHelpCallback(shell, nullptr, &call);
}

}   // namespace lm
