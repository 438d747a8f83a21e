#include "LmWidgetTools.h"

#include "base/core/SearchPath.h"

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <X11/StringDefs.h>
#include <X11/Xutil.h>

#include <span>

void setPopupCursors(Widget w, Cursor cursor)
{
    if (!w || !XtIsWidget(w) || !XtIsShell(w) || !XtIsRealized(w))
        return;
    XDefineCursor(XtDisplay(w), XtWindow(w), cursor);
    for (Widget popup : std::span(w->core.popup_list, w->core.num_popups))
        setPopupCursors(popup, cursor);
}

Boolean isPoppedUp(Widget w)
{
    if (!w || !XtIsShell(w))
        return False;
    return reinterpret_cast<ShellWidget>(w)->shell.popped_up;
}

void ForceShellIconic(Widget shell)
{
    if (!shell || !XtIsWMShell(shell))
        return;
    XWMHints& hints = reinterpret_cast<WMShellWidget>(shell)->wm.wm_hints;
    hints.initial_state = IconicState;
    hints.flags |= StateHint;
}

static std::span<Widget> childrenOf(Widget w)
{
    if (!w || !XtIsComposite(w))
        return {};
    const CompositePart& composite = reinterpret_cast<CompositeWidget>(w)->composite;
    return {composite.children, composite.num_children};
}

void ManageChildrenOfWidget(Widget w)
{
    if (const auto children = childrenOf(w); !children.empty())
        XtManageChildren(children.data(), static_cast<Cardinal>(children.size()));
}

void UnmanageChildrenOfWidget(Widget w)
{
    if (const auto children = childrenOf(w); !children.empty())
        XtUnmanageChildren(children.data(), static_cast<Cardinal>(children.size()));
}

Boolean isBeingDestroyed(Widget w) { return w ? w->core.being_destroyed : False; }

const char* XtClassName(Widget w) { return w ? XtClass(w)->core_class.class_name : nullptr; }

int XdebuggingErrorHandler(Display*, XErrorEvent*) { return 0; }

int XIOdebuggingErrorHandler(Display*) { return 0; }

void silentErrorHandler(char*) {}

void set_XFILESEARCHPATH() { lm::extendSearchPath(); }
