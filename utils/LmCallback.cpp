#include "LmCallback.h"

#include "support/xt.h"

#include <X11/StringDefs.h>

LmCallback::~LmCallback() { detach(); }

void LmCallback::attach(Widget w, const char* callbackName)
{
    detach();
    if (!w || !callbackName)
        return;
    _widget = w;
    _name = callbackName;
    XtAddCallback(w, callbackName, stub, this);
    lm::on<&LmCallback::forgetWidget>(w, XtNdestroyCallback, this);
}

void LmCallback::detach()
{
    if (!_widget)
        return;
    XtRemoveCallback(_widget, _name, stub, this);
    lm::off<&LmCallback::forgetWidget>(_widget, XtNdestroyCallback, this);
    forgetWidget();
}

void LmCallback::forgetWidget()
{
    _widget = nullptr;
    _name = nullptr;
}

void LmCallback::stub(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmCallback*>(clientData)->callback(callData);
}
