#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmBusyDialog.h"
#include "LmErrorDialog.h"
#include "LmFileSelectionDialog.h"
#include "LmInfoDialog.h"
#include "LmInterruptDialog.h"
#include "LmPromptDialog.h"
#include "LmQuestionDialog.h"
#include "LmWarningDialog.h"
#include "LmWindow.h"

#include <Xm/DrawingA.h>

#include <memory>

using namespace lmtest;
using Reason = LmDialogManager::LmDialogReason;
using Action = std::function<void()>;

namespace {

struct Window1 : LmWindow {
    explicit Window1(const char* name) : LmWindow(name)
    {
        show();
        settleUntil([this] { return isViewable(viewWidget()); });
    }
    Widget setUpInterface(Widget parent) override
    {
        return XtVaCreateWidget("view", xmDrawingAreaWidgetClass, parent, XmNwidth, 500, XmNheight, 400, nullptr);
    }
};

struct DialogOnScreen : OnScreen {
    Window1* window = new Window1("window");
};

/// Does it as soon as a dialog waits for its answer: drawn, and the application no longer busy with showing it.
void whenWaiting(Action action)
{
    const XtWorkProc doOnce = [](XtPointer given) -> Boolean {
        if (app().busyCount() > 0)
            return False;
        const std::unique_ptr<Action> once(static_cast<Action*>(given));
        (*once)();
        return True;
    };
    XtAppAddWorkProc(app().appContext(), doOnce, new Action(std::move(action)));
}

/// The initials of the buttons that are shown.
std::string buttonsOf(Widget dialog)
{
    std::string shown;
    for (const char* name : {"OK", "Cancel", "Help", "Apply"})
        shown += XtNameToWidget(dialog, name) && XtIsManaged(XtNameToWidget(dialog, name)) ? std::string(1, *name) : "";
    return shown;
}

void push(LmDialogManager& dialog, const char* button) { click(XtNameToWidget(dialog.lastPosted(), button)); }

Reason ask(LmDialogManager& dialog, LmSimpleWindow* over = nullptr) { return dialog.postAndWait("Go on, please?", "help", over); }

Widget post(LmDialogManager& dialog, LmSimpleWindow* over)
{
    return dialog.post("some text", nullptr, nullptr, nullptr, nullptr, nullptr, over);
}

}   // namespace

TEST_F(DialogOnScreen, AnAnsweredQuestionReturnsTheAnswer)
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    const auto answerTo = [&](Action action, int apply = -1) {
        whenWaiting(std::move(action));
        return question.postAndWait("Any more?", -1, apply < 0 ? -1 : 0, apply, "help", window, nullptr);
    };
    pointAt(window->viewWidget(), 250, 200);   // over the dialog: without a window manager the keys go where the pointer is
    EXPECT_EQ(answerTo([] { key(XK_Escape); }), LmDialogManager::REASON_CANCEL);
    const auto close = [&] { sendProtocol(XtParent(question.lastPosted()), "WM_DELETE_WINDOW"); };
    EXPECT_EQ(answerTo(close), LmDialogManager::REASON_CANCEL);
    const auto apply = [&] {
        EXPECT_EQ(buttonsOf(question.lastPosted()), "OHA");
        push(question, "Apply");
    };
    EXPECT_EQ(answerTo(apply, 1), LmDialogManager::REASON_APPLY);
    const auto dismiss = [&] {
        EXPECT_EQ(buttonsOf(question.lastPosted()), "OCH");   // the flags are back
        question.unpostAll();
    };
    EXPECT_EQ(answerTo(dismiss), LmDialogManager::REASON_NONE);
}

TEST_F(DialogOnScreen, MessagesAndLabelsMayBeResourcesForOnePosting)
{
    setResource("*errorDialog.fileNotFound: There is no such file.");
    setResource("*errorDialog.Shut: Dismiss it");
    LmErrorDialog& error = *getTheErrorDialog();
    error.setButtonLabels(nullptr, "Shut", nullptr);
    Widget dialog = error.post("fileNotFound", nullptr, [](Widget, XtPointer, XtPointer) {});
    EXPECT_EQ(buttonsOf(dialog), "OC");
    EXPECT_EQ(textOf(dialog, XmNcancelLabelString), "Dismiss it");
    EXPECT_EQ(textOf(dialog, XmNmessageString), "There is no such file.");
    for (const std::string& message : {"fileNotFound" + std::string(25, '.'), std::string("two\nlines"), std::string()}) {
        error.unpost();
        EXPECT_EQ(textOf(error.post(message.c_str()), XmNmessageString), message);
        EXPECT_EQ(buttonsOf(dialog), "O");
    }
}

TEST_F(DialogOnScreen, DialogsAreCachedByParentAndExtraOnesDie)
{
    LmInfoDialog& info = *getTheInfoDialog();
    auto* other = new Window1("other");
    Widget first = post(info, window), second = post(info, other), extra = post(info, window);
    EXPECT_TRUE(first != second && first != extra && second != extra);
    info.unpost(extra);
    info.unpost(first);
    EXPECT_EQ(post(info, window), first);

    delete other;   // takes its dialog along; the others keep theirs
    settle();
    info.unpostAll();
    EXPECT_EQ(post(info, window), first);
}

TEST_F(DialogOnScreen, ADialogGoesOverItsParentAndStaysInsideIt)
{
    XtVaSetValues(window->baseWidget(), XmNx, 150, XmNy, 120, nullptr);
    settle();
    LmWarningDialog& warning = *getTheWarningDialog();
    warning.setReusePostedDialog(true);
    Widget dialog = post(warning, window);
    Dimension width = 0, height = 0;
    XtVaGetValues(dialog, XmNwidth, &width, XmNheight, &height, nullptr);
    const int centred = 150 + (500 - width) / 2;
    for (const auto& [moved, expected] : {std::pair(centred, centred), {160, 160}, {600, centred}}) {   // wholly inside: stays
        XtVaSetValues(dialog, XmNx, moved, nullptr);
        settle();
        post(warning, window);
        settle();
        Position x = 0, y = 0;
        XtTranslateCoords(dialog, 0, 0, &x, &y);
        EXPECT_TRUE(x == expected && y == 120 + (400 - height) / 2) << x << ", " << y;
    }
}

TEST_F(DialogOnScreen, NestedWaitsGetTheirOwnAnswers)
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    Reason inner = LmDialogManager::REASON_NONE;
    whenWaiting([&] {
        whenWaiting([&, outer = question.lastPosted()] {
            question.ok(outer, nullptr);   // the outer one first
            push(question, "Cancel");
        });
        inner = ask(question);
    });
    EXPECT_EQ(ask(question), LmDialogManager::REASON_OK);
    EXPECT_EQ(inner, LmDialogManager::REASON_CANCEL);
}

TEST_F(DialogOnScreen, AWindowClosedUnderItsWaitingDialogsEndsTheWaits)
{
    LmQuestionDialog& question = *getTheQuestionDialog();
    for (int depth = 1; depth <= 5; ++depth) {
        auto* closing = new Window1("closing");
        std::vector<Reason> answers;
        std::function<void(int)> nest = [&](int left) {
            whenWaiting([&, left] { left > 1 ? nest(left - 1) : delete closing; });
            answers.push_back(ask(question, closing));
        };
        nest(depth);
        EXPECT_EQ(answers, std::vector(static_cast<size_t>(depth), LmDialogManager::REASON_NONE));
        EXPECT_EQ(app().busyCount(), 0);
    }
}

TEST_F(DialogOnScreen, AManagerMayDieWhileItWaitsOrMakeNoDialog)
{
    auto* question = new LmQuestionDialog("mine");
    whenWaiting([&] { delete question; });
    EXPECT_EQ(ask(*question), LmDialogManager::REASON_NONE);
    struct Nothing : LmDialogManager {
        Nothing() : LmDialogManager("nothing") {}
        Widget createDialog(Widget) override { return nullptr; }
    } nothing;
    EXPECT_EQ(ask(nothing), LmDialogManager::REASON_NONE);
}

TEST_F(DialogOnScreen, APromptReturnsWhatWasTypedAndStartsEmptyAgain)
{
    LmPromptDialog& prompt = *getThePromptDialog();
    whenWaiting([&] {
        push(prompt, "Text");
        type("Hello World\n");
    });
    EXPECT_EQ(ask(prompt), LmDialogManager::REASON_OK);
    EXPECT_STREQ(prompt.text(), "Hello World");
    EXPECT_EQ(textOf(post(prompt, window), XmNtextString), "");
}

TEST_F(DialogOnScreen, AFileIsChosenAndCancelled)
{
    const char* dark = LUMORA_SOURCE_DIR "/data/schemes/LumoraDark";
    LmFileSelectionDialog& files = *getTheFileSelectionDialog();
    files.setDirectory(LUMORA_SOURCE_DIR "/data/schemes");
    Widget dialog = files.post("choose one");
    EXPECT_EQ(textOf(dialog, XmNdirectory), LUMORA_SOURCE_DIR "/data/schemes/");
    files.setSelection(dark);
    push(files, "OK");
    EXPECT_FALSE(XtIsManaged(dialog));
    EXPECT_STREQ(files.fileName(), dark);
    files.post("choose another");
    push(files, "Cancel");
    EXPECT_EQ(files.fileName(), nullptr);
}

TEST_F(DialogOnScreen, TheBusyDialogFollowsTheBusyState)
{
    app().busy("counting words", window);
    Widget dialog = getTheBusyDialog()->lastPosted();
    app().progressing("nearly all words");
    EXPECT_EQ(textOf(dialog, XmNmessageString), "nearly all words");
    app().notBusy();
    EXPECT_FALSE(XtIsManaged(dialog));

    LmInterruptDialog& interrupt = *getTheInterruptDialog();
    Heard heard(interrupt, LmInterruptDialog::interruptedCallback);
    app().setBusyDialog(&interrupt);
    app().busy("long work", window);
    EXPECT_FALSE(interrupt.wasInterrupted());
    push(interrupt, "Cancel");
    EXPECT_TRUE(interrupt.wasInterrupted());
    EXPECT_EQ(heard.values.size(), 1U);
    app().notBusy();
}

TEST(FatalDialog, EndsTheProgram)
{
    const auto die = [] { XtCallCallbacks(getTheFatalErrorDialog()->post("it is over"), XmNokCallback, nullptr); };
    EXPECT_EQ(exitStatusOf([&] { app(), new Window1("window"), die(); }), 1);
}

TEST_F(DialogOnScreen, UnderAWindowManagerDialogsBelongToTheirWindow)
{
    startWindowManager();
    auto* managed = new Window1("managed");
    ::Window owner = None;
    whenWaiting([&] {
        settleUntil([&] { return isViewable(getTheQuestionDialog()->lastPosted()); });
        XGetTransientForHint(app().display(), XtWindow(XtParent(getTheQuestionDialog()->lastPosted())), &owner);
        push(*getTheQuestionDialog(), "OK");
    });
    EXPECT_EQ(ask(*getTheQuestionDialog(), managed), LmDialogManager::REASON_OK);
    EXPECT_EQ(owner, XtWindow(managed->baseWidget()));
}
