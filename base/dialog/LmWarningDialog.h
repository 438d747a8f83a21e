// LmWarningDialog: warns.
#pragma once

#include "LmDialogManager.h"

/// A warning dialog with an OK button.
///
///   Widgets    XmMessageBox of the manager's name, "warningDialog" for getTheWarningDialog()
///   Others     as LmDialogManager
class LM_API LmWarningDialog : public LmDialogManager {
public:
    explicit LmWarningDialog(const char* name);   ///< No widget is made before the first posting.

    Widget createDialog(Widget parent) override;
};

/// The program's warning dialog; made at the first call, never deleted.
LM_API LmWarningDialog* getTheWarningDialog();
