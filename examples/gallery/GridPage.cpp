#include "GridPage.h"

#include <Lm/XmGrid.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushBG.h>
#include <Xm/Scale.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <initializer_list>

GridPage::GridPage(Widget parent) : Page("gridPage", parent)
{
    Widget controls = row::across("gridControls", body());
    _share = XtVaCreateManagedWidget("share", xmScaleWidgetClass, controls, XmNorientation, XmHORIZONTAL, XmNvalue, 60,
                                     XmNshowValue, True, XmNscaleWidth, 220, nullptr);
    lm::on<&GridPage::shareOut>(_share, XmNvalueChangedCallback, this);
    lm::on<&GridPage::shareOut>(_share, XmNdragCallback, this);
    _aside = XtVaCreateManagedWidget("aside", xmToggleButtonWidgetClass, controls, nullptr);
    lm::on<&GridPage::pushAside>(_aside, XmNvalueChangedCallback, this);

    Widget sheet =
        XtVaCreateManagedWidget("gridSheet", xmGridWidgetClass, body(), "numColumns", 1, "defaultSpacing", 10, XmNtopAttachment,
                                XmATTACH_WIDGET, XmNtopWidget, controls, XmNtopOffset, 10, XmNbottomAttachment, XmATTACH_FORM,
                                XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    makeFields(sheet);
    XtVaCreateManagedWidget("line", xmSeparatorWidgetClass, sheet, nullptr);
    makeButtons(sheet);
    for (const int fixed : {1, 2})
        XmGridSetRowResizability(sheet, fixed, 0);
    shareOut();
    pushAside();
}

/// Three columns, of which the labels' keeps its width; three rows, of which only the notes' grows.
void GridPage::makeFields(Widget grid)
{
    _fields = XtVaCreateManagedWidget("fields", xmGridWidgetClass, grid, "numColumns", 3, nullptr);
    for (const char* name : {"nameLabel", "placeLabel", "noteLabel"}) {
        const bool note = name[0] == 'n' && name[1] == 'o';
        XtVaCreateManagedWidget(name, xmLabelWidgetClass, _fields, "resizeHorizontal", False, "resizeVertical", False, "gravity",
                                note ? NorthEastGravity : EastGravity, nullptr);
        for (int column = 0; column < 2; ++column)
            XtVaCreateManagedWidget("field", note ? xmTextWidgetClass : xmTextFieldWidgetClass, _fields, XmNcolumns, 10,
                                    XmNeditMode, XmMULTI_LINE_EDIT, nullptr);
    }
    XmGridSetColumnResizability(_fields, 0, 0);
    for (const int fixed : {0, 1})
        XmGridSetRowResizability(_fields, fixed, 0);
}

void GridPage::makeButtons(Widget grid)
{
    Widget box = XtVaCreateManagedWidget("buttonBox", xmSpringBoxWidgetClass, grid, nullptr);
    const char* const names[] = {"gridOk", "gridCancel", "gridHelp"};
    for (int i = 0; i < 3; ++i)
        _buttons[i] = XtVaCreateManagedWidget(names[i], xmPushButtonGadgetClass, box, nullptr);
}

void GridPage::shareOut()
{
    int left = 0;
    XmScaleGetValue(_share, &left);
    XmGridSetColumnResizability(_fields, 1, left);
    XmGridSetColumnResizability(_fields, 2, 100 - left);
}

/// Without springs between them the buttons stand together, at the side where none is.
void GridPage::pushAside()
{
    const int between = XmToggleButtonGetState(_aside) ? 0 : 50;
    for (int i = 0; i < 3; ++i)
        XtVaSetValues(_buttons[i], "leftSpring", i == 0 ? 50 : between, "rightSpring", between, nullptr);
}
