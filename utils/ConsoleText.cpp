#include "utils/ConsoleText.h"

#include "support/handles.h"
#include "support/resources.h"

#include <algorithm>

void lm::ConsoleText::replace(XmTextPosition from, XmTextPosition to, const char* text)
{
    const bool before = std::exchange(_changing, true);
    XmTextReplace(_text, from, to, xtText(text));
    _changing = before;
}

/// Where the line behind the present one starts; the end of the text when there is none.
static size_t nextLine(std::string_view text) { return std::min(text.find('\n'), text.size() - 1) + 1; }

void lm::ConsoleText::insert(XmTextPosition at, std::string_view text)
{
    _bytes += text.size();
    int refusals = 0;   // the first line may go on one that is there; a second refusal tells of something unusual
    while (!text.empty()) {
        const size_t plain = _direct.plainLines(text);
        if (plain > 0 && _direct.insert(at, text.substr(0, plain))) {
            at += static_cast<XmTextPosition>(plain);
            text.remove_prefix(plain);
            continue;
        }
        refusals += plain > 0;
        const size_t slow = refusals > 1 ? text.size() : slowLength(text);
        insertSlowly(at, text.substr(0, slow));
        text.remove_prefix(slow);
    }
}

/// How much of a text, whose first line is not taken directly, is to go Motif's way at once: that line, and with it those
/// that are not taken either.
size_t lm::ConsoleText::slowLength(std::string_view text)
{
    size_t length = nextLine(text);
    while (length < text.size() && _direct.plainLines(text.substr(length)) == 0)
        length += nextLine(text.substr(length));
    return length;
}

void lm::ConsoleText::insertSlowly(XmTextPosition& at, std::string_view text)
{
    replace(at, at, std::string(text).c_str());
    at += static_cast<XmTextPosition>(characterCount(text, _units));
}

void lm::ConsoleText::erase(XmTextPosition at, std::string_view text)
{
    erase(at, at + static_cast<XmTextPosition>(characterCount(text, _units)), text.size());
}

void lm::ConsoleText::erase(XmTextPosition from, XmTextPosition to, size_t bytes)
{
    if (from == to)
        return;
    replace(from, to, "");
    _bytes -= std::min(bytes, _bytes);
}

void lm::ConsoleText::clear() { erase(0, last(), _bytes); }

/// Appends a character in UTF-8.
static void append(wchar_t character, std::string& text)
{
    const auto code = static_cast<unsigned long>(character);
    const auto push = [&](unsigned long byte) { text += static_cast<char>(byte); };
    const auto pushRest = [&](int shift) { push(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80)
        return push(code);
    if (code < 0x800) {
        push(0xC0 | code >> 6);
    } else if (code < 0x10000) {
        push(0xE0 | code >> 12);
        pushRest(6);
    } else {
        push(0xF0 | code >> 18);
        pushRest(12);
        pushRest(6);
    }
    pushRest(0);
}

/// In UTF-8 locales by way of wide characters, which is what the widget keeps: its own conversions take many times as long.
std::string lm::ConsoleText::front(XmTextPosition end) const
{
    const auto count = static_cast<int>(end);
    if (_units == Units::Bytes) {
        std::string bytes(static_cast<size_t>(count) + 1, '\0');
        XmTextGetSubstring(_text, 0, count, count + 1, bytes.data());
        bytes.pop_back();
        return bytes;
    }
    std::wstring characters(static_cast<size_t>(count) + 1, L'\0');
    if (!_direct.copyFront(end, characters.data()))
        XmTextGetSubstringWcs(_text, 0, count, count + 1, characters.data());
    characters.pop_back();
    std::string text;
    text.reserve(characters.size());
    for (wchar_t character : characters)
        append(character, text);
    return text;
}

void lm::ConsoleText::cutFront(size_t excess, XmTextPosition end)
{
    // Characters have at least one byte, so the cut is within these, unless a line goes on behind them.
    constexpr size_t moreThanALine = 4096;
    for (size_t reach = excess + moreThanALine;; reach *= 2) {
        const XmTextPosition to = std::min(end, static_cast<XmTextPosition>(reach));
        const std::string text = front(to);
        const size_t cut = frontCut(text, std::min(excess, text.size()));
        if (to < end && (cut == 0 || text[cut - 1] != '\n'))
            continue;
        const auto position = static_cast<XmTextPosition>(characterCount(std::string_view(text).substr(0, cut), _units));
        if (_direct.cutFront(position))
            _bytes -= cut;
        else
            erase(0, position, cut);
        return;
    }
}
