// LmMenuAction: an item that does something, with its kinds.
#pragma once

#include "LmMenuItem.h"

/// An item that runs a callback when it is chosen. With an undo callback it then goes on the undo stack, each time.
///
///   Widgets    XmPushButtonGadget of the item's name
///   Callbacks  the two Xt callbacks given at construction, both with the widget and the client data; the undo callback
///              with null call data, and a null widget while the item is not built
///   Errors     none
class LM_API LmMenuAction : public LmMenuItem {
public:
    /// `callback` may be null.
    LmMenuAction(const char* name, XtCallbackProc callback, XtPointer clientData);
    /// An action that can be undone, unless `undoCallback` is null.
    LmMenuAction(const char* name, XtCallbackProc callback, XtCallbackProc undoCallback, XtPointer clientData);
    /// Leaves every undo stack.
    ~LmMenuAction() override;

    const char* className() override { return "LmMenuAction"; }
    LmMenuItemType menuType() override { return MENU_ACTION; }
    void build(Widget parent) override;
    /// Runs the undo callback, if any.
    virtual void undo();

protected:
    XtCallbackProc _undoCallback;   ///< null: cannot be undone
    XtCallbackProc _callback;       ///< runs when the item is chosen; may be null
    XtPointer _clientData;          ///< for both callbacks; not owned

private:
    friend class LmMenuUndoManager;   // looks at stubs
};

/// An action whose widget is no gadget, for what needs a window of its own. Never goes on the undo stack.
///
///   Widgets    XmPushButton of the item's name
class LM_API LmMenuActionWidget : public LmMenuAction {
public:
    using LmMenuAction::LmMenuAction;

    const char* className() override { return "LmMenuActionWidget"; }
    LmMenuItemType menuType() override { return MENU_ACTION_WIDGET; }
    void build(Widget parent) override;
};

/// An action as an object: a derived class says what is done, and how it is undone.
class LM_API LmMenuActionObject : public LmMenuAction {
public:
    /// `data` is handed to doit() and undoit().
    LmMenuActionObject(const char* name, void* data);

    const char* className() override { return "LmMenuActionObject"; }
    LmMenuItemType menuType() override { return MENU_ACTION_OBJECT; }
    virtual void undoit(void* data) = 0;   ///< Takes back what doit() did.
    virtual void doit(void* data) = 0;     ///< Does what choosing the item is for.

protected:
    void* _objectData;   ///< what the two get; not owned

private:
    static void doitCallback(Widget w, XtPointer object, XtPointer callData) noexcept;
    static void undoitCallback(Widget w, XtPointer object, XtPointer callData) noexcept;
};

/// Stands on the undo stack for something that was done outside the menus. Never shown; the undo manager owns it.
///
///   Widgets    none
class LM_API LmMenuActionStub : public LmMenuAction {
public:
    /// Only undo() of it does something: it runs the callback.
    LmMenuActionStub(const char* name, XtCallbackProc undoCallback, XtPointer clientData);

    const char* className() override { return "LmMenuActionStub"; }
    LmMenuItemType menuType() override { return MENU_ACTION_STUB; }
    void build(Widget) override {}
};

/// An Xt callback that puts the action given as client data on the undo stack; nothing when the action is gone.
LM_API void registerUndoCallback(Widget w, XtPointer item, XtPointer callData) noexcept;
