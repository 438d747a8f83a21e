// LmFileSelectionDialog: asks for a file.
#pragma once

#include "LmDialogManager.h"

#include <Xm/FileSB.h>

/// Asks for a file name, with OK, Cancel and a Filter button.
///
///   Widgets    XmFileSelectionBox of the manager's name, "fileSelectionDialog" for getTheFileSelectionDialog()
///   Others     as LmDialogManager
class LM_API LmFileSelectionDialog : public LmDialogManager {
public:
    explicit LmFileSelectionDialog(const char* name);   ///< No widget is made before the first posting.
    ~LmFileSelectionDialog() override;

    const char* className() override { return "LmFileSelectionDialog"; }
    Widget createDialog(Widget parent) override;
    /// Keeps the chosen file name.
    void ok(Widget dialog, XtPointer callData) override;
    /// Forgets the chosen file name.
    void cancel(Widget dialog, XtPointer callData) override;
    /// The Filter button: keeps the file name; the dialog stays and no answer is recorded.
    void apply(Widget dialog, XtPointer callData) override;

    /// The directory to list, now or in the first dialog. Null and empty are ignored.
    void setDirectory(const char* directory);
    /// The pattern of names to list ("*.cpp"), now or in the first dialog. Null is ignored.
    void setFilterPattern(const char* pattern);
    /// The text of the selection field, now or in the first dialog. Null is ignored.
    void setSelection(const char* name);

    /// The path chosen by the last OK or Filter, until the next one; null before, and after Cancel.
    const char* fileName() const { return _fileName; }
    /// Motif's call data of the last OK, Filter or Cancel; valid only inside their callbacks.
    XmFileSelectionBoxCallbackStruct* callData() const { return _callData; }

protected:
    char* _fileName = nullptr;   ///< what fileName() answers; owned; malloc

private:
    void keepFileName(Widget dialog, XtPointer callData);
    void setText(const char* resource, const char* text, std::string& remembered);
    void applyRemembered(const char* resource, std::string& remembered);

    std::string _selection, _filterPattern, _directory;   // set before there was a dialog
    XmFileSelectionBoxCallbackStruct* _callData = nullptr;
};

/// The program's file selection dialog; made at the first call, never deleted.
LM_API LmFileSelectionDialog* getTheFileSelectionDialog();
