// LmMenuBar: the menu bar of a window.
#pragma once

#include "LmMenu.h"

class LmHelpPane;
class LmWindow;

/// A menu bar, usually an LmWindow's (LmWindow::setMenuBar), whose items are submenus.
///
///   Widgets    a menu bar, an XmRowColumn of the bar's name, "menuBar" by default; "helpMenu", the help pane
///   Errors     none
class LM_API LmMenuBar : public LmMenu {
public:
    /// With `showHelpPane` the help pane is added at the end when the bar is built.
    explicit LmMenuBar(bool showHelpPane);
    LmMenuBar(const char* name, bool showHelpPane);                                      ///< The same under that name.
    LmMenuBar(const LmMenuDesc* desc, XtPointer defaultClientData, bool showHelpPane);   ///< Filled from a table.
    /// Filled from a table, under that name.
    LmMenuBar(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, bool showHelpPane);
    ~LmMenuBar() override;

    const char* className() override { return "LmMenuBar"; }
    LmMenuItemType menuType() override { return MENU_BAR; }
    void build(Widget parent) override;
    Widget menuParent() override { return _baseWidget; }
    /// Appends the help pane, "helpMenu".
    virtual void addHelpPane();

    /// The menu bar widget; null until it is built.
    Widget baseWidget() const { return _baseWidget; }
    /// The help pane; null until it is added.
    LmHelpPane* helpPane() const { return _helpPane; }
    /// The window that shows the bar; null while none does.
    LmWindow* ownerWindow() const { return _ownerWindow; }

protected:
    friend class LmWindow;              // becomes the owner
    LmHelpPane* _helpPane = nullptr;    ///< one of the items
    LmWindow* _ownerWindow = nullptr;   ///< what ownerWindow() answers
    bool _showHelpPane;                 ///< whether the help pane is added when the bar is built
};
