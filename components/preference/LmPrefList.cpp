#include "LmPrefList.h"

#include <Xm/RowColumn.h>

void LmPrefList::build(Widget, Widget baseParent)
{
    _baseWidget = XtVaCreateWidget(_baseName.c_str(), xmRowColumnWidgetClass, baseParent, XmNmarginWidth, 0, XmNmarginHeight, 0,
                                   XmNorientation, XmVERTICAL, XmNpacking, XmPACK_TIGHT, XmNisAligned, False, nullptr);
    buildItems(_baseWidget);
    installDestroyHandlers();
}
