// LmMenuConfirmFirstAction: an action that asks first.
#pragma once

#include "LmMenuAction.h"

/// An action that cannot be undone: choosing it first asks the user whether to go on.
///
///   Widgets    XmPushButtonGadget of the item's name
///   Resources  of the widget: "<name>.noUndoQuestion" "DialogManager.NoUndoQuestion" String, default "This action cannot
///              be undone. Do you want to proceed anyway?"
///   Errors     an item deleted while its question is up runs nothing
class LM_API LmMenuConfirmFirstAction : public LmMenuAction {
public:
    /// `callback` runs when the user agreed; it may be null.
    LmMenuConfirmFirstAction(const char* name, XtCallbackProc callback, XtPointer clientData);

    const char* className() override { return "LmMenuConfirmFirstAction"; }
    LmMenuItemType menuType() override { return MENU_CONFIRM_FIRST_ACTION; }
    void build(Widget parent) override;

private:
    void confirm(void* callData);
    bool isConfirmed();
};
