// LmWidgetList: widgets in an order, not owned; a destroyed widget leaves the list.
#pragma once

#include "LmComponent.h"

#include <vector>

/// A list of widgets that forgets each widget when it is destroyed. The list owns no widget.
///
///   Errors     none: null widgets, and components without a widget, are ignored
class LM_API LmWidgetList {
public:
    LmWidgetList() = default;
    LmWidgetList(const LmWidgetList&) = delete;
    LmWidgetList& operator=(const LmWidgetList&) = delete;
    virtual ~LmWidgetList();
    /// Appends the widget. A widget may stand in the list several times.
    virtual void add(Widget w);
    /// Appends the component's base widget.
    virtual void add(LmComponent* component);
    /// Removes the component's base widget.
    virtual void remove(LmComponent* component);
    /// Removes the first occurrence of the widget.
    virtual void remove(Widget w);
    /// Removes the first widget of the list, if any, by remove(Widget).
    virtual void removeFirst();
    /// Removes the last widget of the list, if any.
    virtual void removeLast();
    /// Whether the widget is in the list.
    virtual bool exists(Widget w);
    /// A widget of the list is being destroyed; removes it. Overrides call this one.
    virtual void widgetDestroyed(Widget w, void* callData);

    int size() const { return static_cast<int>(_widgets.size()); }   ///< How many entries there are.
    /// The widget at an index; null outside 0..size()-1.
    Widget operator[](int index) const;
    /// The Xt destroy procedure: runs widgetDestroyed() of the list given as client data.
    static void widgetDestroyedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

private:
    void removeAt(std::vector<Widget>::iterator at);

    std::vector<Widget> _widgets;
};
