// LmCallback: one Xt callback list of one widget, as an object with a virtual operation.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// Calls a virtual operation whenever one callback list of one widget runs. Derive, override callback(), attach.
///
/// Destroying the object or the widget ends the connection, whichever goes first.
///
///   Errors     none: a null widget or name attaches nothing
class LM_API LmCallback {
public:
    /// Attached to nothing.
    LmCallback() = default;
    /// Attached at once. `callbackName` (XmNactivateCallback ...) is not copied.
    LmCallback(Widget w, const char* callbackName) { attach(w, callbackName); }
    LmCallback(const LmCallback&) = delete;
    LmCallback& operator=(const LmCallback&) = delete;
    virtual ~LmCallback();
    /// The action; `callData` is the widget's call data.
    virtual void callback(void* callData) = 0;

    /// Leaves the present widget, if any, and joins this one. `callbackName` is not copied.
    void attach(Widget w, const char* callbackName);
    /// The Xt procedure: runs callback() of the LmCallback given as client data.
    static void stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;

private:
    void detach();
    void forgetWidget();

    Widget _widget = nullptr;   // null when not attached
    const char* _name = nullptr;
};
