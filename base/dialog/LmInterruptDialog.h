// LmInterruptDialog: says what the application is busy with, and lets the user stop it.
#pragma once

#include "LmBusyDialog.h"

/// A busy dialog with a Cancel button. Long work asks wasInterrupted() now and then:
///
///     LmBusyDialog::setBusyDialog(getTheInterruptDialog());
///     theApplication->busy("Counting words");
///     while (countMore() && !getTheInterruptDialog()->wasInterrupted())
///         ;
///     theApplication->notBusy();
///
///   Widgets    XmMessageBox of the manager's name, "interruptDialog" for getTheInterruptDialog()
///   Callbacks  interruptedCallback, from each wasInterrupted() that answers true; call data: null
///   Others     as LmDialogManager
class LM_API LmInterruptDialog : public LmBusyDialog {
public:
    static const char* interruptedCallback;   ///< "interrupted"

    explicit LmInterruptDialog(const char* name);   ///< No widget is made before the first posting.

    Widget createDialog(Widget parent) override;

    /// Handles pending events, a press on Cancel among them, and answers whether the user pressed it since the dialog was
    /// last posted. A call from inside those events handles no more events.
    bool wasInterrupted();
    /// The map callback, with the manager as client data: shows the normal cursor over the dialog.
    static void fixCursorCallback(Widget dialog, XtPointer clientData, XtPointer callData) noexcept;

private:
    bool _handlingEvents = false;
};

/// The program's interrupt dialog; made at the first call, never deleted.
LM_API LmInterruptDialog* getTheInterruptDialog();
