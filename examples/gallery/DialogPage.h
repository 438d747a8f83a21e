// DialogPage.h: the standard dialogs, their answers, and dialogs of busy work.
#pragma once

#include "Page.h"

#include <Lm/LmSimpleWindow.h>

#include <string>

class DialogPage : public Page {
public:
    DialogPage(Widget parent, LmSimpleWindow* window);

    const char* className() override { return "DialogPage"; }

private:
    void inform();
    void warn();
    void report();
    void ask();
    void prompt();
    void chooseFile();
    void workBusily();
    void workInterruptibly();
    void say(const std::string& text);

    LmSimpleWindow* _window;
    Widget _answer;
};
