// LmWindow: a top-level window with a menu bar.
#pragma once

#include "LmSimpleWindow.h"

class LmMenuBar;
class LmRadioSubMenu;
class LmSubMenu;
struct LmMenuDesc;

/// A simple window that may carry a menu bar: one of the program's, one described by a table, or one that grows pane by
/// pane. The bar is built when the window is first shown, or at once when it is set later.
///
///   Widgets    as LmSimpleWindow; "menuBar", unless the program brings a bar of its own
class LM_API LmWindow : public LmSimpleWindow {
public:
    /// As LmSimpleWindow; without a menu bar.
    LmWindow(const char* name, ArgList args = nullptr, Cardinal argCount = 0) : LmSimpleWindow(name, args, argCount) {}
    /// Deletes the menu bar.
    ~LmWindow() override;

    const char* className() override { return "LmWindow"; }
    void show() override;
    Widget setUpInterface(Widget parent) override;
    /// The menu bar; null while there is none.
    virtual LmMenuBar* menu() { return _menuBar; }

    /// Gives the window a menu bar, which it owns from then on; one that it had is not deleted. Null: forgets the bar.
    void setMenuBar(LmMenuBar* bar);
    /// A bar of the table's panes and the help pane; the window is the default client data.
    void setMenuBar(LmMenuDesc* desc);
    /// Appends a pane to the menu bar, which is made (with the help pane) when there is none.
    LmSubMenu* addMenuPane(const char* name);
    /// The same with a pane that a table fills; the window is the default client data.
    LmSubMenu* addMenuPane(const char* name, LmMenuDesc* desc);
    LmRadioSubMenu* addRadioMenuPane(const char* name);   ///< Appends a pane whose toggles exclude each other.
    /// The same with a pane that a table fills; the window is the default client data.
    LmRadioSubMenu* addRadioMenuPane(const char* name, LmMenuDesc* desc);

private:
    LmMenuBar* menuBarForPanes();
    void attachMenuBar();

    LmMenuBar* _menuBar = nullptr;
};

/// A window of a document: an LmWindow under a class name of its own.
class LM_API LmDoc : public LmWindow {
public:
    explicit LmDoc(const char* name) : LmWindow(name) {}   ///< A document window of that name, without a menu bar.

    const char* className() override { return "LmDoc"; }
};
