// LmWindow: a top-level window with a menu bar.
#pragma once

#include "LmSimpleWindow.h"

class LmMenuBar;

/// A simple window that may carry a menu bar.
class LM_API LmWindow : public LmSimpleWindow {
public:
    /// As LmSimpleWindow; without a menu bar.
    LmWindow(const char* name, ArgList args = nullptr, Cardinal argCount = 0) : LmSimpleWindow(name, args, argCount) {}

    const char* className() override { return "LmWindow"; }
    void show() override;
    Widget setUpInterface(Widget parent) override;
    /// The menu bar; null while there is none.
    virtual LmMenuBar* menu() { return _menuBar; }

private:
    LmMenuBar* _menuBar = nullptr;
};

/// A window of a document: an LmWindow under a class name of its own.
class LM_API LmDoc : public LmWindow {
public:
    explicit LmDoc(const char* name) : LmWindow(name) {}

    const char* className() override { return "LmDoc"; }
};
