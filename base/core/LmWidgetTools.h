// LmWidgetTools: small services on widgets and shells that Xt and Motif leave out.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// Shows a cursor on a realized shell and, in the same way, on its popup children. Everything else is left alone, so
/// null, gadgets, unrealized shells and plain widgets do nothing.
LM_API void setPopupCursors(Widget w, Cursor cursor);

/// Whether a shell is popped up; False for everything that is not a shell.
LM_API Boolean isPoppedUp(Widget w);

/// Makes an unrealized shell start iconified: sets the initial state in its window manager hints.
LM_API void ForceShellIconic(Widget shell);

/// Manages all children of a composite in one call.
LM_API void ManageChildrenOfWidget(Widget w);

/// Unmanages all children of a composite in one call.
LM_API void UnmanageChildrenOfWidget(Widget w);

/// Whether the widget's destruction has begun; it may be a while until it ends.
LM_API Boolean isBeingDestroyed(Widget w);

/// The name of the widget's class ("XmPushButton"); owned by the class.
LM_API const char* XtClassName(Widget w);

/// An Xlib error handler that ignores the error, for programs that want to go on. Not installed by the library.
LM_API int XdebuggingErrorHandler(Display* display, XErrorEvent* event);

/// An Xlib input/output error handler that ignores the error. Xlib ends the program nevertheless when it returns. Not
/// installed by the library.
LM_API int XIOdebuggingErrorHandler(Display* display);

/// An Xt warning handler that discards the message. LmApp installs it, unless LUMORA_WARNINGS=1 is in the environment.
LM_API void silentErrorHandler(char* message);

/// Makes sure that the environment variable XFILESEARCHPATH contains "/usr/lib/X11/%T/%N%S", so that application
/// defaults are found there. Called by LmApp; calling it again changes nothing.
LM_API void set_XFILESEARCHPATH();
