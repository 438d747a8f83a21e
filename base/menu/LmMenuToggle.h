// LmMenuToggle: an item that is on or off.
#pragma once

#include "LmMenuAction.h"

/// An item that is on or off. Never goes on the undo stack.
///
///   Widgets    XmToggleButtonGadget of the item's name
///   Callbacks  the Xt callback given at construction, when the state changes: XmToggleButtonCallbackStruct
class LM_API LmMenuToggle : public LmMenuAction {
public:
    using LmMenuAction::LmMenuAction;

    const char* className() override { return "LmMenuToggle"; }
    LmMenuItemType menuType() override { return MENU_TOGGLE; }
    void build(Widget parent) override;

    /// Sets the state without running the callback.
    void setVisualState(bool on) { setState(on, False); }
    /// Sets the state and runs the callback, if the toggle is built.
    void setStateAndNotify(bool on) { setState(on, True); }
    /// 1 when on, else 0; also 0 while nothing was set and there is no widget.
    int getState();

private:
    void setState(bool on, Boolean notify);

    int _state = -1;   // -1 never set, else 0 or 1; once built, the widget knows better
};
