// LmCheckBox: a titled frame of toggles, and one whose toggles exclude each other.
#pragma once

#include "LmComponent.h"
#include "LmWidgetList.h"
#include "support/alive.h"

#include <memory>

/// A frame of toggles that are known by their index.
///
///   Widgets    XmFrame of the component's name (base widget), rc (XmRowColumn) with the toggles (gadgets), label (label
///              gadget): the frame's title
///   Callbacks  itemChangedCallback, when a toggle changed, also by setValue(); call data: its index
///   Errors     none: an index without a toggle is ignored
class LM_API LmCheckBox : public LmComponent {
public:
    static const char* const itemChangedCallback;   ///< "valueChangedCallback"

    LmCheckBox(const char* name, Widget parent);   ///< A box without toggles.
    ~LmCheckBox() override;

    const char* className() override { return "LmCheckBox"; }
    /// A toggle changed, after the callbacks; a hook for derived classes, nothing here.
    virtual void valueChanged(int index, char set);
    void widgetDestroyed() override;

    /// Appends a toggle of that name. Its value-changed callbacks are `callback` (or null) and the box's own; for a true
    /// state they run already here. Null when one of them destroys the toggle, and without a widget.
    Widget addItem(const char* name, char state, XtCallbackProc callback, XtPointer clientData);
    /// Sets a toggle; callbacks run when that changes it.
    void setValue(int index, char state);
    /// Sets the first `count` toggles.
    void setValues(const char* states, int count);
    /// 1 or 0; 0 for an index without a toggle.
    int getValue(int index);

    int size() const { return _toggles ? _toggles->size() : 0; }   ///< The number of toggles.

protected:
    Widget _rc = nullptr;      ///< the toggles' parent; null once destroyed
    Widget _label = nullptr;   ///< the frame's title; null once destroyed

private:
    void changed(Widget toggle, XtPointer callData);
    static void toggleChanged(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    std::unique_ptr<LmWidgetList> _toggles;   // null until the first addItem()
    lm::Alive _alive;
};

/// A check box of which at most one toggle is set.
class LM_API LmRadioBox : public LmCheckBox {
public:
    LmRadioBox(const char* name, Widget parent);   ///< A box without toggles.

    const char* className() override { return "LmRadioBox"; }
};
