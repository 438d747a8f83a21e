#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmBusyDialog.h"
#include "LmMenuBar.h"
#include "LmMenuUndoManager.h"
#include "LmQuestionDialog.h"
#include "LmWindow.h"

#include <Xm/DrawingA.h>

using namespace lmtest;

namespace {

/// What happened, in order, as words.
std::string story;

void addWord(const std::string& word) { story += (story.empty() ? "" : " ") + word; }

struct Editor : LmWindow {
    Editor() : LmWindow("editor") {}
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmDrawingAreaWidgetClass, parent, XmNwidth, 500, XmNheight, 400, nullptr);
    }
};

/// Presses OK once the question waits.
Boolean pressOk(XtPointer) noexcept
{
    Widget question = getTheQuestionDialog()->lastPosted();
    if (!question || !isViewable(XtNameToWidget(question, "OK")))
        return False;
    addWord(isViewable(getTheBusyDialog()->lastPosted()) ? "busy" : "idle");
    click(XtNameToWidget(question, "OK"));
    return True;
}

void cutLines(Widget, XtPointer window, XtPointer) noexcept
{
    auto* editor = static_cast<Editor*>(window);
    addWord(editor->className());
    theApplication->busy("Looking for the lines", editor);
    addWord(editor->isBusy() ? "blocked" : "open");
    XtAppAddWorkProc(app().appContext(), pressOk, nullptr);
    const auto answer = getTheQuestionDialog()->postAndWait("Cut them all?", -1, -1, -1, nullptr, editor, nullptr);
    addWord(answer == LmDialogManager::REASON_OK ? "ok" : "no");
    theApplication->notBusy();
    addWord(editor->isBusy() ? "blocked" : "open");
}

void pasteLines(Widget, XtPointer, XtPointer) noexcept { addWord("pasted"); }

}   // namespace

TEST_F(OnScreen, AChosenMenuEntryWorksBusilyAsksAndCanBeUndone)
{
    static LmMenuDesc editTable[] = {{MENU_ACTION, "cutLines", cutLines, nullptr, nullptr, pasteLines}, {MENU_END}};
    static LmMenuDesc barTable[] = {{MENU_SUBMENU, "edit", nullptr, editTable}, {MENU_END}};
    auto* editor = new Editor;
    editor->setMenuBar(barTable);
    LmMenuItem* edit = editor->menu()->findNamedItem("edit", false, false);
    static_cast<LmMenu*>(edit)->add(getTheUndoManager());
    editor->show();
    settleUntil([&] { return isViewable(edit->baseWidget()); });

    click(edit->baseWidget());
    Widget cut = editor->menu()->findNamedItem("cutLines", false, true)->baseWidget();
    settleUntil([&] { return isViewable(cut); });
    click(cut);
    EXPECT_EQ(story, "LmWindow blocked busy ok open");
    EXPECT_EQ(textOf(getTheUndoManager()->baseWidget()), "Undo: cutLines");

    click(edit->baseWidget());
    settleUntil([&] { return isViewable(getTheUndoManager()->baseWidget()); });
    click(getTheUndoManager()->baseWidget());
    EXPECT_EQ(story, "LmWindow blocked busy ok open pasted");
}
