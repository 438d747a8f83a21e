#include "SampleWindow.h"

#include <Xm/CascadeB.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <string>
#include <string_view>

static void makeButtons(Widget parent, const char* prefix, int count)
{
    for (int i = 0; i < count; ++i)
        XtManageChild(XmCreatePushButton(parent, (prefix + std::to_string(i)).data(), nullptr, 0));
}

static void makeMenuBar(Widget parent)
{
    Widget bar = XmCreateMenuBar(parent, std::string("menuBar").data(), nullptr, 0);
    for (int i = 0; i < 5; ++i) {
        const std::string name = "menu" + std::to_string(i);
        Widget pane = XmCreatePulldownMenu(bar, std::string(name).data(), nullptr, 0);
        makeButtons(pane, "item", 10);
        XtVaCreateManagedWidget(name.c_str(), xmCascadeButtonWidgetClass, bar, XmNsubMenuId, pane, nullptr);
    }
    XtManageChild(bar);
}

static Widget makeText(Widget parent, const char* name)
{
    Arg arguments[] = {{XmNeditMode, XmMULTI_LINE_EDIT}, {XmNrows, 10}, {XmNcolumns, 40}};
    Widget text = XmCreateScrolledText(parent, std::string(name).data(), arguments, XtNumber(arguments));
    XtManageChild(text);
    return text;
}

Widget makeSampleView(Widget mainWindow)
{
    makeMenuBar(mainWindow);
    Widget view = XtVaCreateWidget("view", xmRowColumnWidgetClass, mainWindow, nullptr);
    XmTextSetString(makeText(view, "text"), std::string("hello, world\n").data());
    Widget buttons = XtVaCreateManagedWidget("buttons", xmRowColumnWidgetClass, view, XmNorientation, XmHORIZONTAL, XmNpacking,
                                             XmPACK_COLUMN, XmNnumColumns, 4, nullptr);
    makeButtons(buttons, "button", 20);
    return view;
}

static void addText(XtPointer view, XtIntervalId*) { makeText(static_cast<Widget>(view), "another"); }

void obeyArguments(int argc, char** argv, Widget view)
{
    if (argc > 1 && std::string_view(argv[1]) == "later")
        XtAppAddTimeOut(XtWidgetToApplicationContext(view), 100, addText, view);
}
