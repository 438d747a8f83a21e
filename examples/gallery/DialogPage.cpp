#include "DialogPage.h"

#include <Lm/LmApp.h>
#include <Lm/LmErrorDialog.h>
#include <Lm/LmFileSelectionDialog.h>
#include <Lm/LmFormat.h>
#include <Lm/LmInfoDialog.h>
#include <Lm/LmInterruptDialog.h>
#include <Lm/LmPromptDialog.h>
#include <Lm/LmQuestionDialog.h>
#include <Lm/LmWarningDialog.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Xm.h>

#include <chrono>
#include <thread>

DialogPage::DialogPage(Widget parent, LmSimpleWindow* window) : Page("dialogPage", parent), _window(window)
{
    Widget column = row::down("column", body());
    Widget messages = row::across("messageRow", column);
    lm::on<&DialogPage::inform>(row::button("inform", messages), XmNactivateCallback, this);
    lm::on<&DialogPage::warn>(row::button("warn", messages), XmNactivateCallback, this);
    lm::on<&DialogPage::report>(row::button("report", messages), XmNactivateCallback, this);

    Widget questions = row::across("questionRow", column);
    lm::on<&DialogPage::ask>(row::button("ask", questions), XmNactivateCallback, this);
    lm::on<&DialogPage::prompt>(row::button("prompt", questions), XmNactivateCallback, this);
    lm::on<&DialogPage::chooseFile>(row::button("chooseFile", questions), XmNactivateCallback, this);

    Widget works = row::across("busyRow", column);
    lm::on<&DialogPage::workBusily>(row::button("workBusily", works), XmNactivateCallback, this);
    lm::on<&DialogPage::workInterruptibly>(row::button("workInterruptibly", works), XmNactivateCallback, this);
    _answer = row::label("answer", column);
}

/// Shows what the user answered.
void DialogPage::say(const std::string& text)
{
    XtVaSetValues(_answer, XmNlabelString, lm::compound(text.c_str()).get(), nullptr);
}

static LmDialogManager::LmDialogReason askOver(LmDialogManager& dialog, const char* message, LmSimpleWindow* window)
{
    return dialog.postAndWait(message, -1, -1, -1, nullptr, window, nullptr);
}

void DialogPage::inform()
{
    getTheInfoDialog()->post("The tide turns at 14:20.", nullptr, nullptr, nullptr, nullptr, nullptr, _window);
}

void DialogPage::warn()
{
    getTheWarningDialog()->post("The disk is nearly full.\nOnly 3 % are left.", nullptr, nullptr, nullptr, nullptr, nullptr,
                                _window);
}

void DialogPage::report()
{
    getTheErrorDialog()->post("fileNotFound", nullptr, nullptr, nullptr, nullptr, nullptr, _window);   // a resource's name
}

void DialogPage::ask()
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    question.setButtonLabels("Save", "Keep open", "Discard");
    switch (question.postAndWait("Save the changes to “Grüße”?", 1, 1, 1, nullptr, _window, nullptr)) {
    case LmDialogManager::REASON_OK:
        return say("Saved.");
    case LmDialogManager::REASON_APPLY:
        return say("Discarded.");
    default:
        return say("Still open.");
    }
}

void DialogPage::prompt()
{
    if (askOver(*getThePromptDialog(), "What is your name?", _window) == LmDialogManager::REASON_OK)
        say(std::string("Hello, ") + getThePromptDialog()->text() + "!");
}

void DialogPage::chooseFile()
{
    if (askOver(*getTheFileSelectionDialog(), nullptr, _window) == LmDialogManager::REASON_OK)
        say(getTheFileSelectionDialog()->fileName());
}

void DialogPage::workBusily()
{
    const LmBusyScope busy("Counting the sheep", _window);
    for (int sheep = 1; sheep <= 30; ++sheep) {
        std::this_thread::sleep_for(std::chrono::milliseconds(80));   // the work
        theApplication->progressing(LmFormat("Counting the sheep: %d", sheep));
    }
    say("All sheep are there.");
}

void DialogPage::workInterruptibly()
{
    theApplication->setBusyDialog(getTheInterruptDialog());
    theApplication->busy("Looking for the needle", _window);
    int straws = 0;
    while (straws < 100 && !getTheInterruptDialog()->wasInterrupted()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));   // the work
        ++straws;
        theApplication->progressing();
    }
    theApplication->notBusy();
    theApplication->setBusyDialog(nullptr);
    say(straws < 100 ? LmFormat("You stopped after %d straws.", straws) : "No needle.");
}
