#include "LmPrefToggle.h"

#include "support/xmtext.h"

#include <Xm/ToggleBG.h>

void LmPrefToggle::build(Widget labelParent, Widget baseParent)
{
    const bool inLabelColumn = _forceLabel || !_homogeneous;
    if (inLabelColumn)
        buildLabel(labelParent);
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmToggleButtonGadgetClass, baseParent, XmNsensitive, _activated, nullptr);
    if (inLabelColumn)
        XtVaSetValues(_baseWidget, XmNlabelString, lm::compound("").get(), nullptr);
    LmPrefToggle::revertValue();
    installDestroyHandlers();
}

char LmPrefToggle::changed() { return _baseWidget && (XmToggleButtonGadgetGetState(_baseWidget) != False) != (_value != 0); }

void LmPrefToggle::updateValue()
{
    if (changed())
        setValue(static_cast<char>(XmToggleButtonGadgetGetState(_baseWidget)));
}

void LmPrefToggle::revertValue()
{
    if (_baseWidget)
        XmToggleButtonGadgetSetState(_baseWidget, _value != 0, True);
}

void LmPrefToggle::setValue(char on)
{
    _value = on;
    revertValue();
}

char LmPrefToggle::getValue()
{
    updateValue();
    return _value;
}
