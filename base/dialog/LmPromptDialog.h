// LmPromptDialog: asks for a line of text.
#pragma once

#include "LmDialogManager.h"

/// Asks for a text. The field is empty at every posting.
///
///   Widgets    XmSelectionBox of the manager's name, "promptDialog" for getThePromptDialog()
///   Others     as LmDialogManager
class LM_API LmPromptDialog : public LmDialogManager {
public:
    explicit LmPromptDialog(const char* name) : LmDialogManager(name) {}   ///< No widget is made before the first posting.
    ~LmPromptDialog() override;

    using LmDialogManager::prepost;
    Widget prepost(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                   XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow) override;
    Widget createDialog(Widget parent) override;
    /// Keeps the text entered.
    void ok(Widget dialog, XtPointer callData) override;

    /// The text when OK was last pressed, until the next OK; null before the first.
    const char* text() const { return _text; }

protected:
    char* _text = nullptr;   ///< what text() answers; owned; malloc
};

/// The program's prompt dialog; made at the first call, never deleted.
LM_API LmPromptDialog* getThePromptDialog();
