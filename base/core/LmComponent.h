// LmComponent: the base of every object that owns a tree of widgets.
#pragma once

#include "LmCallbackObject.h"
#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// An object that owns one tree of widgets, reached through its base widget.
///
/// A derived class creates its widgets in its constructor, assigns the topmost to `_baseWidget` (or `_w`, the same) and
/// calls installDestroyHandler(). Object and widgets may die in either order: deleting the object destroys its widgets;
/// when the widgets go first, widgetDestroyed() tells the object, which lives on without them.
///
///   Widgets    the derived class's; the base widget usually carries the component's name
///   Callbacks  deleteCallback, when the object is being deleted; call data: null
///   Errors     none reported; show(), hide() and realize() do nothing while there is no base widget
class LM_API LmComponent : public LmCallbackObject {
public:
    static const char* const deleteCallback;   ///< "deleteCallback"

    /// Named "component".
    LmComponent();
    /// The name is copied; it is the widget's name and the start of the component's resource names. Null: "component".
    explicit LmComponent(const char* name);
    ~LmComponent() override;

    /// The class's name, which is also the resource class of the component.
    const char* className() override { return "LmComponent"; }
    /// Manages the base widget, unless it is a shell. The first map afterwards runs afterRealizeHook(), if the widget
    /// was not realized yet.
    virtual void show();
    /// Unmanages the base widget.
    virtual void hide();
    /// Realizes the base widget.
    virtual void realize();
    /// Whether a window agrees to be closed. A derived class answers False to refuse.
    virtual Boolean okToQuit() { return True; }
    /// The widget that stands for the component: the base widget, unless a derived class says otherwise.
    virtual operator Widget() { return _baseWidget; }
    /// Sets an attribute by name; a hook for derived classes, nothing here.
    virtual void setAttribute(const char* name, void* value);
    /// The names of the attributes, ended by null; a hook for derived classes, null here.
    virtual char** attributeList() { return nullptr; }
    /// Reads an attribute by name into `*value`; a hook for derived classes, nothing here.
    virtual void getAttribute(const char* name, void** value);
    /// The base widget is being destroyed while the component lives. Overrides drop what needs the widget (shared GCs
    /// above all) and then call this one, which sets the base widget to null.
    virtual void widgetDestroyed();
    /// Runs once, when the base widget is first mapped after a show() of the unrealized widget. Nothing here.
    virtual void afterRealizeHook() {}

    /// The component's name; never freed.
    const char* name() const { return _name; }
    /// The topmost widget; null before the derived class made it and after it was destroyed.
    Widget baseWidget() const { return _baseWidget; }

    /// Whether the pointer is a living component. Safe for every pointer, also a stale one: a deleted component is not
    /// read. A component whose name starts with a byte of 0x80 or more does not count as living.
    static bool isComponent(LmComponent* component);
    /// The Xt destroy procedure: runs widgetDestroyed() of the component given as client data, if `w` is its base widget.
    static void widgetDestroyedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// The Xt event handler behind afterRealizeHook(); removes itself at the first MapNotify.
    static void afterRealizeEventHandler(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;

protected:
    /// Has widgetDestroyed() run when the base widget is destroyed.
    void installDestroyHandler();
    /// Undoes installDestroyHandler().
    void removeDestroyHandler();
    /// Loads resources into this object. Offsets count from the start of the LmComponent (lm::resource(this, field, ...)
    /// computes them). With a parent widget they are resources of the component's name and class below that parent;
    /// without one (a shell) application resources.
    void getResources(XtResourceList resources, int numResources);
    /// Merges resource lines into the database of the widget's display; what is there already wins. A line stands for
    /// "*<name of the component>*<line>", one that starts with '-' for itself without the '-'. The list ends with null.
    /// A name with ':', '*' or a newline is no resource name: its prefixed lines are left out.
    void setDefaultResources(Widget w, const String* defaults);

private:
    void setName(const char* name);
    friend class LmApp;   // takes its name from the command line

    const char* _name;   // never freed

protected:
    Widget _baseWidget = nullptr;   ///< the topmost widget of the component; null while there is none
    Widget& _w = _baseWidget;       ///< the same widget, for short
};
