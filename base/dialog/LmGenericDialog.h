// LmGenericDialog: a dialog with a work area of the application's own.
#pragma once

#include "LmDialogManager.h"

/// A dialog with buttons and a work area that the application adds: derive, call this createDialog() and make one child
/// of the dialog it returns.
///
///   Widgets    XmMessageBox of the template kind, of the manager's name
///   Resources  of the parent: "<name>.okLabelString", "<name>.cancelLabelString", "<name>.helpLabelString", class
///              "<name>.LabelString" XmString, default "OK", "Cancel", "Help"
///   Others     as LmDialogManager
class LM_API LmGenericDialog : public LmDialogManager {
public:
    explicit LmGenericDialog(const char* name) : LmDialogManager(name) {}   ///< No widget is made before the first posting.

    Widget createDialog(Widget parent) override;
};
