// LmQuestionDialog: asks.
#pragma once

#include "LmDialogManager.h"

/// A question with OK and Cancel. With Apply shown, Apply is a third answer that takes the dialog down, too.
///
///   Widgets    XmMessageBox of the manager's name, "questionDialog" for getTheQuestionDialog()
///   Others     as LmDialogManager
class LM_API LmQuestionDialog : public LmDialogManager {
public:
    explicit LmQuestionDialog(const char* name) : LmDialogManager(name) {}   ///< No widget is made before the first posting.

    Widget createDialog(Widget parent) override;
    /// Takes the dialog down and records the answer.
    void apply(Widget dialog, XtPointer callData) override;
};

/// The program's question dialog; made at the first call, never deleted.
LM_API LmQuestionDialog* getTheQuestionDialog();
