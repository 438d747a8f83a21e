#include "LmInterruptDialog.h"

#include "LmApp.h"

#include <Xm/Xm.h>

const char* LmInterruptDialog::interruptedCallback = "interrupted";

LmInterruptDialog::LmInterruptDialog(const char* name) : LmBusyDialog(name) { _showCancel = true; }

Widget LmInterruptDialog::createDialog(Widget parent)
{
    Widget dialog = LmBusyDialog::createDialog(parent);
    XtAddCallback(dialog, XmNmapCallback, fixCursorCallback, this);
    return dialog;
}

void LmInterruptDialog::fixCursorCallback(Widget dialog, XtPointer, XtPointer) noexcept
{
    Widget shell = XtParent(dialog);
    if (XtIsRealized(shell))
        XDefineCursor(XtDisplay(shell), XtWindow(shell), theApplication->normalCursor());
}

bool LmInterruptDialog::wasInterrupted()
{
    if (!_handlingEvents) {
        const lm::Watch here(liveness());
        _handlingEvents = true;
        theApplication->handlePendingEvents();
        if (!here)
            return true;   // whoever deleted us did not want the work to go on
        _handlingEvents = false;
    }
    if (_action != REASON_CANCEL)
        return false;
    callCallbacks(interruptedCallback, nullptr);
    return true;
}

LmInterruptDialog* getTheInterruptDialog()
{
    static auto* dialog = new LmInterruptDialog("interruptDialog");
    return dialog;
}
