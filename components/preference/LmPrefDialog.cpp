#include "LmPrefDialog.h"

#include "LmApp.h"
#include "support/calldata.h"
#include "support/xt.h"

#include <Xm/Form.h>
#include <Xm/RowColumn.h>

const char* const LmPrefDialog::prefCallback = "prefCallback";

static constexpr int margin = 10;   // pixels around the sheet

LmPrefDialog::LmPrefDialog(const char* name, LmPrefItem* item) : LmGenericDialog(name), _item(item)
{
    _allowMultipleDialogs = false;
    _showApply = true;
    if (_item)
        _item->addCallback(deleteCallback, this, &LmPrefDialog::itemDeleted, nullptr);
}

void LmPrefDialog::itemDeleted(LmCallbackObject*, void*, void*) { _item = nullptr; }

Widget LmPrefDialog::createDialog(Widget parent)
{
    Widget dialog = LmGenericDialog::createDialog(parent);
    Widget form = XtVaCreateManagedWidget("dummy", xmFormWidgetClass, dialog, nullptr);
    Widget area = XtVaCreateManagedWidget("prefArea", xmRowColumnWidgetClass, form, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset,
                                          margin, XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, margin, XmNleftAttachment,
                                          XmATTACH_FORM, XmNleftOffset, margin, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset,
                                          margin, XmNorientation, XmVERTICAL, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
    if (_item) {
        _item->build(area);
        _item->show();
    }
    lm::on<&LmPrefDialog::mapped>(dialog, XmNmapCallback, this);
    return dialog;
}

/// Groups give their rows one height when they are mapped; the natural size is known after that.
void LmPrefDialog::mapped()
{
    lm::off<&LmPrefDialog::mapped>(_baseWidget, XmNmapCallback, this);
    _firstMap = lm::TimerHandle(lm::after<&LmPrefDialog::keepNaturalSize>(theApplication->appContext(), 0, this));
}

void LmPrefDialog::keepNaturalSize()
{
    _firstMap.fired();
    if (!_baseWidget)
        return;
    Dimension width = 0, height = 0;
    XtVaGetValues(_baseWidget, XmNwidth, &width, XmNheight, &height, nullptr);
    XtVaSetValues(XtParent(_baseWidget), XmNminWidth, width, XmNminHeight, height, nullptr);
}

/// Tells the receivers, who may delete the dialog; false when one did.
bool LmPrefDialog::announce(LmDialogReason reason)
{
    const lm::Watch here(liveness());
    callCallbacks(prefCallback, lm::asPointer(reason));
    return static_cast<bool>(here);
}

void LmPrefDialog::apply(Widget dialog, XtPointer)
{
    if (!announce(REASON_APPLY))
        return;
    recordAnswer(dialog, REASON_APPLY);
    if (_item)
        _item->updateValue();
}

void LmPrefDialog::ok(Widget dialog, XtPointer callData)
{
    const lm::Watch here(liveness());
    apply(dialog, callData);
    if (!here || !announce(REASON_OK))
        return;
    recordAnswer(dialog, REASON_OK);
    hide();
}

void LmPrefDialog::cancel(Widget dialog, XtPointer)
{
    if (!announce(REASON_CANCEL))
        return;
    recordAnswer(dialog, REASON_CANCEL);
    if (_item)
        _item->revertValue();
    hide();
}
