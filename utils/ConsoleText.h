// ConsoleText.h: the text widget of a console, changed by the console alone.
#pragma once

#include "utils/Characters.h"
#include "utils/DirectText.h"

#include <Xm/Text.h>

namespace lm {

/// The changes that a console makes to its text widget. Knows how many bytes the text has, which the widget, counting
/// characters, does not.
class ConsoleText {
public:
    /// The text widget, empty.
    explicit ConsoleText(Widget text) : _text(text), _direct(text), _units(localeUnits()) {}

    XmTextPosition last() const { return XmTextGetLastPosition(_text); }
    size_t bytes() const { return _bytes; }
    /// While a change is being made, also as Motif tells of it.
    bool isChanging() const { return _changing; }

    /// Inserts whole characters.
    void insert(XmTextPosition at, std::string_view text);
    /// Removes what is known to be `text` at a position.
    void erase(XmTextPosition at, std::string_view text);
    /// Removes `bytes` bytes that are the characters between two positions.
    void erase(XmTextPosition from, XmTextPosition to, size_t bytes);
    void clear();
    /// Removes at least `excess` bytes at the front, up to a line start in front of `end`; within the line there when it
    /// is the only one.
    void cutFront(size_t excess, XmTextPosition end);

private:
    size_t slowLength(std::string_view text);
    void insertSlowly(XmTextPosition& at, std::string_view text);
    void replace(XmTextPosition from, XmTextPosition to, const char* text);
    std::string front(XmTextPosition end) const;

    Widget _text;
    DirectText _direct;
    Units _units;
    size_t _bytes = 0;
    bool _changing = false;
};

}   // namespace lm
