#include "tests/support/Bells.h"

#include "LmTextIO.h"
#include "support/handles.h"
#include "support/resources.h"

#include <Xm/Text.h>

#include <X11/XKBlib.h>

#include <chrono>
#include <cstdlib>

using namespace lmtest;

namespace {

/// A locale whose characters are UTF-8; made before the application is.
struct Utf8Locale {
    Utf8Locale() { setenv("LC_ALL", "C.UTF-8", 1); }
};

struct TextIOOnScreen : Utf8Locale, OnScreen {
    TextIOOnScreen()
    {
        pane.addCallback(
            LmTextIO::textCallback,
            [](LmCallbackObject*, void* self, void* data) {
                auto* test = static_cast<TextIOOnScreen*>(self);
                auto* call = static_cast<LmTextIOCallbackStruct*>(data);
                EXPECT_EQ(call->component, &test->pane);
                test->heard.push_back(call->reason == TEXTIO_INPUT ? call->line : "interrupt");
            },
            this);
    }
    void open()
    {
        show(pane, 400, 300);
        click(pane.textWidget());
    }
    std::string text() const { return lm::XtString(XmTextGetString(pane.textWidget())).get(); }
    void put(const std::string& bytes, bool above = true) { pane.outputString(lm::xtText(bytes.c_str()), above); }
    XmTextPosition last() const { return XmTextGetLastPosition(pane.textWidget()); }
    XmTextPosition cursor() const { return XmTextGetInsertionPosition(pane.textWidget()); }

    LmTextIO pane{"console", shell(), "> "};
    std::vector<std::string> heard;
};

/// Has the keyboard's F12 type a character.
void mapF12(KeySym keysym)
{
    Display* d = app().display();
    KeySym keysyms[] = {keysym, keysym};
    XChangeKeyboardMapping(d, XKeysymToKeycode(d, XK_F12), 2, keysyms, 1);
    settle();
}

}   // namespace

TEST_F(TextIOOnScreen, TypedLinesAreAnnouncedAndBecomeHistory)
{
    open();
    EXPECT_STREQ(XtName(pane.textWidget()), "console");
    EXPECT_EQ(text(), "> ");
    type("ls");
    key(XK_Return);
    EXPECT_EQ(heard, std::vector<std::string>{"ls"});
    EXPECT_EQ(text(), "> ls\n> ");

    type("cat foo bar  ");
    key(XK_w, {XK_Control_L});
    EXPECT_EQ(text(), "> ls\n> cat foo ");
    key(XK_Left);
    key(XK_Left);
    type("x");
    key(XK_BackSpace);
    key(XK_BackSpace);
    EXPECT_EQ(text(), "> ls\n> cat fo ");
    put("above\n");
    EXPECT_EQ(text(), "> ls\nabove\n> cat fo ");
    EXPECT_EQ(cursor(), last());
    key(XK_u, {XK_Control_L});
    EXPECT_EQ(text(), "> ls\nabove\n> ");
    Bells bells;
    key(XK_BackSpace);
    EXPECT_EQ(bells.rung(), 1);
    EXPECT_EQ(text(), "> ls\nabove\n> ");

    key(XK_Home, {XK_Control_L});
    EXPECT_FALSE(pane.cursorVisible());
    key(XK_End, {XK_Control_L});
    EXPECT_TRUE(pane.cursorVisible());
    key(XK_Home, {XK_Control_L});
    type("q");   // from the history, typing goes on at the end
    EXPECT_EQ(text(), "> ls\nabove\n> q");
    key(XK_c, {XK_Control_L});
    EXPECT_EQ(heard.back(), "interrupt");

    const std::string long300(300, 'y');
    XmTextInsert(pane.textWidget(), last(), lm::xtText((long300 + "\ntail").c_str()));   // a program's change, as if typed
    EXPECT_EQ(heard.back(), "q" + long300);
    EXPECT_EQ(pane.buffSize(), 4);
    pane.deactivate();
    type("no");
    EXPECT_FALSE(pane.activated());
    EXPECT_EQ(pane.buffSize(), 4);
}

TEST_F(TextIOOnScreen, CharactersOfSeveralBytesAreEditedWhole)
{
    open();
    mapF12(XK_eacute);
    type("a");
    key(XK_eacute);
    key(XK_eacute);
    type("b");
    EXPECT_EQ(text(), "> aééb");
    EXPECT_EQ(pane.buffSize(), 6);
    key(XK_Left);
    key(XK_BackSpace);
    EXPECT_EQ(text(), "> aéb");
    type("z");
    EXPECT_EQ(text(), "> aézb");

    XmTextSetSelection(pane.textWidget(), 3, 5, CurrentTime);     // "éz"
    XmTextReplace(pane.textWidget(), 3, 5, lm::xtText("€uro"));   // as a paste over the selection
    EXPECT_EQ(text(), "> a€urob");
    XmTextSetInsertionPosition(pane.textWidget(), last());
    for (char byte : std::string("ü ß"))
        pane.inputChar(byte);
    EXPECT_EQ(text(), "> a€urobü ß");
    pane.doKillWord();
    EXPECT_EQ(text(), "> a€urobü ");
    put("x\xff\xE2\x82");
    put("\xAC\t\r\x1b[0m\n");
    EXPECT_EQ(text(), "x\uFFFD€\t\r\x1b[0m\n> a€urobü ");
    key(XK_Return);
    EXPECT_EQ(heard, std::vector<std::string>{"a€urobü "});
}

TEST_F(TextIOOnScreen, PromptAndInputGoAndComeBack)
{
    open();
    type("ca");
    pane.disableRedisplay();
    EXPECT_EQ(text(), "");
    put("burst\n");
    pane.enableRedisplay();
    EXPECT_EQ(text(), "burst\n");
    settleUntil([&] { return text() == "burst\n> ca"; });
    pane.hidePrompt();
    type("t");
    EXPECT_EQ(text(), "burst\n> cat");

    pane.changePromptString("longer> ");
    EXPECT_EQ(text(), "burst\n> cat");
    put("more\n");
    EXPECT_EQ(text(), "burst\nmore\nlonger> cat");
    pane.changePromptString("§ ");
    pane.flushInput();
    EXPECT_EQ(text(), "burst\nmore\n");
    pane.hidePrompt();
    pane.reallyRestorePrompt();
    EXPECT_EQ(text(), "burst\nmore\n");
    pane.newInput();
    EXPECT_EQ(text(), "burst\nmore\n§ ");
    type("x");
    pane.clearHistory();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(pane.buffSize(), 0);
    key(XK_Return);
    EXPECT_EQ(text(), "\n§ ");

    pane.hidePrompt();
    pane.restorePrompt();
    destroyShell();
    settle();
    put("nowhere");
    pane.newInput();
    EXPECT_EQ(pane.textWidget(), nullptr);
}

TEST_F(TextIOOnScreen, TheHistoryLimitDropsTheOldestLines)
{
    setResource("*small.historyLimit: 40");
    LmTextIO small("small", shell(), "prompt is never cut> ");
    const auto shown = [&] { return std::string(lm::XtString(XmTextGetString(small.textWidget())).get()); };
    for (int i = 10; i < 40; ++i)
        small.outputString(lm::xtText((std::to_string(i) + " é 789\n").c_str()), True);
    EXPECT_EQ(shown(), "36 é 789\n37 é 789\n38 é 789\n39 é 789\nprompt is never cut> ");
    small.outputString(lm::xtText(std::string(100, 'e').c_str()), True);   // a line longer than all
    EXPECT_EQ(shown(), std::string(40, 'e') + "prompt is never cut> ");

    setResource("*large.historyLimit: 100000");
    LmTextIO large("large", shell(), "");
    for (int i = 0; i < 10500; ++i)
        large.outputString(lm::xtText("123456789\n"), True);
    EXPECT_EQ(XmTextGetLastPosition(large.textWidget()), 105000);
    settleUntil([&] { return XmTextGetLastPosition(large.textWidget()) == 100000; });
}

TEST_F(TextIOOnScreen, AReceiverMayDestroyThePane)
{
    auto* brief = new LmTextIO("brief", shell(), "> ");
    brief->addCallback(
        LmTextIO::textCallback, [](LmCallbackObject* sender, void*, void*) { delete sender; }, nullptr);
    bool gone = false;
    brief->addCallback(
        LmComponent::deleteCallback, [](LmCallbackObject*, void* flag, void*) { *static_cast<bool*>(flag) = true; }, &gone);
    show(*brief, 400, 300);
    click(brief->textWidget());
    type("x");
    key(XK_Return);
    EXPECT_TRUE(gone);
}
