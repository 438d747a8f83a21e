#include "LmPrefText.h"

#include "support/handles.h"

#include <Xm/TextF.h>

#include <cstring>

void LmPrefText::build(Widget labelParent, Widget baseParent)
{
    buildLabel(labelParent);
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmTextFieldWidgetClass, baseParent, XmNcolumns,
                                   static_cast<short>(_columns), XmNsensitive, _activated, nullptr);
    LmPrefText::revertValue();
    installDestroyHandlers();
}

std::string LmPrefText::onScreen() const { return lm::XtString(XmTextFieldGetString(_baseWidget)).get(); }

char LmPrefText::changed() { return _baseWidget && onScreen() != _value; }

void LmPrefText::updateValue()
{
    if (changed())
        setValue(onScreen().c_str());
}

void LmPrefText::revertValue()
{
    if (_baseWidget)
        XmTextFieldSetString(_baseWidget, _value.data());
}

void LmPrefText::setValue(const char* value)
{
    _value = std::string(value ? value : "");
    revertValue();
}

char* LmPrefText::getValue()
{
    updateValue();
    return strdup(_value.c_str());
}
