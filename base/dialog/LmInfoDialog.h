// LmInfoDialog: informs.
#pragma once

#include "LmDialogManager.h"

/// An information dialog with an OK button.
///
///   Widgets    XmMessageBox of the manager's name, "infoDialog" for getTheInfoDialog()
///   Others     as LmDialogManager
class LM_API LmInfoDialog : public LmDialogManager {
public:
    explicit LmInfoDialog(const char* name);   ///< No widget is made before the first posting.

    Widget createDialog(Widget parent) override;
};

/// The program's information dialog; made at the first call, never deleted.
LM_API LmInfoDialog* getTheInfoDialog();
