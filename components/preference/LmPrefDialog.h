// LmPrefDialog: a preference sheet in a dialog.
#pragma once

#include "LmGenericDialog.h"
#include "LmPrefItem.h"
#include "support/handles.h"

/// A dialog with OK, Apply and Cancel around one preference item, normally a group. Apply and OK commit every value, Cancel
/// shows the committed values again. One dialog serves all windows.
///
/// The user can make the dialog larger, which widens the fields, and not smaller than its contents.
///
///   Widgets    the generic dialog's; in it a form "dummy" with an XmRowColumn "prefArea", which holds the item
///   Callbacks  prefCallback, call data the LmDialogReason: REASON_APPLY before the values are committed, by Apply and as the
///              first step of OK; REASON_OK after that; REASON_CANCEL before the values are discarded
///   Errors     with a null item, or one that was deleted, the buttons announce and hide
class LM_API LmPrefDialog : public LmGenericDialog {
public:
    static const char* const prefCallback;   ///< "prefCallback"

    /// `item` is not owned; null: an empty sheet.
    LmPrefDialog(const char* name, LmPrefItem* item);

    const char* className() override { return "LmPrefDialog"; }
    void ok(Widget dialog, XtPointer callData) override;
    void cancel(Widget dialog, XtPointer callData) override;
    void apply(Widget dialog, XtPointer callData) override;
    Widget createDialog(Widget parent) override;

private:
    bool announce(LmDialogReason reason);
    void mapped();
    void keepNaturalSize();
    void itemDeleted(LmCallbackObject* item, void* clientData, void* callData);

    LmPrefItem* _item;           // not owned
    lm::TimerHandle _firstMap;   // runs once the rows have got their heights
};
