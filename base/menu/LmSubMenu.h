// LmSubMenu: menus that cascade from another one.
#pragma once

#include "LmMenu.h"

/// A pane below a cascade button in a menu bar or another pane. The button is shown when the submenu is built; the pane
/// is filled in idle time, a few milliseconds at a time, or when it is first posted, or when a widget of any item is
/// asked for (LmMenuItem::baseWidget). With LmMenu::useWorkProcs(false) it is filled at once.
///
///   Widgets    XmCascadeButtonGadget (base widget) and a pulldown pane, an XmRowColumn in its menu shell, both of the
///              submenu's name
///   Resources  of the pane: "tearOffModel", by name in resource files ("TEAR_OFF_ENABLED"), unless showTearOff() decides
///   Errors     none
class LM_API LmSubMenu : public LmMenu {
public:
    /// `desc` and `sharedMenu` may be null. With a shared menu, that one's pane is shown, and own items never are.
    LmSubMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, LmSubMenu* sharedMenu = nullptr);
    /// Builds at once under `parent`, pane and all.
    LmSubMenu(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData,
              LmSubMenu* sharedMenu = nullptr);
    ~LmSubMenu() override;

    const char* className() override { return "LmSubMenu"; }
    LmMenuItemType menuType() override { return MENU_SUBMENU; }
    void build(Widget parent) override;
    Widget menuParent() override { return _pulldown; }
    void widgetDestroyed() override;
    /// The submenu whose pane is shown: the shared one, else this.
    virtual LmSubMenu* subMenu();
    /// The cascade button of `which` was pressed, and the pane is about to be posted. Nothing here; overrides prepare
    /// the pane.
    virtual void cascading(LmSubMenu* which);

    /// The pane that is shown; null until it is built.
    Widget pulldown();
    /// Lets the pane be torn off or not, whatever resources say.
    void showTearOff(bool show);
    /// Cancels the filling of the pane in idle time.
    void removeWorkProc();
    /// Whether the pane waits for idle time to be filled.
    bool isPending() const { return static_cast<bool>(_workProcId); }

    /// The work procedure that fills the pane, with the submenu as client data. True when the pane is filled.
    static Boolean buildCallback(XtPointer submenu) noexcept;

protected:
    Widget _pulldown = nullptr;       ///< our own pane
    LmSubMenu* _sharedMenu;           ///< null: our own pane is shown
    lm::WorkProcHandle _workProcId;   ///< empty unless the pane waits to be filled
    int _tearOff = -1;                ///< 1 and 0 as showTearOff() said, -1 as resources say

    /// Fills the pane now, should it still wait.
    void completeBuild();

private:
    friend class LmMenuItem;   // completes what waits
    Boolean fill(int milliseconds);
    void leaveWorkProcList();
    void createPane(Widget parent);
    void createCascade(Widget parent);
    void arrangeFilling();
    Widget paneToShow(Widget parent);
    void cascadePressed();
    void paneDestroyed();
};

/// A submenu whose toggles exclude each other. Never shares a pane.
///
///   Widgets    as LmSubMenu, the pane with "radioBehavior" true
class LM_API LmRadioSubMenu : public LmSubMenu {
public:
    /// `desc` may be null: an empty submenu.
    LmRadioSubMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// Builds at once under `parent`, pane and all.
    LmRadioSubMenu(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);

    const char* className() override { return "LmRadioSubMenu"; }
    LmMenuItemType menuType() override { return MENU_RADIO_SUBMENU; }
    void build(Widget parent) override;

private:
    void setRadioBehavior();
};
