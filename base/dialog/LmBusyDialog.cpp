#include "LmBusyDialog.h"

#include "base/dialog/MessageBoxes.h"

static LmBusyDialog* aBusyDialog = nullptr;         // the one in use
static LmBusyDialog* defaultBusyDialog = nullptr;   // made when first needed

LmBusyDialog::LmBusyDialog(const char* name) : LmDialogManager(name)
{
    _showOK = _showCancel = _showApply = false;
    _reusePostedDialog = true;
}

LmBusyDialog::~LmBusyDialog()
{
    if (defaultBusyDialog == this)
        defaultBusyDialog = nullptr;
    if (aBusyDialog == this)
        aBusyDialog = defaultBusyDialog;
}

Widget LmBusyDialog::createDialog(Widget parent) { return lm::createBox(XmCreateWorkingDialog, parent, name()); }

void LmBusyDialog::setBusyDialog(LmBusyDialog* dialog) { aBusyDialog = dialog ? dialog : defaultBusyDialog; }

LmBusyDialog* getTheDefaultBusyDialog()
{
    if (!defaultBusyDialog)
        defaultBusyDialog = new LmBusyDialog("busyDialog");
    return defaultBusyDialog;
}

LmBusyDialog* getTheBusyDialog()
{
    if (!aBusyDialog)
        aBusyDialog = getTheDefaultBusyDialog();
    return aBusyDialog;
}
