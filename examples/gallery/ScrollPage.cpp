#include "ScrollPage.h"

#include <Lm/LmApp.h>
#include <Lm/LmFormat.h>
#include <Lm/support/handles.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/ToggleB.h>

#include <string>

static constexpr int lineCount = 120, cellCount = 48;

/// Every seventh line is a special one.
static bool isMarked(int line) { return line % 7 == 3 || line % 31 == 5; }

ScrollPage::ScrollPage(Widget parent) : Page("scrollPage", parent), _text("scrolledText", body()), _cells("cells", body())
{
    _centre = XtVaCreateManagedWidget("centre", xmToggleButtonWidgetClass, body(), XmNbottomAttachment, XmATTACH_FORM,
                                      XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, _text.baseWidget(), XmNleftOffset, 16,
                                      nullptr);
    lm::on<&ScrollPage::centre>(_centre, XmNvalueChangedCallback, this);
    XtVaSetValues(_text.baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
                  XmATTACH_FORM, nullptr);
    XtVaSetValues(_cells.baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget,
                  _centre, XmNbottomOffset, 10, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, _text.baseWidget(),
                  XmNleftOffset, 16, XmNrightAttachment, XmATTACH_FORM, nullptr);
    makeText();
    makeCells();
}

void ScrollPage::makeText()
{
    std::string lines;
    for (int i = 0; i < lineCount; ++i)
        lines += LmFormat(isMarked(i) ? "%3d  a raven sits here" : "%3d  nothing to be seen", i + 1) + std::string("\n");
    lines.pop_back();
    _text.setChild(XtVaCreateManagedWidget("lines", xmLabelWidgetClass, _text.clip(), XmNlabelString,
                                           lm::compound(lines.c_str()).get(), XmNalignment, XmALIGNMENT_BEGINNING,
                                           XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr));
    _text.addCallback(LmScroll::scrollCallback, this, &ScrollPage::scrolled, nullptr);
    _text.setAnnotations();
}

/// Paints a mark into the trough for every line with a raven.
void ScrollPage::scrolled(LmCallbackObject*, void*, void* data)
{
    const auto& trough = *static_cast<LmScrollCallbackStruct*>(data);
    if (trough.reason != 3)
        return;
    Display* display = theApplication->display();
    Pixel mark = 0;
    XtVaGetValues(_centre, XmNselectColor, &mark, nullptr);
    const lm::SharedGC gc(_centre, GCForeground, {.foreground = mark});
    for (int i = 0; i < lineCount; ++i) {
        if (isMarked(i))
            XFillRectangle(display, trough.pixmap, gc.get(), 0, i * trough.b / lineCount, static_cast<unsigned>(trough.a), 2);
    }
}

void ScrollPage::makeCells()
{
    for (int i = 0; i < cellCount; ++i) {
        const std::string colour = LmFormat("#%02x%02x%02x", 90 + i * 3, 150 + i * 37 % 70, 230 - i * 3);
        const int side = i % 5 == 0 ? 72 : 54;
        XtVaCreateManagedWidget("cell", xmLabelWidgetClass, _cells.board(), XmNlabelString,
                                lm::compound(std::to_string(i + 1).c_str()).get(), XmNrecomputeSize, False, XmNwidth, side,
                                XmNheight, side, XtVaTypedArg, XmNbackground, XtRString, colour.c_str(), colour.size() + 1,
                                nullptr);
    }
}

void ScrollPage::centre()
{
    _cells.setCenterChildren(XmToggleButtonGetState(_centre));
    _cells.resize();
}
