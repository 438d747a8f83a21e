#include "ModifiedPage.h"

#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/Scale.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <cstdlib>
#include <string>

static constexpr int labelColumn = 90, fieldWidth = 220, gap = 10;   // in pixels

/// The port is taken at Return, every other value at once; all indicators follow their fields.
ModifiedPage::ModifiedPage(Widget parent)
    : Page("modifiedPage", parent),
      _user(True, True, True),
      _server(True, True, True),
      _port(True, True, False),
      _volume(True, True, True),
      _sound(True, True, True)
{
    Widget above = field("user", nullptr, _user, "hugin");
    above = field("server", above, _server, "asgard.example.org");
    above = field("port", above, _port, "8443");
    addControls(above);
    for (LmModifiedAttachment* value : _all)
        value->addCallback(LmModifiedAttachment::modifiedCallback, this, &ModifiedPage::valueShown, nullptr);
    _server.setValue("midgard.example.org");   // something to see at once
    _volume.setValue("70 %");
    count();
}

/// A line with a label, below another; the label is returned for the rest of the line to stand beside.
Widget ModifiedPage::row(const char* labelName, Widget above)
{
    Widget label = row::label(labelName, body());
    XtVaSetValues(label, XmNrecomputeSize, False, XmNwidth, labelColumn, XmNleftAttachment, XmATTACH_FORM, XmNtopAttachment,
                  above ? XmATTACH_WIDGET : XmATTACH_FORM, XmNtopWidget, above, XmNtopOffset, gap, nullptr);
    return label;
}

/// A line with a text field, whose value now is what later ones are compared with.
Widget ModifiedPage::field(const char* name, Widget above, LmModifiedAttachment& attachment, const char* value)
{
    const std::string labelName = std::string(name) + "Label";
    Widget label = row(labelName.c_str(), above);
    Widget text =
        XtVaCreateManagedWidget(name, xmTextFieldWidgetClass, body(), XmNwidth, fieldWidth, XmNleftAttachment, XmATTACH_WIDGET,
                                XmNleftWidget, label, XmNtopAttachment, XmATTACH_OPPOSITE_WIDGET, XmNtopWidget, label, nullptr);
    XtVaSetValues(label, XmNbottomAttachment, XmATTACH_OPPOSITE_WIDGET, XmNbottomWidget, text, nullptr);
    std::string initial = value;
    attachment.attach(text);
    attachment.fixPreviousValue(initial.data(), True);
    attachment.show();
    return text;
}

/// Controls that are no texts have one beside them, which only they change.
void ModifiedPage::addControls(Widget above)
{
    Widget volume = field("volume", above, _volume, "40 %");
    Widget sound = field("sound", volume, _sound, "on");
    _scale = XtVaCreateManagedWidget("volumeScale", xmScaleWidgetClass, body(), XmNorientation, XmHORIZONTAL, XmNscaleWidth, 180,
                                     XmNscaleHeight, 20, XmNvalue, 40, nullptr);
    _toggle = XtVaCreateManagedWidget("soundToggle", xmToggleButtonWidgetClass, body(), XmNset, XmSET, nullptr);
    for (const auto& [control, text] : {std::pair{_scale, volume}, std::pair{_toggle, sound}}) {
        XtVaSetValues(text, XmNeditable, False, XmNcursorPositionVisible, False, XmNtraversalOn, False, XmNwidth, 70, nullptr);
        XtVaSetValues(control, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, text, XmNleftOffset, gap, XmNtopAttachment,
                      XmATTACH_OPPOSITE_WIDGET, XmNtopWidget, text, XmNtopOffset, control == _scale ? 5 : 2, nullptr);
    }
    lm::on<&ModifiedPage::scaleMoved>(_scale, XmNvalueChangedCallback, this);
    lm::on<&ModifiedPage::scaleMoved>(_scale, XmNdragCallback, this);
    lm::on<&ModifiedPage::toggled>(_toggle, XmNvalueChangedCallback, this);
    addButtons(sound);
}

void ModifiedPage::addButtons(Widget above)
{
    Widget line = row::across("modifiedButtons", body());
    XtVaSetValues(line, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, above, XmNtopOffset, 2 * gap, XmNleftAttachment,
                  XmATTACH_FORM, nullptr);
    lm::on<&ModifiedPage::save>(row::button("saveValues", line), XmNactivateCallback, this);
    lm::on<&ModifiedPage::revert>(row::button("revertValues", line), XmNactivateCallback, this);
    _state = row::label("modifiedState", line);
}

// --- what the user does ------------------------------------------------------------------------------------------------

void ModifiedPage::scaleMoved(XmScaleCallbackStruct* data) { _volume.setValue((std::to_string(data->value) + " %").c_str()); }

void ModifiedPage::toggled(XmToggleButtonCallbackStruct* data) { _sound.setValue(data->set == XmSET ? "on" : "off"); }

/// A text shows another value, perhaps an old one that a press on its corner brought back: the controls follow.
void ModifiedPage::valueShown(LmCallbackObject*, void*, void*)
{
    const lm::CString volume(_volume.getWidgetValue(_volume.widget())), sound(_sound.getWidgetValue(_sound.widget()));
    XmScaleSetValue(_scale, std::clamp(std::atoi(volume.get()), 0, 100));
    XmToggleButtonSetState(_toggle, std::string(sound.get()) == "on", False);
    count();
}

void ModifiedPage::save()
{
    for (LmModifiedAttachment* value : _all) {
        value->updateDisplay();   // takes in what was typed without Return
        value->fixPreviousValue(std::string(value->currentValue()).data(), True);
    }
    count();
}

void ModifiedPage::revert()
{
    for (LmModifiedAttachment* value : _all)
        value->setValue(std::string(value->previousValue()).c_str());
    count();
}

void ModifiedPage::count()
{
    const auto modified = std::ranges::count_if(_all, [](const LmModifiedAttachment* value) { return value->isModified(); });
    const std::string text = modified == 0 ? "Everything is saved." : std::to_string(modified) + " of 5 values are modified.";
    XtVaSetValues(_state, XmNlabelString, lm::compound(text.c_str()).get(), nullptr);
}
