#include "LmInfoDialog.h"

#include "base/dialog/MessageBoxes.h"

LmInfoDialog::LmInfoDialog(const char* name) : LmDialogManager(name) { _showCancel = false; }

Widget LmInfoDialog::createDialog(Widget parent) { return lm::createOkBox(XmCreateInformationDialog, parent, name()); }

LmInfoDialog* getTheInfoDialog()
{
    static auto* dialog = new LmInfoDialog("infoDialog");
    return dialog;
}
