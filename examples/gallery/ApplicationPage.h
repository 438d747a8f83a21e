// ApplicationPage.h: windows, their titles, their end, and the application's busy state.
#pragma once

#include "Page.h"

#include <Lm/LmSimpleWindow.h>
#include <Lm/support/handles.h>

class ApplicationPage : public Page {
public:
    ApplicationPage(Widget parent, LmSimpleWindow* window);

    const char* className() override { return "ApplicationPage"; }
    /// Whether the user lets the window close.
    bool mayClose() const;
    /// Opens a second window.
    void openAnother();

private:
    void setTitle();
    void iconify();
    void close();
    void quit();
    void beginWork();
    void workOn();

    LmSimpleWindow* _window;
    Widget _title, _refuse, _progress;
    lm::TimerHandle _step;
    int _done = 0;   // per cent of the work
};
