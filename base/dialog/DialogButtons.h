// DialogButtons.h: the children of message boxes and selection boxes under one name.
#pragma once

#include "support/handles.h"

namespace lm {

/// A Motif dialog whose buttons Motif laid out: a message box or a selection box (prompt, file selection).
class StockDialog {
public:
    explicit StockDialog(Widget dialog);

    /// Neither: the dialog's maker handles its buttons.
    bool isCustom() const { return !_messageBox && !_selectionBox; }
    bool isSelectionBox() const { return _selectionBox; }
    bool isFileSelectionBox() const;
    /// A child by Motif's number (XmDIALOG_OK_BUTTON ...); null when it has none such.
    Widget child(unsigned char which) const;
    /// Manages or unmanages such a child, if it exists.
    void showChild(unsigned char which, bool shown) const;

private:
    Widget _dialog;
    bool _messageBox, _selectionBox;
};

/// Manages or unmanages a widget that may be null.
void setManaged(Widget w, bool managed);

/// Sets an XmString resource, unless it has that value: each setting lays the dialog out anew.
void setText(Widget w, const char* resource, XmString text);

}   // namespace lm
