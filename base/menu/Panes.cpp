#include "base/menu/Panes.h"

#include "LmWidgetTools.h"

#include <Xm/MenuShell.h>
#include <Xm/RowColumnP.h>

extern "C" {
/// Motif's end of a torn-off pane: its shell goes, the pane returns to its menu shell. Exported, but not declared; weak, so
/// that we load without it.
void _XmDismissTearOff(Widget shell, XtPointer event, XtPointer callData) __attribute__((weak));
}

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

void lm::bringBack(Widget pane)
{
    if (!_XmDismissTearOff || !pane || isBeingDestroyed(pane) || !XmIsRowColumn(pane) || !RC_TornOff(pane))
        return;
    Widget shell = XtParent(pane);
    Widget home = reinterpret_cast<XmRowColumnWidget>(pane)->row_column.ParentShell;
    if (!XtIsShell(shell) || XmIsMenuShell(shell) || isBeingDestroyed(shell) || !home || !XtIsRealized(home))
        return;
    // Motif moves the window back only after the shell is destroyed; outside a dispatch that would be too late.
    Display* display = XtDisplayOfObject(pane);
    XUnmapWindow(display, XtWindowOfObject(pane));
    XReparentWindow(display, XtWindowOfObject(pane), XtWindowOfObject(home), 0, 0);
    _XmDismissTearOff(shell, nullptr, nullptr);
}

void lm::destroyPane(Widget pane)
{
    if (!pane)
        return;
    popDown(pane);
    bringBack(pane);
    XtDestroyWidget(pane);
}
