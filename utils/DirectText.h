// DirectText.h: lines for a text widget, past Motif's own way.
#pragma once

#include <Xm/Text.h>

#include <string_view>

namespace lm {

/// Motif inserts text at some 5 MB/s in UTF-8 locales: it converts and measures every character several times. Here lines
/// that need none of that, printable ASCII that fits into the width of the widget, go straight into the widget's
/// buffer and its table of lines. Everything that Motif keeps of the text is afterwards as if it had inserted them.
///
/// This is the one place that knows Motif's private records, those of Motif 2.3. With anything unusual (another version, a
/// selection, a second widget on the source ...) it does nothing, and the caller goes Motif's way.
class DirectText {
public:
    explicit DirectText(Widget text) : _text(text) {}

    /// How many bytes at the front of `text` are whole lines that insert() takes.
    size_t plainLines(std::string_view text);
    /// Inserts such lines, in front of a line that starts at `at`. False: nothing was done.
    bool insert(XmTextPosition at, std::string_view lines);
    /// Copies that many of the first characters. False: nothing was done.
    bool copyFront(XmTextPosition count, wchar_t* to) const;
    /// Removes everything in front of the line that starts at `end`. False: nothing was done.
    bool cutFront(XmTextPosition end);

private:
    Widget _text;
    const void* _font = nullptr;   // whose characters were measured
    int _widest = 0;               // of them, in pixels
};

}   // namespace lm
