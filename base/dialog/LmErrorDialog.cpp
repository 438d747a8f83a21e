#include "LmErrorDialog.h"

#include "LmApp.h"
#include "base/dialog/MessageBoxes.h"

LmErrorDialog::LmErrorDialog(const char* name) : LmDialogManager(name) { _showCancel = false; }

Widget LmErrorDialog::createDialog(Widget parent) { return lm::createOkBox(XmCreateErrorDialog, parent, name()); }

void LmFatalErrorDialog::ok(Widget, XtPointer) { theApplication->terminate(1); }

void LmFatalErrorDialog::cancel(Widget, XtPointer) { theApplication->terminate(1); }

LmErrorDialog* getTheErrorDialog()
{
    static auto* dialog = new LmErrorDialog("errorDialog");
    return dialog;
}

LmFatalErrorDialog* getTheFatalErrorDialog()
{
    static auto* dialog = new LmFatalErrorDialog("fatalErrorDialog");
    return dialog;
}
