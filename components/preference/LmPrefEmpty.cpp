#include "LmPrefEmpty.h"

#include "support/resources.h"
#include "support/xmtext.h"

#include <Xm/RowColumn.h>

void LmPrefEmpty::build(Widget labelParent, Widget baseParent)
{
    buildLabel(labelParent);
    Arg args[] = {{lm::xtText(XmNsensitive), static_cast<XtArgVal>(_activated)}};
    _baseWidget = XmCreateWorkArea(baseParent, _baseName.data(), args, 1);
    XtVaSetValues(_labelWidget, XmNlabelString, lm::compound("").get(), nullptr);
    installDestroyHandlers();
}
