#include "LmPrefRadio.h"

#include <Xm/RowColumn.h>

void LmPrefRadio::build(Widget labelParent, Widget baseParent)
{
    if (!_noLabel)
        buildLabel(labelParent);
    checkHomogeneous();
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmRowColumnWidgetClass, baseParent, XmNmarginWidth, _noLabel ? 0 : 10,
                                   XmNmarginHeight, 0, XmNorientation, _horizontal ? XmHORIZONTAL : XmVERTICAL, XmNpacking,
                                   XmPACK_COLUMN, XmNradioBehavior, True, nullptr);
    buildItems(_baseWidget);
    installDestroyHandlers();
}
