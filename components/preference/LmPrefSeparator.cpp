#include "LmPrefSeparator.h"

#include <Xm/SeparatoG.h>

void LmPrefSeparator::build(Widget, Widget baseParent)
{
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmSeparatorGadgetClass, baseParent, nullptr);
    installDestroyHandlers();
}
