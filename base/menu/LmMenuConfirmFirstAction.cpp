#include "LmMenuConfirmFirstAction.h"

#include "LmFormat.h"
#include "LmQuestionDialog.h"
#include "LmResource.h"
#include "support/WidgetWatch.h"
#include "support/xt.h"

#include <Xm/PushBG.h>

LmMenuConfirmFirstAction::LmMenuConfirmFirstAction(const char* name, XtCallbackProc callback, XtPointer clientData)
    : LmMenuAction(name, callback, clientData)
{}

void LmMenuConfirmFirstAction::build(Widget parent)
{
    if (makeWidget(xmPushButtonGadgetClass, parent))
        lm::on<&LmMenuConfirmFirstAction::confirm>(_baseWidget, XmNactivateCallback, this);
}

bool LmMenuConfirmFirstAction::isConfirmed()
{
    const char* resource = LmFormat("%s.%s", LmComponent::name(), "noUndoQuestion");
    const void* question = LmGetResource(_baseWidget, resource, "DialogManager.NoUndoQuestion", XtRString,
                                         "This action cannot be undone. Do you want to proceed anyway?");
    return getTheQuestionDialog()->postAndWait(static_cast<const char*>(question), -1, -1, -1, nullptr, nullptr, nullptr) !=
           LmDialogManager::REASON_CANCEL;
}

void LmMenuConfirmFirstAction::confirm(void* callData)
{
    if (!_callback)
        return;
    Widget w = _baseWidget;
    const lm::Watch here(liveness());
    const lm::WidgetWatch watch(w);
    if (isConfirmed() && here && watch)
        _callback(w, _clientData, callData);
}
