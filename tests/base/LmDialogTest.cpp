#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmBusyDialog.h"
#include "LmErrorDialog.h"
#include "LmFileSelectionDialog.h"
#include "LmFormat.h"
#include "LmGenericDialog.h"
#include "LmInfoDialog.h"
#include "LmInterruptDialog.h"
#include "LmPromptDialog.h"
#include "LmQuestionDialog.h"
#include "LmWarningDialog.h"
#include "LmWindow.h"

#include <Xm/DrawingA.h>
#include <Xm/MessageB.h>
#include <Xm/SelectioB.h>

#include <memory>

using namespace lmtest;
using Reason = LmDialogManager::LmDialogReason;

namespace {

struct Window1 : LmWindow {
    explicit Window1(const char* name) : LmWindow(name) {}
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmDrawingAreaWidgetClass, parent, XmNwidth, 500, XmNheight, 400, nullptr);
    }
};

/// A window on the screen, and things to do once a dialog waits.
struct DialogOnScreen : OnScreen {
    DialogOnScreen()
    {
        window->show();
        settleUntil([this] { return isViewable(window->viewWidget()); });
    }
    /// Does it as soon as a dialog waits for its answer: drawn, and the application no longer busy with showing it.
    void whenWaiting(std::function<void()> action)
    {
        _later.push_back(std::move(action));
        XtAppAddWorkProc(
            app().appContext(),
            [](XtPointer self) -> Boolean {
                if (app().busyCount() > 0)
                    return False;
                auto& later = static_cast<DialogOnScreen*>(self)->_later;
                const auto next = std::move(later.back());
                later.pop_back();
                next();
                return True;
            },
            this);
    }
    Window1* window = new Window1("window");

private:
    std::vector<std::function<void()>> _later;
};

Widget button(Widget dialog, unsigned char which) { return XmMessageBoxGetChild(dialog, which); }

std::string buttonsOf(Widget dialog)
{
    std::string shown;
    for (const auto& [which, letter] :
         {std::pair(XmDIALOG_OK_BUTTON, "o"), {XmDIALOG_CANCEL_BUTTON, "c"}, {XmDIALOG_HELP_BUTTON, "h"}}) {
        Widget child = XmIsMessageBox(dialog) ? button(dialog, static_cast<unsigned char>(which))
                                              : XmSelectionBoxGetChild(dialog, static_cast<unsigned char>(which));
        if (XtIsManaged(child))
            shown += letter;
    }
    Widget apply =
        XmIsMessageBox(dialog) ? XtNameToWidget(dialog, "Apply") : XmSelectionBoxGetChild(dialog, XmDIALOG_APPLY_BUTTON);
    return shown + (apply && XtIsManaged(apply) ? "a" : "");
}

Reason ask(LmDialogManager& dialog, const char* message = "Go on, please?")
{
    return dialog.postAndWait(message, -1, -1, -1, nullptr, nullptr, nullptr);
}

void callBack(LmDialogManager& dialog, const char* list) { XtCallCallbacks(dialog.lastPosted(), list, nullptr); }

}   // namespace

TEST_F(DialogOnScreen, AnAnsweredQuestionReturnsTheAnswer)
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    whenWaiting([&] { click(button(question.lastPosted(), XmDIALOG_OK_BUTTON)); });
    EXPECT_EQ(ask(question), LmDialogManager::REASON_OK);

    pointAt(window->viewWidget(), 250, 200);   // over the dialog: without a window manager the keys go where the pointer is
    whenWaiting([&] { key(XK_Escape); });
    EXPECT_EQ(ask(question), LmDialogManager::REASON_CANCEL);

    whenWaiting([&] { sendProtocol(XtParent(question.lastPosted()), "WM_DELETE_WINDOW"); });
    EXPECT_EQ(ask(question), LmDialogManager::REASON_CANCEL);

    whenWaiting([&] {
        EXPECT_EQ(buttonsOf(question.lastPosted()), "oa");
        click(childNamed(question.lastPosted(), "Apply"));
    });
    EXPECT_EQ(question.postAndWait("Any more?", 1, 0, 1, nullptr, window, nullptr), LmDialogManager::REASON_APPLY);
    whenWaiting([&] {
        EXPECT_EQ(buttonsOf(question.lastPosted()), "och");   // the flags are back; help was given
        question.unpost();
    });
    EXPECT_EQ(question.postAndWait("Any more?", "help", window), LmDialogManager::REASON_NONE);
    EXPECT_EQ(app().busyCount(), 0);
}

TEST_F(DialogOnScreen, MessagesTitlesAndLabelsMayBeResources)
{
    setResource("*errorDialog.fileNotFound: There is no such file.");
    setResource("*errorDialog.Shut: Dismiss it");
    LmErrorDialog& error = *getTheErrorDialog();
    EXPECT_EQ(getTheErrorDialog(), &error);
    const auto messageAfter = [&](const char* message) {
        error.post(message);
        const std::string shown = textOf(error.lastPosted(), XmNmessageString);
        error.unpost();
        return shown;
    };
    EXPECT_EQ(messageAfter("fileNotFound"), "There is no such file.");
    EXPECT_EQ(messageAfter("unknownWord"), "unknownWord");
    EXPECT_EQ(messageAfter("two words\nand a line"), "two words\nand a line");
    const std::string periods24 = "fileNotFound" + std::string(24, '.');
    EXPECT_EQ(messageAfter((periods24 + ".").c_str()), periods24 + ".");
    EXPECT_EQ(messageAfter(""), "");
    window->hide();   // the dialog goes over the application's shell, which is placed while the message waits
    EXPECT_EQ(messageAfter(LmFormat("%d files", 3)), "3 files");
    EXPECT_EQ(messageAfter(LmFormat("%d files", 4)), "4 files");
    window->show();
    settleUntil([&] { return window->iconState() == LmSimpleWindow::OPEN; });

    error.setTitle("Trouble");
    error.setButtonLabels(nullptr, "Shut", nullptr);
    Widget dialog = error.post("one two", nullptr, [](Widget, XtPointer, XtPointer) {});
    EXPECT_EQ(buttonsOf(dialog), "oc");
    EXPECT_EQ(textOf(dialog, XmNcancelLabelString), "Dismiss it");
    EXPECT_EQ(textOf(dialog, XmNdialogTitle), "Trouble");
    error.unpost();
    error.post("three four");
    EXPECT_EQ(buttonsOf(dialog), "o");
    EXPECT_EQ(textOf(dialog, XmNdialogTitle), "lmtest");
    error.setShowCancel(true);
    error.post("five six");
    EXPECT_EQ(textOf(error.lastPosted(), XmNcancelLabelString), "Cancel");
    error.setShowCancel(false);
    error.unpostAll();
}

TEST_F(DialogOnScreen, DialogsAreCachedByParentAndExtraOnesDie)
{
    LmInfoDialog& info = *getTheInfoDialog();
    auto* other = new Window1("other");
    other->show();
    settle();
    const auto postOver = [&](Window1* w) { return info.post("some text", nullptr, nullptr, nullptr, nullptr, nullptr, w); };
    Widget first = postOver(window), second = postOver(other), extra = postOver(window);
    EXPECT_NE(first, second);
    EXPECT_NE(first, extra);
    EXPECT_EQ(info.getCacheInfo(extra), nullptr);
    EXPECT_EQ(info.lastPosted(), extra);
    info.unpost(extra);
    info.unpost(first);
    EXPECT_EQ(postOver(window), first);
    EXPECT_EQ(info.lastPosted(), first);

    delete other;   // takes its dialog along; the others keep theirs
    settle();
    info.unpostAll();
    EXPECT_EQ(postOver(window), first);
    info.unpostAll();

    info.setAllowMultipleDialogs(false);
    EXPECT_EQ(info.post("some text", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, app().baseWidget()), first);
    info.unpostAll();
}

TEST_F(DialogOnScreen, ADialogGoesOverItsParentAndStaysInsideIt)
{
    XtVaSetValues(window->baseWidget(), XmNx, 150, XmNy, 120, nullptr);
    settle();
    getTheWarningDialog()->setReusePostedDialog(true);
    Widget dialog = getTheWarningDialog()->post("mind the gap", nullptr, nullptr, nullptr, nullptr, nullptr, window);
    settle();
    const auto placeOf = [](Widget w) {
        int x = 0, y = 0;
        ::Window child = None;
        XTranslateCoordinates(app().display(), XtWindow(w), DefaultRootWindow(app().display()), 0, 0, &x, &y, &child);
        return std::pair(x, y);
    };
    Dimension width = 0, height = 0;
    XtVaGetValues(dialog, XmNwidth, &width, XmNheight, &height, nullptr);
    EXPECT_EQ(placeOf(dialog), std::pair(150 + (500 - width) / 2, 120 + (400 - height) / 2));

    XtVaSetValues(dialog, XmNx, 160, XmNy, 130, nullptr);
    settle();
    getTheWarningDialog()->post("mind it still", nullptr, nullptr, nullptr, nullptr, nullptr, window);
    EXPECT_EQ(placeOf(dialog), std::pair(160, 130));   // wholly inside: stays
    XtVaSetValues(dialog, XmNx, 600, XmNy, 130, nullptr);
    settle();
    getTheWarningDialog()->unpost();
    getTheWarningDialog()->post("mind it again", nullptr, nullptr, nullptr, nullptr, nullptr, window);
    settle();
    XtVaGetValues(dialog, XmNwidth, &width, nullptr);
    EXPECT_EQ(placeOf(dialog).first, 150 + (500 - width) / 2);
}

TEST_F(DialogOnScreen, NestedWaitsGetTheirOwnAnswers)
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    Reason inner = LmDialogManager::REASON_NONE;
    whenWaiting([&] {
        Widget outerDialog = question.lastPosted();
        whenWaiting([&, outerDialog] {
            question.ok(outerDialog, nullptr);   // the outer one first
            callBack(question, XmNcancelCallback);
        });
        inner = ask(question, "The inner one?");
    });
    EXPECT_EQ(ask(question), LmDialogManager::REASON_OK);
    EXPECT_EQ(inner, LmDialogManager::REASON_CANCEL);
}

TEST_F(DialogOnScreen, AWindowClosedUnderItsWaitingDialogsEndsTheWaits)
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    for (int depth = 1; depth <= 5; ++depth) {
        auto* closing = new Window1("closing");
        closing->show();
        settle();
        std::vector<Reason> answers;
        std::function<void(int)> nest = [&](int left) {
            whenWaiting([&, left] { left > 1 ? nest(left - 1) : delete closing; });
            answers.push_back(question.postAndWait("Still there?", "h", closing));
        };
        nest(depth);
        EXPECT_EQ(answers, std::vector(static_cast<size_t>(depth), LmDialogManager::REASON_NONE));
        EXPECT_EQ(app().busyCount(), 0);
    }
    whenWaiting([&] { callBack(question, XmNokCallback); });
    EXPECT_EQ(ask(question), LmDialogManager::REASON_OK);
}

TEST_F(DialogOnScreen, AManagerMayDieWhileItWaitsOrFromItsCallbacks)
{
    auto question = std::make_unique<LmQuestionDialog>("mine");
    whenWaiting([&] { question.reset(); });
    LmDialogManager* waiting = question.get();
    EXPECT_EQ(ask(*waiting), LmDialogManager::REASON_NONE);

    struct Nothing : LmDialogManager {
        Nothing() : LmDialogManager("nothing") {}
        Widget createDialog(Widget) override { return nullptr; }
    } nothing;
    EXPECT_EQ(nothing.post("no dialog"), nullptr);
    EXPECT_EQ(ask(nothing), LmDialogManager::REASON_NONE);
    EXPECT_EQ(app().busyCount(), 0);
}

TEST_F(DialogOnScreen, APromptReturnsWhatWasTyped)
{
    LmPromptDialog& prompt = *getThePromptDialog();
    EXPECT_EQ(prompt.text(), nullptr);
    pointAt(window->viewWidget(), 250, 200);
    whenWaiting([&] {
        Widget field = XmSelectionBoxGetChild(prompt.lastPosted(), XmDIALOG_TEXT);
        click(field);
        type("Hello World\n");
    });
    EXPECT_EQ(ask(prompt, "Your name, please"), LmDialogManager::REASON_OK);
    EXPECT_STREQ(prompt.text(), "Hello World");
    prompt.post("Again, please");
    EXPECT_EQ(textOf(prompt.lastPosted(), XmNtextString), "");
    EXPECT_EQ(textOf(prompt.lastPosted(), XmNselectionLabelString), "Again, please");
    prompt.unpost();
}

TEST_F(DialogOnScreen, AFileIsChosenAndCancelled)
{
    LmFileSelectionDialog& files = *getTheFileSelectionDialog();
    files.setDirectory("");
    files.setDirectory(LUMORA_SOURCE_DIR "/data/schemes");
    files.setFilterPattern("Lumora*");
    Widget dialog = files.post("choose one");
    EXPECT_EQ(textOf(dialog, XmNdirectory), LUMORA_SOURCE_DIR "/data/schemes/");
    EXPECT_EQ(textOf(dialog, XmNpattern), "Lumora*");
    EXPECT_EQ(buttonsOf(dialog), "oca");
    EXPECT_EQ(textOf(dialog, XmNapplyLabelString), "Filter");
    files.setSelection(LUMORA_SOURCE_DIR "/data/schemes/LumoraDark");
    click(XmSelectionBoxGetChild(dialog, XmDIALOG_APPLY_BUTTON));
    EXPECT_TRUE(XtIsManaged(dialog));
    files.setSelection(LUMORA_SOURCE_DIR "/data/schemes/LumoraDark");
    click(XmSelectionBoxGetChild(dialog, XmDIALOG_OK_BUTTON));
    EXPECT_FALSE(XtIsManaged(dialog));
    EXPECT_STREQ(files.fileName(), LUMORA_SOURCE_DIR "/data/schemes/LumoraDark");
    files.post("choose another");
    click(XmSelectionBoxGetChild(dialog, XmDIALOG_CANCEL_BUTTON));
    EXPECT_EQ(files.fileName(), nullptr);
}

TEST_F(DialogOnScreen, AGenericDialogTakesItsLabelsFromItsParent)
{
    setResource("*window.mine.okLabelString: Do it");
    struct Mine : LmGenericDialog {
        Mine() : LmGenericDialog("mine") {}
    } mine;
    Widget dialog = mine.createDialog(window->baseWidget());
    EXPECT_EQ(textOf(dialog, XmNokLabelString), "Do it");
    EXPECT_EQ(textOf(dialog, XmNcancelLabelString), "Cancel");
    XtDestroyWidget(dialog);
}

TEST_F(DialogOnScreen, TheBusyDialogFollowsTheBusyState)
{
    LmBusyDialog& busy = *getTheBusyDialog();
    app().busy("counting words", window);
    Widget dialog = busy.lastPosted();
    EXPECT_EQ(buttonsOf(dialog), "");
    EXPECT_EQ(textOf(dialog, XmNmessageString), "counting words");
    EXPECT_EQ(app().busyCount(), 1);
    app().busy("and more words");
    app().progressing("nearly all words");
    EXPECT_EQ(busy.lastPosted(), dialog);
    EXPECT_EQ(textOf(dialog, XmNmessageString), "nearly all words");
    app().notBusy();
    EXPECT_TRUE(XtIsManaged(dialog));
    app().notBusy();
    EXPECT_FALSE(XtIsManaged(dialog));

    LmInterruptDialog& interrupt = *getTheInterruptDialog();
    Heard heard(interrupt, LmInterruptDialog::interruptedCallback);
    app().setBusyDialog(&interrupt);
    EXPECT_EQ(getTheBusyDialog(), &interrupt);
    EXPECT_EQ(getTheDefaultBusyDialog(), &busy);
    app().busy("long work", window);
    EXPECT_FALSE(interrupt.wasInterrupted());
    settle();
    click(button(interrupt.lastPosted(), XmDIALOG_CANCEL_BUTTON));
    EXPECT_TRUE(interrupt.wasInterrupted());
    EXPECT_TRUE(interrupt.wasInterrupted());
    EXPECT_EQ(heard.values.size(), 2U);
    app().notBusy();
    app().setBusyDialog(nullptr);
    EXPECT_EQ(getTheBusyDialog(), &busy);
}

TEST(FatalDialog, EndsTheProgram)
{
    EXPECT_EQ(exitStatusOf([] {
                  (new Window1("window"))->show();
                  getTheFatalErrorDialog()->post("it is over");
                  callBack(*getTheFatalErrorDialog(), XmNokCallback);
              }),
              1);
}

TEST_F(DialogOnScreen, UnderAWindowManagerDialogsBelongToTheirWindow)
{
    startWindowManager();
    auto* managed = new Window1("managed");
    managed->show();
    settleUntil([&] { return isViewable(managed->viewWidget()); });
    LmQuestionDialog& question = *getTheQuestionDialog();
    whenWaiting([&] {
        Widget dialog = question.lastPosted();
        ::Window owner = None;
        EXPECT_TRUE(XGetTransientForHint(app().display(), XtWindow(XtParent(dialog)), &owner));
        EXPECT_EQ(owner, XtWindow(managed->baseWidget()));
        settleUntil([&] { return isViewable(dialog); });
        click(button(dialog, XmDIALOG_OK_BUTTON));
    });
    EXPECT_EQ(question.postAndWait("All right?", "h", managed), LmDialogManager::REASON_OK);
}
