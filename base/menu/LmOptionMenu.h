// LmOptionMenu: a button that shows one of several entries.
#pragma once

#include "LmMenu.h"

/// A labelled button that shows the chosen entry; pressed, it offers all of them.
///
///   Widgets    an option menu (base widget) and a pulldown pane, both XmRowColumn and of the menu's name, "optionMenu" by
///              default
///   Errors     a selection that is not in the menu is ignored
class LM_API LmOptionMenu : public LmMenu {
public:
    /// Filled from a table (null: empty), under the default name, and built later.
    LmOptionMenu(const LmMenuDesc* desc, XtPointer defaultClientData);
    LmOptionMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);   ///< The same under that name.
    /// These build at once under `parent`.
    LmOptionMenu(Widget parent, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// The same under that name.
    LmOptionMenu(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    ~LmOptionMenu() override;

    const char* className() override { return "LmOptionMenu"; }
    LmMenuItemType menuType() override { return MENU_OPTION; }
    void build(Widget parent) override;
    Widget menuParent() override { return _pulldown; }
    void widgetDestroyed() override;
    /// Labels the button, not the entry it shows.
    void setLabel(const char* text) override;

    /// Chooses an entry without running its callback; before the menu is built, the one to choose then.
    void set(LmMenuItem* item);
    void set(const char* name);   ///< The same for the first entry of that name.
    void set(int index);          ///< The same for the entry at that index of this menu.
    /// The chosen entry, in this menu or its submenus. Before the menu is built the one that was set, else the first.
    LmMenuItem* getItem();
    /// The chosen entry's index in this menu; 0 when it is not in it.
    int getIndex();
    /// Gives every built entry that width, in pixels.
    void forceWidth(int width);

protected:
    Widget _pulldown = nullptr;                ///< the pane with the entries; null until it is built
    LmMenuItem* _pendingSelection = nullptr;   ///< to choose once built; may be stale, so ask findParent() first

private:
    void createPane(Widget parent);
    void paneDestroyed();
};
