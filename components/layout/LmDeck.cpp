#include "LmDeck.h"

#include <Xm/Form.h>

#include <algorithm>

LmDeck::LmDeck(const char* name, Widget parent) : LmComponent(name)
{
    _baseWidget = XtCreateWidget(LmComponent::name(), xmFormWidgetClass, parent, nullptr, 0);
    installDestroyHandler();
}

void LmDeck::addView(Widget w)
{
    if (!w)
        return;
    _views.add(w);
    XtVaSetValues(w, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNrightAttachment, XmATTACH_FORM, nullptr);
}

void LmDeck::addView(LmComponent* component)
{
    if (component)
        addView(component->baseWidget());
}

void LmDeck::afterRealizeHook()
{
    if (_current >= 0)
        popWidget(_views[_current]);
}

/// Puts a view on top; a null one stands for the neighbour. A widget that is no view is raised, and nothing else.
void LmDeck::choose(Widget w, int neighbour)
{
    if (size() == 0)
        return;
    if (!w) {
        _current = neighbour;
        w = _views[neighbour];
    }
    for (int i = 0; i < size(); ++i) {
        if (_views[i] == w)
            _current = i;
    }
    if (w && XtIsWidget(w) && XtIsRealized(w))
        XMapRaised(XtDisplay(w), XtWindow(w));
}

void LmDeck::popWidget(Widget w) { choose(w, _current + 1 < size() ? _current + 1 : 0); }

void LmDeck::pushWidget(Widget w) { choose(w, _current > 0 ? std::min(_current, size()) - 1 : size() - 1); }

void LmDeck::pop(TransitionStyle style) { pop(static_cast<Widget>(nullptr), style); }

void LmDeck::pop(Widget w, TransitionStyle style)
{
    if (style == NoTransition)
        popWidget(w);
}

void LmDeck::pop(LmComponent* component, TransitionStyle style)
{
    if (component && component->baseWidget())
        pop(component->baseWidget(), style);
}

void LmDeck::push(TransitionStyle style) { push(static_cast<Widget>(nullptr), style); }

void LmDeck::push(Widget w, TransitionStyle style)
{
    if (style == NoTransition)
        pushWidget(w);
}

void LmDeck::push(LmComponent* component, TransitionStyle style)
{
    if (component && component->baseWidget())
        push(component->baseWidget(), style);
}
