#include "Page.h"

#include "PageCode.h"

#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>

#include <iterator>

static constexpr int margin = 10;   // between everything, in pixels

Page::Page(const char* name, Widget parent) : LmComponent(name)
{
    _w = XtVaCreateWidget(name, xmFormWidgetClass, parent, XmNmarginWidth, margin, XmNmarginHeight, margin, nullptr);
    installDestroyHandler();
    LmComponent* self = this;
    XtResource table[] = {
        lm::resource(self, _title, "title", "Title", name),
        lm::resource(self, _text, "text", "Text", ""),
    };
    getResources(table, std::ssize(table));

    const lm::XmText title(XmStringCreateLocalized(lm::xtText(_title)));
    Widget head = XtVaCreateManagedWidget("pageTitle", xmLabelWidgetClass, _w, XmNlabelString, title.get(), XmNtopAttachment,
                                          XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    Widget code = XtVaCreateManagedWidget("showCode", xmPushButtonWidgetClass, _w, XmNtopAttachment, XmATTACH_FORM,
                                          XmNrightAttachment, XmATTACH_FORM, nullptr);
    lm::on<&Page::showCode>(code, XmNactivateCallback, this);
    const lm::XmText text(XmStringCreateLocalized(lm::xtText(_text)));
    Widget paragraph = XtVaCreateManagedWidget("pageText", xmLabelWidgetClass, _w, XmNlabelString, text.get(), XmNalignment,
                                               XmALIGNMENT_BEGINNING, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, head,
                                               XmNtopOffset, margin / 2, XmNleftAttachment, XmATTACH_FORM, nullptr);
    _body = XtVaCreateManagedWidget("body", xmFormWidgetClass, _w, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, paragraph,
                                    XmNtopOffset, 2 * margin, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                                    XmNbottomAttachment, XmATTACH_FORM, nullptr);
}

void Page::showCode() { showCodeOf(className()); }

static Widget rowOf(const char* name, Widget parent, unsigned char orientation)
{
    return XtVaCreateManagedWidget(name, xmRowColumnWidgetClass, parent, XmNorientation, orientation, XmNpacking, XmPACK_TIGHT,
                                   XmNspacing, margin, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
}

Widget row::across(const char* name, Widget parent) { return rowOf(name, parent, XmHORIZONTAL); }

Widget row::down(const char* name, Widget parent) { return rowOf(name, parent, XmVERTICAL); }

Widget row::button(const char* name, Widget parent)
{
    return XtVaCreateManagedWidget(name, xmPushButtonWidgetClass, parent, nullptr);
}

Widget row::label(const char* name, Widget parent)
{
    return XtVaCreateManagedWidget(name, xmLabelWidgetClass, parent, XmNalignment, XmALIGNMENT_BEGINNING, nullptr);
}
