// LmDeck: views on top of each other, of which one is seen.
#pragma once

#include "LmComponent.h"
#include "LmWidgetList.h"

/// A form whose views all fill it; the one on top is seen. Views are not owned; a destroyed one leaves the deck.
///
///   Widgets    XmForm of the component's name (base widget)
///   Errors     none; without views nothing happens
class LM_API LmDeck : public LmComponent {
public:
    /// How one view takes the place of another.
    enum TransitionStyle : int {
        NoTransition = 0   ///< at once; the only style there is: others do nothing
    };

    LmDeck(const char* name, Widget parent);   ///< A deck without views.

    const char* className() override { return "LmDeck"; }
    void afterRealizeHook() override;

    /// Appends a view, made as a child of the deck's form.
    void addView(Widget w);
    void addView(LmComponent* component);   ///< Appends the component's base widget.

    /// Shows the next view; behind the last comes the first.
    void pop(TransitionStyle style = NoTransition);
    /// Shows a view.
    void pop(Widget w, TransitionStyle style = NoTransition);
    void pop(LmComponent* component, TransitionStyle style = NoTransition);   ///< Shows a component's view.
    /// Shows the view before; before the first comes the last.
    void push(TransitionStyle style = NoTransition);
    /// Shows a view.
    void push(Widget w, TransitionStyle style = NoTransition);
    void push(LmComponent* component, TransitionStyle style = NoTransition);   ///< Shows a component's view.

    int size() const { return _views.size(); }   ///< The number of views.
    /// The index of the view on top; -1 until one is chosen.
    int current() const { return _current; }

protected:
    /// Shows a view, or (null) the next one.
    void popWidget(Widget w);
    /// Shows a view, or (null) the one before.
    void pushWidget(Widget w);

private:
    void choose(Widget w, int neighbour);

    LmWidgetList _views;
    int _current = -1;
};
