#include "LmWarningDialog.h"

#include "base/dialog/MessageBoxes.h"

LmWarningDialog::LmWarningDialog(const char* name) : LmDialogManager(name) { _showCancel = false; }

Widget LmWarningDialog::createDialog(Widget parent) { return lm::createOkBox(XmCreateWarningDialog, parent, name()); }

LmWarningDialog* getTheWarningDialog()
{
    static auto* dialog = new LmWarningDialog("warningDialog");
    return dialog;
}
