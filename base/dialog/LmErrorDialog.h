// LmErrorDialog: reports what went wrong; LmFatalErrorDialog: and ends the program.
#pragma once

#include "LmDialogManager.h"

/// An error dialog with an OK button; Cancel is shown only with a callback of its own.
///
///   Widgets    XmMessageBox of the manager's name, "errorDialog" for getTheErrorDialog()
///   Others     as LmDialogManager
class LM_API LmErrorDialog : public LmDialogManager {
public:
    explicit LmErrorDialog(const char* name);   ///< No widget is made before the first posting.

    Widget createDialog(Widget parent) override;
};

/// An error dialog whose buttons end the program with status 1.
///
///   Widgets    XmMessageBox of the manager's name, "fatalErrorDialog" for getTheFatalErrorDialog()
///   Others     as LmDialogManager
class LM_API LmFatalErrorDialog : public LmErrorDialog {
public:
    explicit LmFatalErrorDialog(const char* name) : LmErrorDialog(name) {}   ///< No widget is made before the first posting.

    /// Terminates the application with status 1.
    void ok(Widget dialog, XtPointer callData) override;
    void cancel(Widget dialog, XtPointer callData) override;
};

/// The program's error dialog; made at the first call, never deleted.
LM_API LmErrorDialog* getTheErrorDialog();
/// The program's fatal error dialog; made at the first call, never deleted.
LM_API LmFatalErrorDialog* getTheFatalErrorDialog();
