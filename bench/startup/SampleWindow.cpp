#include "SampleWindow.h"

#include <Xm/CascadeB.h>
#include <Xm/MainW.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <string>

static void makeButtons(Widget parent, const char* prefix, int count)
{
    for (int i = 0; i < count; ++i)
        XtManageChild(XmCreatePushButton(parent, (prefix + std::to_string(i)).data(), nullptr, 0));
}

static Widget makeMenuBar(Widget parent)
{
    Widget bar = XmCreateMenuBar(parent, std::string("menuBar").data(), nullptr, 0);
    for (int i = 0; i < 5; ++i) {
        const std::string name = "menu" + std::to_string(i);
        Widget pane = XmCreatePulldownMenu(bar, std::string(name).data(), nullptr, 0);
        makeButtons(pane, "item", 10);
        XtVaCreateManagedWidget(name.c_str(), xmCascadeButtonWidgetClass, bar, XmNsubMenuId, pane, nullptr);
    }
    XtManageChild(bar);
    return bar;
}

static Widget makeText(Widget parent, const char* name)
{
    Arg arguments[] = {{XmNeditMode, XmMULTI_LINE_EDIT}, {XmNrows, 10}, {XmNcolumns, 40}};
    Widget text = XmCreateScrolledText(parent, std::string(name).data(), arguments, XtNumber(arguments));
    XtManageChild(text);
    return text;
}

void makeSampleWindow(Widget shell)
{
    Widget window = XtVaCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr);
    makeMenuBar(window);
    Widget column = XtVaCreateManagedWidget("column", xmRowColumnWidgetClass, window, nullptr);
    Widget text = makeText(column, "text");
    XmTextSetString(text, std::string("hello, world\n").data());
    Widget buttons = XtVaCreateManagedWidget("buttons", xmRowColumnWidgetClass, column, XmNorientation, XmHORIZONTAL, XmNpacking,
                                             XmPACK_COLUMN, XmNnumColumns, 4, nullptr);
    makeButtons(buttons, "button", 20);
}

void addScrolledText(Widget shell) { makeText(XtNameToWidget(shell, "*column"), "another"); }
