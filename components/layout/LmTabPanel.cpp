#include "LmTabPanel.h"

#include "LmApp.h"
#include "LmResource.h"
#include "support/resources.h"

#include <Xm/Form.h>

#include <array>
#include <utility>

const char* const LmTabPanel::tabSelectCallback = "tabSelectCallback";
const char* const LmTabPanel::tabPopupCallback = "tabPopupCallback";

LmTabPanel::LmTabPanel(const char* name, Widget parent, char horizontal, int tabHeight) : LmComponent(name)
{
    _baseWidget = XmCreateForm(parent, lm::xtText(LmComponent::name()), nullptr, 0);
    XtVaGetValues(_baseWidget, XmNbackground, &_background, nullptr);
    LmGetResource(_baseWidget, "margin", "Margin", XtRInt, "5", &_margin, sizeof _margin);
    LmGetResource(_baseWidget, "margin1", "Margin1", XtRInt, "5", &_margin1, sizeof _margin1);
    LmGetResource(_baseWidget, "margin2", "Margin2", XtRInt, "5", &_margin2, sizeof _margin2);
    _tabArea = std::make_unique<LmTabArea>("tabArea", _baseWidget, horizontal, tabHeight);
    _tabArea->addCallback(LmTabArea::tabSelectCallback, this, &LmTabPanel::tabSelect, nullptr);
    _tabArea->addCallback(LmTabArea::tabPopupCallback, this, &LmTabPanel::tabPopup, nullptr);
    _tabArea->setBackground(_background);
    makeParts();
    attachStrip();
    _tabArea->show();
    installDestroyHandler();
}

LmTabPanel::~LmTabPanel() = default;

namespace {

/// The resources of a form's four attachments, as seen along a strip: the sides at its start and end, the side at its base
/// line, and the one far from it.
struct Sides {
    struct Side {
        const char *attachment, *offset, *widget;
    };
    Side start, end, base, far;
};
const Sides::Side left = {XmNleftAttachment, XmNleftOffset, XmNleftWidget};
const Sides::Side right = {XmNrightAttachment, XmNrightOffset, XmNrightWidget};
const Sides::Side top = {XmNtopAttachment, XmNtopOffset, XmNtopWidget};
const Sides::Side bottom = {XmNbottomAttachment, XmNbottomOffset, XmNbottomWidget};
const Sides horizontalSides = {left, right, top, bottom};
const Sides verticalSides = {top, bottom, right, left};

const Sides& sidesOf(char horizontal) { return horizontal ? horizontalSides : verticalSides; }

void attach(Widget w, const Sides::Side& side, int offset = 0)
{
    XtVaSetValues(w, side.attachment, XmATTACH_FORM, side.offset, offset, nullptr);
}

void attach(Widget w, const Sides::Side& side, Widget neighbour)
{
    XtVaSetValues(w, side.attachment, XmATTACH_WIDGET, side.widget, neighbour, nullptr);
}

Widget managedForm(const char* name, Widget parent, Pixel background)
{
    Widget form = XmCreateForm(parent, lm::xtText(name), nullptr, 0);
    XtVaSetValues(form, XmNbackground, background, nullptr);
    XtManageChild(form);
    return form;
}

}   // namespace

/// The outer forms have the colour of lines: what their parts leave uncovered at the base line continues it.
void LmTabPanel::makeParts()
{
    const Sides& sides = sidesOf(horiz());
    _outer1 = managedForm("outer1", _baseWidget, labelFg());
    _area1 = managedForm("area1", _outer1, _background);
    _marg1 = managedForm("marg1", _outer1, _background);
    _outer2 = managedForm("outer2", _baseWidget, labelFg());
    _area2 = managedForm("area2", _outer2, _background);
    _marg2 = managedForm("marg2", _outer2, _background);
    for (const auto& [outer, end] : {std::pair{_outer1, sides.start}, {_outer2, sides.end}}) {
        for (const Sides::Side& side : {end, sides.base, sides.far})
            attach(outer, side);
    }
    for (Widget part : {_area1, _marg1, _area2, _marg2}) {
        attach(part, sides.start);
        attach(part, sides.end);
        attach(part, sides.base, lineThickness());
        attach(part, sides.far);
    }
    attach(_area1, sides.end, _margin1);
    attach(_marg1, sides.start, _area1);
    attach(_area2, sides.start, _margin2);   // and lies on marg2, of which the margin shows
}

void LmTabPanel::attachStrip()
{
    const Sides& sides = sidesOf(horiz());
    Widget strip = _tabArea->baseWidget();
    attach(strip, sides.start, _outer1);
    attach(strip, sides.end, _outer2);
    attach(strip, sides.base);
    attach(strip, sides.far, _margin);
}

void LmTabPanel::tabSelect(LmCallbackObject*, void*, void* callData) { callCallbacks(tabSelectCallback, callData); }

void LmTabPanel::tabPopup(LmCallbackObject*, void*, void* callData) { callCallbacks(tabPopupCallback, callData); }

LmTabPanel* LmCreateTabPanel(const char* name, Widget parent)
{
    LmCreateAppStub(parent);
    auto* panel = new LmTabPanel(name, parent, True, 0);
    panel->show();
    return panel;
}
