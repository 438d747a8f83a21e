// LmMenuUndoManager: the menu entry that takes things back.
#pragma once

#include "LmMenuAction.h"

class LmComponentList;

/// The "Undo" entry of a menu: it keeps a stack of what was done, names the newest in its label ("Undo: Cut"), and takes it
/// back when chosen. Once something was taken back, the next new action discards everything older.
///
/// Actions come on the stack when they are chosen in a menu, as stubs for what was done elsewhere, and as LmAction
/// objects. Placed in a menu, the manager stays its maker's: when the menu dies, the manager leaves it with its stack and
/// can be placed in another one.
///
///   Widgets    XmPushButtonGadget of the manager's name, "Undo" for getTheUndoManager(); insensitive when there is nothing
///              to undo
///   Resources  of the widget: the name of an action without a widget, class "LabelString" XmString: what the label calls
///              it; default the name itself
///   Errors     none
class LM_API LmMenuUndoManager : public LmMenuAction {
public:
    explicit LmMenuUndoManager(const char* name);   ///< An empty stack; the name is the entry's.
    /// Deletes the stubs on the stack.
    ~LmMenuUndoManager() override;

    const char* className() override { return "LmMenuUndoManager"; }
    void build(Widget parent) override;
    /// Takes the newest action back, if there is one.
    void undo() override;

    /// Puts an action on the stack; not owned, and leaves the stack when it is deleted.
    void add(LmMenuAction* action);
    /// Puts something that was done outside the menus on the stack. The name is copied.
    void add(const char* name, XtCallbackProc undoProc, XtPointer clientData);
    /// Empties the stack.
    void reset();
    /// Whether several undos in a row walk back through the stack (true, initially), or one empties it.
    void setMultiLevel(bool multiLevel) { _multiLevel = multiLevel; }
    /// How many actions can be taken back.
    int size() const;

    /// The Xt callback of the entry, with the manager as client data.
    static void undoCallback(Widget w, XtPointer manager, XtPointer callData) noexcept;

protected:
    LmComponentList* _undoStack;   ///< oldest first; owned, and so are the stubs in it
    lm::XmText _baseLabel;         ///< the label without an action; null until built
    bool _multiLevel = true;       ///< whether several undos in a row walk back through the stack
    bool _undoPerformed = false;   ///< the next add() empties the stack first

private:
    friend class LmMenuAction;   // leaves the stacks when it dies
    friend class LmAction;       // so does it
    static void forget(LmMenuAction* action);
    static void forget(const class LmAction* action);
    template <class Condition> void removeWhere(Condition condition);
    LmMenuAction* newest() const;
    void push(LmMenuAction* action);
    void popNewest();
    lm::XmText labelOf(LmMenuAction* action);
    void setUndoLabel();
};

/// The program's undo manager, made at the first call and never deleted.
LM_API LmMenuUndoManager* getTheUndoManager();

/// A command as an object: a derived class says what is done, and how it is undone.
class LM_API LmAction {
public:
    /// The name is copied; the undo entry's label calls the action so.
    explicit LmAction(const char* name);
    LmAction(const LmAction&) = delete;
    LmAction& operator=(const LmAction&) = delete;
    virtual void undoit() = 0;   ///< Takes back what doit() did.
    virtual void doit() = 0;     ///< Does what the action is for.
    /// Leaves the undo stack.
    virtual ~LmAction();

    /// Does it, and puts it on the undo stack.
    void execute();

private:
    friend class LmMenuUndoManager;   // finds the stubs of an action
    static void undoitCallback(Widget w, XtPointer action, XtPointer callData) noexcept;

    lm::CString _name;
    lm::Alive _alive;
};
