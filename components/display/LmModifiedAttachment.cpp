#include "LmModifiedAttachment.h"

#include "LmResource.h"
#include "support/resources.h"
#include "support/xmtext.h"

#include <X11/cursorfont.h>
#include <Xm/Gadget.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <strings.h>

// How it is bound to the widget; LmModifiedIndicator.cpp has what is seen of it.

const char* const LmModifiedAttachment::modifiedCallback = "modifiedCallback";

LmModifiedAttachment::LmModifiedAttachment(Boolean blankIsValue, Boolean followGeometry, Boolean updateOnChange)
    : LmModified(blankIsValue),
      _updateOnChange(updateOnChange),
      _followGeometry(followGeometry)
{}

LmModifiedAttachment::~LmModifiedAttachment() { detach(); }

// --- the widget --------------------------------------------------------------------------------------------------------

static bool hasText(Widget w) { return XmIsText(w) || XmIsTextField(w); }

static Widget windowed(Widget w)
{
    while (w && XmIsGadget(w))
        w = XtParent(w);
    return w;
}

void LmModifiedAttachment::attach(Widget w)
{
    if (_widget)
        detach();
    if (!w)
        return;
    const char* display = LmGetResource(w, "displayModified", "DisplayModified");
    _displayModified = !display || strcasecmp(display, "false") != 0;
    _widget = w;
    setupCallbacks(w);
    Display* const before = std::exchange(_display, XtDisplayOfObject(w));
    if (!_upCursor || before != _display) {
        _upCursor = lm::CursorHandle(_display, XCreateFontCursor(_display, XC_based_arrow_up));
        _downCursor = lm::CursorHandle(_display, XCreateFontCursor(_display, XC_based_arrow_down));
    }
    _structureWidget = windowed(w);
    XtAddEventHandler(_structureWidget, StructureNotifyMask, False, &LmModifiedAttachment::reconfig_stub, this);
    reparentWindow(w);
    displayValue();
}

void LmModifiedAttachment::detach()
{
    hide();
    destroyIndicator();
    if (!_widget)
        return;
    removeCallbacks(_widget);
    XtRemoveEventHandler(_structureWidget, StructureNotifyMask, False, &LmModifiedAttachment::reconfig_stub, this);
    _widget = _structureWidget = nullptr;
}

void LmModifiedAttachment::setupCallbacks(Widget w)
{
    XtAddCallback(w, XmNdestroyCallback, &LmModifiedAttachment::destroy_stub, this);
    if (!hasText(w))
        return;
    XtAddCallback(w, XmNvalueChangedCallback, &LmModifiedAttachment::value_stub, this);
    XtAddCallback(w, XmNactivateCallback, &LmModifiedAttachment::activate_stub, this);
}

void LmModifiedAttachment::removeCallbacks(Widget w)
{
    XtRemoveCallback(w, XmNdestroyCallback, &LmModifiedAttachment::destroy_stub, this);
    if (!hasText(w))
        return;
    XtRemoveCallback(w, XmNvalueChangedCallback, &LmModifiedAttachment::value_stub, this);
    XtRemoveCallback(w, XmNactivateCallback, &LmModifiedAttachment::activate_stub, this);
}

// --- values ------------------------------------------------------------------------------------------------------------

// The label of a widget; the program ends with the message when it has none. An empty label is one, too, even as a null.
static lm::XmText labelOf(Widget w, const char* message)
{
    static char absent;
    XmString label = reinterpret_cast<XmString>(&absent);
    XtVaGetValues(w, XmNlabelString, &label, nullptr);
    if (label == reinterpret_cast<XmString>(&absent)) {
        std::fputs(message, stderr);
        std::exit(1);
    }
    return lm::XmText(label);
}

void LmModifiedAttachment::setWidgetValue(Widget w, char* v)
{
    if (!v)
        v = lm::xtText("");
    if (XmIsText(w)) {
        if (v != std::string(lm::XtString(XmTextGetString(w)).get()))
            XmTextSetString(w, v);
        return;
    }
    if (XmIsTextField(w)) {
        if (v != std::string(lm::XtString(XmTextFieldGetString(w)).get()))
            XmTextFieldSetString(w, v);
        return;
    }
    const lm::XmText old = labelOf(w, "LmModifiedAttachment: Unknown attached widget type!\n");
    const lm::XmText label = lm::compound(v);
    if (!old || !XmStringCompare(old.get(), label.get()))
        XtVaSetValues(w, XmNlabelString, label.get(), nullptr);
}

char* LmModifiedAttachment::getWidgetValue(Widget w)
{
    if (XmIsText(w))
        return XmTextGetString(w);
    if (XmIsTextField(w))
        return XmTextFieldGetString(w);
    return strdup(lm::plainText(labelOf(w, "LmModifiedAttachment: Unknown widget type!\n").get()).c_str());
}

void LmModifiedAttachment::displayValue()
{
    if (!_widget)
        return;
    const lm::CString& shown = _showingCurrent ? _value : _previousValue;
    std::string text = shown ? shown.get() : "";   // callbacks of the widget may replace ours
    const lm::Watch here(liveness());
    const Boolean outer = std::exchange(_toggling, True);
    setWidgetValue(_widget, text.data());
    if (here)
        _toggling = outer;
}

void LmModifiedAttachment::updateDisplay()
{
    if (_toggling || !_widget)
        return;
    const lm::CString value(getWidgetValue(_widget));
    setValue(value.get());
}

void LmModifiedAttachment::toggleDisplay()
{
    LmModified::toggleDisplay();
    setCursor();
    forceExpose();
    displayValue();
}

void LmModifiedAttachment::setValue(const char* v)
{
    const lm::Watch here(liveness());
    LmModified::setValue(v);
    if (here)
        displayValue();
}

void LmModifiedAttachment::fixPreviousValue(char* v, Boolean alsoCurrent)
{
    const lm::Watch here(liveness());
    LmModified::fixPreviousValue(v, alsoCurrent);
    if (here)
        displayValue();
}

// --- callbacks ---------------------------------------------------------------------------------------------------------

void LmModifiedAttachment::callCallback(LmModifiedReason r, XEvent* e)
{
    LmModifiedCallbackStruct data{r, this, e};
    callCallbacks(modifiedCallback, &data);
}

static XEvent* eventOf(XtPointer callData) { return callData ? static_cast<XmAnyCallbackStruct*>(callData)->event : nullptr; }

void LmModifiedAttachment::value_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    auto* self = static_cast<LmModifiedAttachment*>(clientData);
    if (w != self->_widget)
        return;
    const lm::Watch here(self->liveness());
    if (self->_updateOnChange)
        self->updateDisplay();
    if (here)
        self->callCallback(LM_valueChanged, eventOf(callData));
}

void LmModifiedAttachment::activate_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    auto* self = static_cast<LmModifiedAttachment*>(clientData);
    if (w != self->_widget) {
        std::fputs("LmModifiedAttachment: activate unexpected\n"
                   "                      use LM_activate instead of XmNactivateCallback\n",
                   stderr);
        return;
    }
    const lm::Watch here(self->liveness());
    const bool previousWasShown = !self->_showingCurrent;
    if (!self->_updateOnChange)
        self->updateDisplay();
    if (here && previousWasShown)
        self->callCallback(LM_valueChanged, eventOf(callData));
    if (here)
        self->callCallback(LM_activate, eventOf(callData));
}

void LmModifiedAttachment::destroy_stub(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmModifiedAttachment*>(clientData)->detach();
}
