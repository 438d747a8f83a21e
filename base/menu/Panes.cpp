#include "base/menu/Panes.h"

#include "LmWidgetTools.h"

#include <Xm/MenuShell.h>
#include <Xm/RowColumnP.h>

static bool isInUse(Widget menu)
{
    if (RC_Type(menu) == XmMENU_BAR)
        return RC_IsArmed(menu);
    return XmIsMenuShell(XtParent(menu)) && isPoppedUp(XtParent(menu));
}

void lm::popDown(Widget menu)
{
    if (!menu || isBeingDestroyed(menu) || !XmIsRowColumn(menu) || !isInUse(menu))
        return;
    // Motif's own way of ending a menu: unmanaging a pane would leave the bar armed, and its grab behind.
    auto* rowColumnClass = reinterpret_cast<XmRowColumnClassRec*>(xmRowColumnWidgetClass);
    rowColumnClass->row_column_class.menuProcedures(XmMENU_POPDOWN, menu, nullptr, nullptr, nullptr);
}

void lm::destroyPane(Widget pane)
{
    if (!pane)
        return;
    popDown(pane);
    XtDestroyWidget(pane);
}
