#include "LmPrefCustom.h"

#include "support/resources.h"

#include <Xm/RowColumn.h>

void LmPrefCustom::build(Widget labelParent, Widget baseParent)
{
    buildLabel(labelParent);
    Arg args[] = {{lm::xtText(XmNsensitive), static_cast<XtArgVal>(_activated)}};
    _baseWidget = XmCreateWorkArea(baseParent, _baseName.data(), args, 1);
    revertValue();
    installDestroyHandlers();
}
