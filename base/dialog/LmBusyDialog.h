// LmBusyDialog: says what the application is busy with.
#pragma once

#include "LmDialogManager.h"

/// A working dialog without buttons, which the application's busy state posts its messages in. One is up at a time: a
/// later message replaces the text.
///
///   Widgets    XmMessageBox of the manager's name, "busyDialog" for the default one
///   Others     as LmDialogManager
class LM_API LmBusyDialog : public LmDialogManager {
public:
    explicit LmBusyDialog(const char* name);   ///< No widget is made before the first posting.
    ~LmBusyDialog() override;

    Widget createDialog(Widget parent) override;

    /// Has the application's busy state use `dialog` (not owned) from now on; null: the default one.
    static void setBusyDialog(LmBusyDialog* dialog);
};

/// The dialog of the application's busy state: the one chosen with setBusyDialog(), else the default one.
LM_API LmBusyDialog* getTheBusyDialog();
/// The default one, made at the first call of either function and never deleted.
LM_API LmBusyDialog* getTheDefaultBusyDialog();
