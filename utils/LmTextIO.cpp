#include "LmTextIO.h"

#include "LmApp.h"
#include "LmResource.h"
#include "support/calldata.h"
#include "support/resources.h"
#include "support/xt.h"
#include "utils/ConsoleText.h"
#include "utils/InputLine.h"

#include <algorithm>
#include <iterator>
#include <utility>

const char* const LmTextIO::textCallback = "textCallback";

LmTextIO::LmTextIO(const char* name, Widget parent, const char* prompt)
    : LmComponent(name),
      _prompt(prompt ? prompt : ""),
      _input(std::make_unique<lm::InputLine>(lm::localeUnits())),
      _typed(std::make_unique<lm::TextDecoder>(lm::localeUnits())),
      _above(std::make_unique<lm::TextDecoder>(lm::localeUnits())),
      _atCursor(std::make_unique<lm::TextDecoder>(lm::localeUnits()))
{
    Arg args[] = {
        {lm::xtText(XmNeditMode), XmMULTI_LINE_EDIT}, {lm::xtText(XmNscrollHorizontal), False}, {lm::xtText(XmNwordWrap), True}};
    _text = XmCreateScrolledText(parent, lm::xtText(this->name()), args, static_cast<Cardinal>(std::size(args)));
    _console = std::make_unique<lm::ConsoleText>(_text);
    _w = XtParent(_text);
    installDestroyHandler();
    XtVaGetValues(_text, XmNbackground, &_background, nullptr);
    _readOnlyBackground = reinterpret_cast<Pixel>(
        LmGetResource(_text, "readOnlyBackground", "ReadOnlyBackground", XtRPixel, sizeof(Pixel), "yellow"));
    _historyLimit = lm::asInt(LmGetResource(_text, "historyLimit", "HistoryLimit", XtRInt, sizeof(int), "4000000"));
    prepareText();
    newInput();
}

LmTextIO::~LmTextIO()
{
    if (!_text)
        return;
    // Destruction may be put off, and the widget announce something before it.
    XtRemoveCallback(_text, XmNmodifyVerifyCallback, modify_verify, this);
    XtRemoveCallback(_text, XmNmotionVerifyCallback, motion_verify, this);
    XtVaSetValues(_text, XmNuserData, nullptr, nullptr);
}

void LmTextIO::prepareText()
{
    static XtActionsRec actions[] = {
        {lm::xtText("textio-ctrl-u"), ctrl_u}, {lm::xtText("textio-ctrl-c"), ctrl_c}, {lm::xtText("textio-ctrl-w"), ctrl_w}};
    static XtAppContext known = nullptr;
    XtAppContext context = XtWidgetToApplicationContext(_text);
    if (std::exchange(known, context) != context)
        XtAppAddActions(context, actions, static_cast<Cardinal>(std::size(actions)));
    static XtTranslations keys = XtParseTranslationTable("~Shift ~Meta ~Alt Ctrl<Key>U:\ttextio-ctrl-u() \n"
                                                         "     ~Shift ~Meta ~Alt Ctrl<Key>C:\ttextio-ctrl-c() \n"
                                                         "     ~Shift ~Meta ~Alt Ctrl<Key>W:\ttextio-ctrl-w()");
    XtOverrideTranslations(_text, keys);
    XtVaSetValues(_text, XmNautoShowCursorPosition, False, XmNverifyBell, False, XmNuserData, static_cast<LmComponent*>(this),
                  nullptr);
    XtAddCallback(_text, XmNmodifyVerifyCallback, modify_verify, this);
    XtAddCallback(_text, XmNmotionVerifyCallback, motion_verify, this);
}

void LmTextIO::show()
{
    if (_text)
        XtManageChild(_text);
    LmComponent::show();
}

void LmTextIO::widgetDestroyed()
{
    _text = nullptr;
    _promptWorkProc = {};
    _cutTimer = {};
    LmComponent::widgetDestroyed();
}

const std::string& LmTextIO::inputText() const { return _input->text(); }

int LmTextIO::buffSize() const { return static_cast<int>(_input->text().size()); }

// --- where things are --------------------------------------------------------------------------------------------------

/// How many characters of the text are prompt and input line.
size_t LmTextIO::shownLength() const
{
    return _promptHidden ? 0 : lm::characterCount(_promptOnScreen, lm::localeUnits()) + _input->length();
}

size_t LmTextIO::shownBytes() const { return _promptHidden ? 0 : _promptOnScreen.size() + _input->text().size(); }

/// Where the input line starts, behind the prompt.
XmTextPosition LmTextIO::inputStart() const { return _console->last() - static_cast<XmTextPosition>(_input->length()); }

/// The index within the input line of a position; negative above it.
int LmTextIO::translatePos(XmTextPosition position) const { return static_cast<int>(position - inputStart()); }

void LmTextIO::moveTo(XmTextPosition position) { XmTextSetInsertionPosition(_text, position); }

// --- output ------------------------------------------------------------------------------------------------------------

LmTextIO::Unseen::Unseen(LmTextIO& pane) : _pane(pane), _here(pane.liveness()), _mine(pane._text && pane._redisplayOn)
{
    if (!_mine)
        return;
    _pane._redisplayOn = False;
    _pane._scrollPending = False;
    XmTextDisableRedisplay(_pane._text);
}

LmTextIO::Unseen::~Unseen()
{
    if (!_mine || !_here || !_pane._text)
        return;
    _pane._redisplayOn = True;
    if (std::exchange(_pane._scrollPending, False)) {
        _pane.moveTo(_pane._console->last());
        _pane.scrollToBottom();
    }
    XmTextEnableRedisplay(_pane._text);
}

void LmTextIO::outputString(char* s, Boolean aboveInput)
{
    if (!_text || !s)
        return;
    std::string text;
    (aboveInput ? _above : _atCursor)->decode(s, text);
    if (!_cursorShown)
        setCursorVisible(True);
    const XmTextPosition back = aboveInput ? 0 : _console->last() - XmTextGetInsertionPosition(_text);
    XmTextDisableRedisplay(_text);   // one redisplay for all
    if (aboveInput)
        insertAbove(text);
    else
        _console->insert(_console->last() - back, text);
    if (aboveInput || text.find('\n') != std::string::npos)
        limitHistory();
    if (_redisplayOn)
        moveTo(_console->last() - back);
    scrollToBottom();
    XmTextEnableRedisplay(_text);
}

/// Leaves prompt and input line where they are, and renews the prompt if it has changed.
void LmTextIO::insertAbove(const std::string& text)
{
    XmTextPosition at = _console->last() - static_cast<XmTextPosition>(shownLength());
    if (!_promptHidden && _promptOnScreen != _shownPrompt) {
        _console->erase(at, _promptOnScreen);
        _console->insert(at, _shownPrompt);
        _promptOnScreen = _shownPrompt;
    }
    _console->insert(at, text);
}

void LmTextIO::outputChar(char c, Boolean aboveInput)
{
    char text[] = {c, '\0'};
    outputString(text, aboveInput);
}

void LmTextIO::scrollToBottom()
{
    if (_text && _redisplayOn)
        XmTextShowPosition(_text, _console->last());
    else
        _scrollPending = True;
}

void LmTextIO::setCursorVisible(Boolean visible)
{
    _cursorShown = visible;
    if (_text)
        XtVaSetValues(_text, XmNcursorPositionVisible, visible, nullptr);
}

// --- history -----------------------------------------------------------------------------------------------------------

/// How many bytes there are above the limit.
size_t LmTextIO::historyExcess() const
{
    const auto limit = static_cast<size_t>(std::max(_historyLimit, 0));
    const size_t bytes = _console->bytes() - shownBytes();
    return limit == 0 || bytes <= limit ? 0 : bytes - limit;
}

/// Cutting a long history for every line would cost more than all output: it may grow for a while.
void LmTextIO::limitHistory()
{
    constexpr size_t shortHistory = 64 * 1024;
    const auto limit = static_cast<size_t>(std::max(_historyLimit, 0));
    const size_t excess = historyExcess();
    if (excess > (limit > shortHistory ? limit / 4 : 0))
        cutHistory();
    else if (excess > 0 && !_cutTimer)
        _cutTimer = lm::TimerHandle(lm::after<&LmTextIO::cutHistorySoon>(XtWidgetToApplicationContext(_text), 200, this));
}

bool LmTextIO::cutLongHistory()
{
    if (!_text || historyExcess() <= static_cast<size_t>(std::max(_historyLimit, 0)) / 8)
        return false;
    cutHistory();
    return true;
}

void LmTextIO::cutHistory()
{
    if (const size_t excess = historyExcess())
        _console->cutFront(excess, _console->last() - static_cast<XmTextPosition>(shownLength()));
}

void LmTextIO::cutHistorySoon()
{
    _cutTimer.fired();
    cutHistory();
}

void LmTextIO::dropHistory()
{
    if (_text)
        _console->erase(0, _console->last() - static_cast<XmTextPosition>(shownLength()), _console->bytes() - shownBytes());
}

void LmTextIO::clearHistory()
{
    leaveLine();
    if (_text)
        _console->clear();
}

// --- the input line ----------------------------------------------------------------------------------------------------

/// What is on the screen of the input line stays there, as history.
void LmTextIO::leaveLine()
{
    _shownPrompt.clear();
    _promptOnScreen.clear();
    _input->clear();
    _lineStarted = false;
}

void LmTextIO::newInput()
{
    const lm::Watch here(liveness());
    _input->clear();
    _promptOnScreen.clear();
    _lineStarted = true;
    if (_text && !_promptHidden) {
        moveTo(_console->last());
        outputString(lm::xtText(_prompt.c_str()), False);
        if (!here)
            return;
        _promptOnScreen = _prompt;
    }
    _shownPrompt = _prompt;
}

void LmTextIO::flushInput()
{
    if (_text && !_promptHidden) {
        const XmTextPosition end = _console->last();
        _console->erase(end - static_cast<XmTextPosition>(shownLength()), end, shownBytes());
    }
    leaveLine();
}

void LmTextIO::changePromptString(const char* prompt)
{
    _prompt = prompt ? prompt : "";
    if (!_shownPrompt.empty())
        _shownPrompt = _prompt;
}

void LmTextIO::doNewLine()
{
    const lm::Watch here(liveness());
    if (_text)
        moveTo(_console->last());
    outputString(lm::xtText("\n"), False);
    if (!here)
        return;
    std::string line = _input->text();
    leaveLine();
    LmTextIOCallbackStruct data = {TEXTIO_INPUT, this, line.data()};
    callCallbacks(textCallback, &data);
    if (here && !_lineStarted)
        newInput();
}

void LmTextIO::doCtrlC()
{
    LmTextIOCallbackStruct data = {TEXTIO_INTERRUPT, this, nullptr};
    callCallbacks(textCallback, &data);
}

void LmTextIO::abandonInput(const char* mark)
{
    const lm::Watch here(liveness());
    const bool hadLine = _lineStarted;
    reallyRestorePrompt();
    if (_text)
        moveTo(_console->last());
    outputString(lm::xtText(mark), False);
    if (!here)
        return;
    leaveLine();
    if (hadLine)
        newInput();
}

void LmTextIO::doKillLine() { doDelete(static_cast<int>(_input->length()), -1); }

void LmTextIO::doKillWord() { doDelete(static_cast<int>(_input->lastWordLength()), -1); }

void LmTextIO::doDelete(int n, int pos)
{
    const int at = pos < 0 ? static_cast<int>(_input->length()) - n : pos;
    if (!_text || n < 0 || at < 0)
        return;
    const XmTextPosition from = inputStart() + at;
    const size_t before = _input->text().size();
    if (!_input->erase(static_cast<size_t>(at), static_cast<size_t>(n)))
        return;
    if (!_promptHidden) {
        _console->erase(from, from + n, before - _input->text().size());
        moveTo(from);
    }
    scrollToBottom();
    XmTextClearSelection(_text, _eventTime);
}

// --- what the user does ------------------------------------------------------------------------------------------------

void LmTextIO::modify_verify(Widget, XtPointer component, XtPointer callData) noexcept
{
    auto* self = static_cast<LmTextIO*>(component);
    if (self->_text && !self->_console->isChanging())
        self->processInput(static_cast<XmTextVerifyCallbackStruct*>(callData));
}

/// The widget is about to change: refuses that, and makes the change itself where it is one of the input line.
void LmTextIO::processInput(XmTextVerifyCallbackStruct* change)
{
    const lm::Watch here(liveness());
    change->doit = False;
    const bool inserts = change->text && change->text->ptr && change->text->length > 0;
    const std::string text = inserts ? std::string(change->text->ptr, static_cast<size_t>(change->text->length)) : "";
    if (change->text && !inserts)
        change->text->ptr = nullptr;
    reallyRestorePrompt();
    _eventTime = lm::timeOf(change->event);
    const int pos = translatePos(change->startPos);
    const auto replaced = static_cast<int>(change->endPos - change->startPos);
    if (text == "\n" && pos >= 0) {
        inputChar('\n');
    } else if (replaced > 0 && pos < 0) {
        inputError();
    } else {
        if (replaced > 0)
            doDelete(replaced, pos);
        else if (!_cursorShown)
            setCursorVisible(True);
        moveTo(pos < 0 ? _console->last() : change->startPos);
        takeAsTyped(text);
    }
    if (here)
        _eventTime = 0;
}

void LmTextIO::takeAsTyped(std::string_view bytes)
{
    const lm::Watch here(liveness());
    while (here && !bytes.empty()) {
        const size_t plain = std::min(bytes.find_first_of("\n\x15\x17"), bytes.size());
        if (plain > 0)
            echo(bytes.substr(0, plain));
        else
            inputChar(bytes[0]);
        bytes.remove_prefix(std::max<size_t>(plain, 1));
    }
}

/// Inserts into the input line at the cursor, on the screen and in the buffer.
void LmTextIO::echo(std::string_view bytes)
{
    std::string text;
    _typed->decode(bytes, text);
    if (text.empty() || !_text)
        return;
    if (translatePos(XmTextGetInsertionPosition(_text)) < 0)
        moveTo(_console->last());
    const int at = translatePos(XmTextGetInsertionPosition(_text));
    const lm::Watch here(liveness());
    outputString(text.data(), False);
    if (here)
        _input->insert(static_cast<size_t>(at), text);
}

void LmTextIO::inputChar(char c)
{
    reallyRestorePrompt();
    switch (c) {
    case '\n':
        return doNewLine();
    case 21:   // Ctrl-U
        return doKillLine();
    case 23:   // Ctrl-W
        return doKillWord();
    default:
        return echo({&c, 1});
    }
}

void LmTextIO::inputError() { XBell(XtDisplay(_text), 0); }

void LmTextIO::motion_verify(Widget, XtPointer component, XtPointer callData) noexcept
{
    auto* self = static_cast<LmTextIO*>(component);
    if (!self->_text)
        return;
    const bool inInput = self->translatePos(static_cast<XmTextVerifyCallbackStruct*>(callData)->newInsert) >= 0;
    if (inInput != static_cast<bool>(self->_cursorShown))
        self->setCursorVisible(inInput);
}

/// The component whose text widget an action runs for, with the time of its event; null when it is gone.
static LmTextIO* componentOf(Widget w)
{
    XtPointer data = nullptr;
    XtVaGetValues(w, XmNuserData, &data, nullptr);
    auto* component = static_cast<LmComponent*>(data);
    return LmComponent::isComponent(component) ? dynamic_cast<LmTextIO*>(component) : nullptr;
}

void LmTextIO::ctrl_u(Widget w, XEvent* event, String*, Cardinal*) noexcept
{
    LmTextIO* self = componentOf(w);
    if (!self || !self->activated())
        return;
    self->_eventTime = lm::timeOf(event);
    self->inputChar(21);
    self->_eventTime = 0;
}

void LmTextIO::ctrl_w(Widget w, XEvent* event, String*, Cardinal*) noexcept
{
    LmTextIO* self = componentOf(w);
    if (!self || !self->activated())
        return;
    self->_eventTime = lm::timeOf(event);
    self->inputChar(23);
    self->_eventTime = 0;
}

void LmTextIO::ctrl_c(Widget w, XEvent*, String*, Cardinal*) noexcept
{
    if (LmTextIO* self = componentOf(w))
        self->doCtrlC();
}

// --- active or not -----------------------------------------------------------------------------------------------------

Boolean LmTextIO::activated() const { return _text && XmTextGetEditable(_text); }

void LmTextIO::setEditable(bool editable, Pixel background)
{
    if (!_text || editable == static_cast<bool>(activated()))
        return;
    XmTextSetEditable(_text, editable);
    XtVaSetValues(_text, XmNbackground, background, nullptr);
}

void LmTextIO::activate() { setEditable(true, _background); }

void LmTextIO::deactivate() { setEditable(false, _readOnlyBackground); }

// --- redisplay ---------------------------------------------------------------------------------------------------------

void LmTextIO::disableRedisplay()
{
    if (!_text || !_redisplayOn)
        return;
    _redisplayOn = False;
    XmTextDisableRedisplay(_text);
    _scrollPending = False;
    hidePrompt();
}

void LmTextIO::hidePrompt()
{
    if (!_text || _promptHidden)
        return;
    const XmTextPosition end = _console->last();
    _console->erase(end - static_cast<XmTextPosition>(shownLength()), end, shownBytes());
    _promptOnScreen.clear();
    _promptHidden = True;
}

void LmTextIO::enableRedisplay()
{
    if (!_text || _redisplayOn)
        return;
    if (_promptHidden)
        return restorePrompt();
    _redisplayOn = True;
    moveTo(_console->last());
    XmTextEnableRedisplay(_text);
}

void LmTextIO::restorePrompt()
{
    if (_text && _promptHidden && !_promptWorkProc)
        _promptWorkProc = lm::WorkProcHandle(XtAppAddWorkProc(XtWidgetToApplicationContext(_text), prompt_stub, this));
}

Boolean LmTextIO::prompt_stub(XtPointer component) noexcept
{
    auto* self = static_cast<LmTextIO*>(component);
    self->_promptWorkProc.fired();
    self->reallyRestorePrompt();
    return True;
}

void LmTextIO::reallyRestorePrompt()
{
    if (!_text || !_promptHidden)
        return;
    _promptWorkProc = {};
    _promptHidden = False;
    _console->insert(_console->last(), _shownPrompt);
    _promptOnScreen = _shownPrompt;
    _console->insert(_console->last(), _input->text());
    const bool wasOn = std::exchange(_redisplayOn, True);
    moveTo(_console->last());
    if (!wasOn)
        XmTextEnableRedisplay(_text);
    if (std::exchange(_scrollPending, False))
        scrollToBottom();
}
