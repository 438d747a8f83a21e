// ConsolePage.h: a console that runs a shell.
#pragma once

#include "Page.h"

#include <memory>

class LmForkIO;

class ConsolePage : public Page {
public:
    explicit ConsolePage(Widget parent);
    ~ConsolePage() override;

    const char* className() override { return "ConsolePage"; }
    /// The first time, the shell starts.
    void show() override;

private:
    void runShell();
    void flood();
    void stop();
    void clear();
    void sayEnd(LmCallbackObject* console, void* clientData, void* status);

    std::unique_ptr<LmForkIO> _console;
    Widget _status;
    bool _started = false;
};
