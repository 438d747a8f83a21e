#include "LmPrefLabel.h"

#include <Xm/LabelG.h>

void LmPrefLabel::build(Widget, Widget baseParent)
{
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmLabelGadgetClass, baseParent, XmNrecomputeSize, False, nullptr);
    installDestroyHandlers();
}
