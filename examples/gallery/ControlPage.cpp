#include "ControlPage.h"

#include <Lm/LmFormat.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/RowColumn.h>

static const char* house[] = {"24 20 5 1",
                              "  s background c #c0c0c0",
                              "r s darkShadow c #606060",
                              "w s lightShadow c #f0f0f0",
                              "d s fillcolor c #000000",
                              ". c #c0653f",
                              "           dd           ",
                              "          d..d          ",
                              "         d....d   dd    ",
                              "        d......d  dd    ",
                              "       d........d dd    ",
                              "      d..........ddd    ",
                              "     d............dd    ",
                              "    d..............d    ",
                              "   d................d   ",
                              "  d..................d  ",
                              " dddddddddddddddddddddd ",
                              "   dwwwwwwwwwwwwwwwwd   ",
                              "   dwwrrrrwwwwrrrrwwd   ",
                              "   dwwr  rwwwwr  rwwd   ",
                              "   dwwr  rwwwwr  rwwd   ",
                              "   dwwrrrrwwwwrrrrwwd   ",
                              "   dwwwwwwrrrrwwwwwwd   ",
                              "   dwwwwwwr  rwwwwwwd   ",
                              "   dwwwwwwr  rwwwwwwd   ",
                              "   dddddddddddddddddd   "};

ControlPage::ControlPage(Widget parent) : Page("controlPage", parent)
{
    Widget all = row::across("controls", body());
    Widget left = row::down("leftControls", all), middle = row::down("middleControls", all);
    makeCounter(left);
    makeBoxes(left);
    makeIcons(middle);
    makeRadioButtons(middle);
    _gang = std::make_unique<LmGang>("gang", all);
    _gang->show();
    _said = row::label("said", body());
    XtVaSetValues(_said, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, all, XmNtopOffset, 16, nullptr);
}

void ControlPage::makeCounter(Widget parent)
{
    Widget counter = row::across("counter", parent);
    _less = std::make_unique<LmRepeatButton>("less", counter, LmRB_ArrowButton);
    _number = row::label("number", counter);
    XtVaSetValues(counter, XmNisAligned, False, nullptr);
    XtVaSetValues(_number, XmNalignment, XmALIGNMENT_CENTER, nullptr);
    _more = std::make_unique<LmRepeatButton>("more", counter, LmRB_ArrowButton);
    _less->addCallback(LmRepeatButton::buttonCallback, this, &ControlPage::less, nullptr);
    _more->addCallback(LmRepeatButton::buttonCallback, this, &ControlPage::more, nullptr);
    _less->show();
    _more->show();
    count(0);
}

void ControlPage::count(int by)
{
    _count += by;
    XtVaSetValues(_number, XmNlabelString, lm::compound(LmFormat("%d", _count)).get(), nullptr);
}

void ControlPage::makeBoxes(Widget parent)
{
    _extras = std::make_unique<LmCheckBox>("extras", parent);
    for (const char* name : {"milk", "sugar", "lemon"})
        _extras->addItem(name, name[0] == 's', nullptr, nullptr);
    _sizes = std::make_unique<LmRadioBox>("sizes", parent);
    for (const char* name : {"small", "medium", "large"})
        _sizes->addItem(name, name[0] == 'm', nullptr, nullptr);
    for (LmCheckBox* box : {_extras.get(), static_cast<LmCheckBox*>(_sizes.get())}) {
        box->addCallback(LmCheckBox::itemChangedCallback, this, &ControlPage::toggled, nullptr);
        box->show();
    }
}

void ControlPage::toggled(LmCallbackObject* box, void*, void* index)
{
    auto& toggles = *static_cast<LmCheckBox*>(box);
    const char* text =
        LmFormat("%s: toggle %d is %s.", toggles.name(), lm::asInt(index) + 1, toggles.getValue(lm::asInt(index)) ? "on" : "off");
    XtVaSetValues(_said, XmNlabelString, lm::compound(text).get(), nullptr);
}

void ControlPage::makeIcons(Widget parent)
{
    Widget icons = row::across("icons", parent);
    _plain = std::make_unique<LmIconButton>("plainIcon", icons, house, house, True);
    _highlighting = std::make_unique<LmIconButton>("litIcon", row::across("litIcons", icons), house, house, True);
    _plain->show();
    _highlighting->show();
}

void ControlPage::makeRadioButtons(Widget parent)
{
    row::label("radioLabel", parent);
    Widget buttons = row::across("radioButtons", parent);
    for (const char* name : {"north", "east", "south", "west"}) {
        Widget button = row::button(name, buttons);
        _group.add(button);
        lm::on<&ControlPage::pressed>(button, XmNactivateCallback, this);
    }
}

void ControlPage::pressed()
{
    const char* text = LmFormat("%s is chosen.", _group.selected() ? XtName(_group.selected()) : "Nothing");
    XtVaSetValues(_said, XmNlabelString, lm::compound(text).get(), nullptr);
}
