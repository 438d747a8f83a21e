// LmMenu: the base of every menu, and the tables that describe menus.
#pragma once

#include "LmMenuItem.h"

class LmMenuAction;
class LmMenuActionWidget;
class LmMenuConfirmFirstAction;
class LmMenuLabel;
class LmMenuSeparator;
class LmMenuToggle;
class LmRadioSubMenu;
class LmSubMenu;

/// One entry of a menu table. A table is an array that ends with an entry of kind MENU_END; names and tables are not copied
/// and serve only while the menu is constructed. Of an entry counts:
///
///     MENU_ACTION, MENU_ACTION_WIDGET             name, callback, clientData, undoCallback (null: cannot be undone)
///     MENU_TOGGLE, MENU_CONFIRM_FIRST_ACTION      name, callback, clientData
///     MENU_SUBMENU, MENU_RADIO_SUBMENU            name, submenu
///     MENU_LABEL                                  name
///     MENU_SEPARATOR                              nothing
///
/// An entry of another kind is skipped. A null clientData stands for the default one of the whole table, which submenus
/// inherit.
struct LmMenuDesc {
    LmMenuItemType menuType;                 ///< what the entry is; MENU_END ends the table
    const char* name = nullptr;              ///< the item's name
    XtCallbackProc callback = nullptr;       ///< runs when the entry is chosen; may be null
    LmMenuDesc* submenu = nullptr;           ///< the table of a submenu
    XtPointer clientData = nullptr;          ///< for both callbacks; null: the table's default
    XtCallbackProc undoCallback = nullptr;   ///< takes the action back; null: cannot be undone
};

/// An ordered list of items, which it owns, filled one by one or from a table. Menus are items, so menus nest.
///
/// Operations that take an item's name search the whole tree, depth first in list order, case-sensitively. A position of
/// -1, or one beyond the end, is the end. A menu that is built gets new items at its end, and shows them at once.
///
///   Widgets    the derived class's
///   Errors     a table nested in itself stops at depth 64, with a message on standard error
class LM_API LmMenu : public LmMenuItem {
public:
    /// Named "menu".
    LmMenu();
    explicit LmMenu(const char* name);   ///< An empty menu.
    /// Filled from a table (null: empty).
    LmMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    LmMenu(const LmMenuDesc* desc, XtPointer defaultClientData);   ///< The same under the name "menu".
    /// Deletes the items, from the last to the first.
    ~LmMenu() override;

    const char* className() override { return "LmMenu"; }
    void widgetDestroyed() override;
    bool isContainer() override { return true; }
    LmMenuItemType menuType() override = 0;   ///< A derived class answers its kind.
    /// Builds every item under `parent`.
    void build(Widget parent) override;
    /// The widget under which the items are built; null while there is none.
    virtual Widget menuParent() = 0;

    /// Adds an action without undo; the menu owns what these functions make.
    LmMenuAction* addAction(const char* name, XtCallbackProc callback, XtPointer clientData, int position = -1);
    /// Adds an action; `undoCallback` null: without undo.
    LmMenuAction* addAction(const char* name, XtCallbackProc callback, XtCallbackProc undoCallback, XtPointer clientData,
                            int position);
    /// Adds an action whose widget is no gadget.
    LmMenuActionWidget* addActionWidget(const char* name, XtCallbackProc callback, XtPointer clientData, int position = -1);
    /// The same with an undo callback; null: none.
    LmMenuActionWidget* addActionWidget(const char* name, XtCallbackProc callback, XtCallbackProc undoCallback,
                                        XtPointer clientData, int position);
    /// Adds an action that asks before it runs.
    LmMenuConfirmFirstAction* addConfirmFirstAction(const char* name, XtCallbackProc callback, XtPointer clientData,
                                                    int position = -1);
    /// A `state` of -1 leaves the toggle's state open.
    LmMenuToggle* addToggle(const char* name, XtCallbackProc callback, XtPointer clientData, int state, int position = -1);
    LmMenuSeparator* addSeparator(int position = -1);             ///< Adds a separating line.
    LmMenuLabel* addLabel(const char* name, int position = -1);   ///< Adds a text that cannot be chosen.
    LmSubMenu* addSubmenu(const char* name, int position = -1);   ///< Adds an empty submenu.
    /// Adds a submenu that a table fills.
    LmSubMenu* addSubmenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, int position = -1);
    /// Enters a submenu of the caller's, and owns it from then on.
    LmSubMenu* addSubmenu(LmSubMenu* submenu, int position = -1);
    /// Adds an empty submenu whose toggles exclude each other.
    LmRadioSubMenu* addRadioSubmenu(const char* name, int position = -1);
    /// Adds one that a table fills, at the end.
    LmRadioSubMenu* addRadioSubmenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// Enters a radio submenu of the caller's, and owns it from then on.
    LmRadioSubMenu* addRadioSubmenu(LmRadioSubMenu* submenu, int position = -1);
    /// Enters an item of the caller's, and owns it from then on.
    void add(LmMenuItem* item, int position = -1);

    /// The item at an index; null outside 0..numItems()-1.
    LmMenuItem* operator[](int index) const;
    int numItems() const { return _nItems; }   ///< The number of items in this menu's own list.
    /// The first item of that name; null when there is none. `recursive` false: only in this menu's own list.
    LmMenuItem* findNamedItem(const char* name, bool caseless, bool recursive);
    /// The menu of this tree that holds the item, or null. The item is not read: the pointer may be stale.
    LmMenu* findParent(LmMenuItem* item);
    /// Takes the item out and gives it to the caller; null when there is none.
    LmMenuItem* removeItem(const char* name);
    /// Puts another item in the place of one, which is given to the caller; null when there is none, and nothing done.
    LmMenuItem* replace(const char* name, LmMenuItem* newItem);
    /// activate() or deactivate() of the item; returns it, or null.
    LmMenuItem* activateItem(const char* name);
    LmMenuItem* deactivateItem(const char* name);   ///< Makes the item insensitive; returns it, or null.
    /// The place of an item among its siblings: as its widget has it, else as it was set, else its index here, else -1.
    int getItemPosition(LmMenuItem* item);
    int getItemPosition(Widget w);           ///< The place of the item with that widget.
    int getItemPosition(const char* name);   ///< The place of the first item of that name.

    /// Whether submenus fill their panes in idle time (true, initially), or at once when they are built.
    static void useWorkProcs(bool use) { _useWorkProcs = use; }

protected:
    /// Adds the entries of a table.
    void handleMenuDescriptor(const LmMenuDesc* desc, XtPointer defaultClientData);
    void addMenuEntry(LmMenuItem* item, int position);   ///< Enters an item at a position of the list; -1: at the end.
    /// Takes an item out of the list; returns the index it had, -1 when it was not there.
    int removeMenuEntry(LmMenuItem* item);
    /// Builds the items that are not built yet, in list order, for `milliseconds` and then one more (negative: all).
    /// False when some are left.
    bool buildItems(Widget parent, int milliseconds = -1);
    int indexOf(const LmMenuItem* item) const;   ///< The item's index in this menu's own list; -1 when it is not in it.
    /// The first item of the tree with that widget, or null.
    LmMenuItem* findItemOf(Widget w);
    /// Destroys the items' widgets: the menu is unbuilt.
    void dropItems();
    /// Deletes the items, from the last to the first.
    void deleteItems();

    static bool _useWorkProcs;   ///< what useWorkProcs() set

    LmMenuItem** _contents;   ///< the items in order; owned, XtMalloc
    int _nItems = 0;          ///< how many items there are
    int _maxItems;            ///< room in `_contents`

private:
    friend class LmMenuItem;   // leaves the list when it dies
    /// Before its widgets are destroyed: nothing of the menu may be posted or torn off.
    void endUse();
    void addEntry(const LmMenuDesc& entry, XtPointer clientData, XtPointer defaultClientData);

    int _firstUnbuilt = 0;   // the items before this one are built
};
