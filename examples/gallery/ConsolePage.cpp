#include "ConsolePage.h"

#include <Lm/LmForkIO.h>
#include <Lm/LmFormat.h>
#include <Lm/support/calldata.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Xm.h>

#include <sys/wait.h>

ConsolePage::ConsolePage(Widget parent) : Page("consolePage", parent)
{
    Widget buttons = row::across("consoleButtons", body());
    lm::on<&ConsolePage::runShell>(row::button("runShell", buttons), XmNactivateCallback, this);
    lm::on<&ConsolePage::flood>(row::button("flood", buttons), XmNactivateCallback, this);
    lm::on<&ConsolePage::stop>(row::button("stop", buttons), XmNactivateCallback, this);
    lm::on<&ConsolePage::clear>(row::button("clearConsole", buttons), XmNactivateCallback, this);
    _status = row::label("consoleStatus", body());
    XtVaSetValues(_status, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);

    _console = std::make_unique<LmForkIO>("console", body(), "$ ");
    XtVaSetValues(_console->baseWidget(), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, buttons, XmNtopOffset, 10,
                  XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, _status, XmNbottomOffset, 6, XmNleftAttachment,
                  XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _console->addCallback(LmForkIO::exitCallback, this, &ConsolePage::sayEnd, nullptr);
    _console->show();
}

ConsolePage::~ConsolePage() = default;

void ConsolePage::show()
{
    Page::show();
    if (_started)
        return;
    _started = true;
    runShell();
    _console->inputString("echo \"Grüße from $(uname -s)\"; ls -x -w 72 /\n");
}

void ConsolePage::runShell()
{
    XtVaSetValues(_status, XmNlabelString, lm::compound("").get(), nullptr);
    _console->execCommand("sh");
}

void ConsolePage::flood()
{
    XtVaSetValues(_status, XmNlabelString, lm::compound("").get(), nullptr);
    _console->execCommand("seq -f 'Line number %.0f' 10000000");
}

void ConsolePage::stop() { _console->killProcess(); }

void ConsolePage::clear()
{
    _console->clearHistory();
    if (_console->running())
        _console->newInput();
}

/// Shows how the command ended.
void ConsolePage::sayEnd(LmCallbackObject*, void*, void* callData)
{
    const int status = lm::asInt(callData);
    const char* text = WIFSIGNALED(status) ? LmFormat("The command was ended by signal %d.", WTERMSIG(status))
                                           : LmFormat("The command ended with status %d.", WEXITSTATUS(status));
    XtVaSetValues(_status, XmNlabelString, lm::compound(text).get(), nullptr);
}
