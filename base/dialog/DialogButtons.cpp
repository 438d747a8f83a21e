#include "base/dialog/DialogButtons.h"

#include <Xm/FileSB.h>
#include <Xm/MessageB.h>
#include <Xm/SelectioB.h>

lm::StockDialog::StockDialog(Widget dialog)
    : _dialog(dialog),
      _messageBox(XmIsMessageBox(dialog)),
      _selectionBox(XmIsSelectionBox(dialog))
{}

bool lm::StockDialog::isFileSelectionBox() const { return XmIsFileSelectionBox(_dialog); }

Widget lm::StockDialog::child(unsigned char which) const
{
    return _messageBox ? XmMessageBoxGetChild(_dialog, which) : XmSelectionBoxGetChild(_dialog, which);
}

void lm::StockDialog::showChild(unsigned char which, bool shown) const { setManaged(child(which), shown); }

void lm::setManaged(Widget w, bool managed)
{
    if (w)
        (managed ? XtManageChild : XtUnmanageChild)(w);
}

void lm::setText(Widget w, const char* resource, XmString text)
{
    XmString present = nullptr;
    XtVaGetValues(w, resource, &present, nullptr);
    const XmText owner(present);
    if (!present || !XmStringByteCompare(present, text))
        XtVaSetValues(w, resource, text, nullptr);
}
