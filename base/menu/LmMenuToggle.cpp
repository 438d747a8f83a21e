#include "LmMenuToggle.h"

#include <Xm/ToggleBG.h>

void LmMenuToggle::build(Widget parent)
{
    if (!makeWidget(xmToggleButtonGadgetClass, parent))
        return;
    if (_state != -1)
        setVisualState(_state != 0);
    if (_callback)
        XtAddCallback(_baseWidget, XmNvalueChangedCallback, _callback, _clientData);
}

void LmMenuToggle::setState(bool on, Boolean notify)
{
    _state = on;
    if (_baseWidget)
        XmToggleButtonGadgetSetState(_baseWidget, on, notify);
}

int LmMenuToggle::getState() { return _baseWidget ? XmToggleButtonGadgetGetState(_baseWidget) : _state == 1; }
