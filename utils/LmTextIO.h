// LmTextIO: a terminal-like pane of output, with one line of input at its end.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

#include <Xm/Text.h>

#include <memory>
#include <string>
#include <string_view>

namespace lm {
class ConsoleText;
class InputLine;
class TextDecoder;
}   // namespace lm

class LmTextIO;

/// Why LmTextIO::textCallback is called.
enum LmTextIOReason : int {
    TEXTIO_INPUT = 0,      ///< a line of input is complete
    TEXTIO_INTERRUPT = 1   ///< Ctrl-C was pressed
};

/// The call data of LmTextIO::textCallback.
struct LmTextIOCallbackStruct {
    LmTextIOReason reason;   ///< why the callback is called
    LmTextIO* component;     ///< who calls
    char* line;              ///< without newline, valid during the call; null for TEXTIO_INTERRUPT
};

/// A console: the program writes output, the user types lines behind a prompt. Only the present input line can be edited
/// (Ctrl-U removes it, Ctrl-W its last word); everything above is history. Output may appear above a half-typed line.
///
/// Text is UTF-8 in UTF-8 locales. Bytes that are none, and NUL bytes in input, show as U+FFFD; a character cut in two by
/// two calls is put together. Everything else is shown character for character. Counts and positions are characters of
/// the text widget, except where bytes are said.
///
/// The component refuses every change of its text widget and makes it itself: what a program inserts into the widget is
/// taken as if it were typed.
///
///   Widgets    a scrolled text with the component's name; base widget: its scrolled window
///   Resources  of the text: "readOnlyBackground" "ReadOnlyBackground" Pixel yellow, the background while it is inactive
///              "historyLimit" "HistoryLimit" int 4000000, in bytes: the oldest lines above the input line are dropped
///              when there is more; 0: never. Up to a quarter more is kept for a fifth of a second.
///   Callbacks  textCallback, for each line and each Ctrl-C; call data: LmTextIOCallbackStruct*
///   Errors     an edit that begins above the input line is refused with the bell. Without its widgets the component
///              does nothing
class LM_API LmTextIO : public LmComponent {
public:
    static const char* const textCallback;   ///< "textCallback"

    /// Active, with the prompt (null: none) written.
    LmTextIO(const char* name, Widget parent, const char* prompt);
    ~LmTextIO() override;

    const char* className() override { return "LmTextIO"; }
    void show() override;
    void widgetDestroyed() override;
    /// Writes text above the input line, or where the insertion point is, and scrolls to the end. Null: nothing.
    virtual void outputString(char* s, Boolean aboveInput);
    /// The user pressed Ctrl-C: announces it.
    virtual void doCtrlC();
    /// The user pressed Return: ends the input line, announces it and starts a new one.
    virtual void doNewLine();

    /// Writes one byte of text.
    void outputChar(char c, Boolean aboveInput);
    /// Takes one byte as typed: newline, Ctrl-U (21) and Ctrl-W (23) act, other characters enter the input line.
    void inputChar(char c);
    /// Removes the input line.
    void doKillLine();
    /// Removes the input line's last word and the spaces behind it.
    void doKillWord();
    /// Removes `n` characters of the input line from character `pos` (from 0) on, or with -1 at its end. Nothing when there
    /// are not so many.
    void doDelete(int n, int pos);
    /// Starts a new input line with the prompt.
    void newInput();
    /// Removes prompt and input line, until newInput().
    void flushInput();
    /// Removes all text, prompt and input line included.
    void clearHistory();
    /// Sets the prompt (null: none) for the next time it is written.
    void changePromptString(const char* prompt);
    /// The length of the input line in bytes.
    int buffSize() const;

    /// Whether the user may type.
    Boolean activated() const;
    void activate();     ///< Lets the user type.
    void deactivate();   ///< Keeps the user from typing; the background shows it.

    /// Has changes not shown, and takes prompt and input line out, until enableRedisplay(). Does not nest.
    void disableRedisplay();
    /// Shows changes again; when the input line is out, as soon as the program is idle.
    void enableRedisplay();
    /// Takes prompt and input line out of the text.
    void hidePrompt();
    /// Has them put back, and redisplay on, when the program is idle.
    void restorePrompt();
    /// Does that now.
    void reallyRestorePrompt();
    /// Shows the end of the text; with redisplay off, as soon as that is on.
    void scrollToBottom();

    /// The text cursor is hidden while it is above the input line.
    Boolean cursorVisible() const { return _cursorShown; }
    void setCursorVisible(Boolean visible);   ///< Shows or hides the text cursor now.

    /// The text widget; null once destroyed.
    Widget textWidget() const { return _text; }
    const char* prompt() const { return _prompt.c_str(); }   ///< What the next input line begins with.

    /// The Xt procedures, with the component as client data or, for actions, as the widget's user data.
    static void modify_verify(Widget w, XtPointer component, XtPointer callData) noexcept;
    /// The insertion cursor is about to move.
    static void motion_verify(Widget w, XtPointer component, XtPointer callData) noexcept;
    static void ctrl_u(Widget w, XEvent* event, String* params, Cardinal* count) noexcept;   ///< The action behind Ctrl-U.
    static void ctrl_c(Widget w, XEvent* event, String* params, Cardinal* count) noexcept;   ///< The action behind Ctrl-C.
    static void ctrl_w(Widget w, XEvent* event, String* params, Cardinal* count) noexcept;   ///< The action behind Ctrl-W.
    static Boolean prompt_stub(XtPointer component) noexcept;   ///< The program is idle: puts prompt and input line back.

protected:
    /// The input line, UTF-8.
    const std::string& inputText() const;
    /// Makes the input line history with that mark ("^C\n") behind it, and starts a new one if there was one.
    void abandonInput(const char* mark);
    /// Drops all history above the input line.
    void dropHistory();
    /// Cuts the history if it is well above its limit. A long history takes a while: not the moment for anything else.
    bool cutLongHistory();
    /// The resource.
    int historyLimit() const { return _historyLimit; }

    /// While it lives changes are made but not shown, and the input line stays in the text.
    class LM_API Unseen {
    public:
        explicit Unseen(LmTextIO& pane);   ///< Begins to keep the pane's changes from sight.
        Unseen(const Unseen&) = delete;
        Unseen& operator=(const Unseen&) = delete;
        ~Unseen();

    private:
        LmTextIO& _pane;
        lm::Watch _here;
        bool _mine;   // redisplay was on
    };

private:
    void prepareText();
    void processInput(XmTextVerifyCallbackStruct* change);
    void takeAsTyped(std::string_view bytes);
    void echo(std::string_view bytes);
    void inputError();
    int translatePos(XmTextPosition position) const;
    XmTextPosition inputStart() const;
    size_t shownLength() const;
    size_t shownBytes() const;
    void insertAbove(const std::string& text);
    void leaveLine();
    void moveTo(XmTextPosition position);
    void limitHistory();
    void cutHistory();
    void cutHistorySoon();
    size_t historyExcess() const;
    void setEditable(bool editable, Pixel background);

    Widget _text = nullptr;   // null once destroyed
    std::string _prompt;
    std::string _shownPrompt;      // of the present input line; empty between lines
    std::string _promptOnScreen;   // what of it is in the text
    std::unique_ptr<lm::InputLine> _input;
    std::unique_ptr<lm::ConsoleText> _console;
    std::unique_ptr<lm::TextDecoder> _typed, _above, _atCursor;   // characters of which parts came
    Boolean _scrollPending = False;
    Pixel _background = 0;
    Pixel _readOnlyBackground = 0;
    int _historyLimit = 0;   // bytes
    Boolean _redisplayOn = True;
    Time _eventTime = 0;
    Boolean _cursorShown = True;
    lm::WorkProcHandle _promptWorkProc;
    lm::TimerHandle _cutTimer;
    Boolean _promptHidden = False;
    bool _lineStarted = false;   // by newInput()
};
