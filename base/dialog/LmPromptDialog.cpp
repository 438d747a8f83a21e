#include "LmPromptDialog.h"

#include "base/dialog/MessageBoxes.h"
#include "support/xmtext.h"

#include <Xm/SelectioB.h>

#include <cstdlib>
#include <cstring>

LmPromptDialog::~LmPromptDialog() { std::free(_text); }

Widget LmPromptDialog::createDialog(Widget parent)
{
    _showOK = _showCancel = true;
    return lm::createBox(XmCreatePromptDialog, parent, name());
}

Widget LmPromptDialog::prepost(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                               XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow)
{
    Widget dialog = LmDialogManager::prepost(message, okCB, cancelCB, applyCB, clientData, helpString, parentWindow);
    if (dialog)
        XtVaSetValues(dialog, XmNtextString, lm::compound("").get(), nullptr);
    return dialog;
}

void LmPromptDialog::ok(Widget dialog, XtPointer callData)
{
    XmString entered = nullptr;
    XtVaGetValues(dialog, XmNtextString, &entered, nullptr);
    if (const lm::XmText owner(entered); owner) {
        std::free(_text);
        _text = strdup(lm::plainText(entered).c_str());
    }
    LmDialogManager::ok(dialog, callData);
}

LmPromptDialog* getThePromptDialog()
{
    static auto* dialog = new LmPromptDialog("promptDialog");
    return dialog;
}
