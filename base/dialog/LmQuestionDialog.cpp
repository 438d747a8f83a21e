#include "LmQuestionDialog.h"

#include "base/dialog/MessageBoxes.h"

Widget LmQuestionDialog::createDialog(Widget parent) { return lm::createBox(XmCreateQuestionDialog, parent, name()); }

void LmQuestionDialog::apply(Widget dialog, XtPointer callData)
{
    unpost(dialog);
    LmDialogManager::apply(dialog, callData);
}

LmQuestionDialog* getTheQuestionDialog()
{
    static auto* dialog = new LmQuestionDialog("questionDialog");
    return dialog;
}
