#include "utils/DirectText.h"

#include <X11/Xft/Xft.h>
#include <Xm/TextOutP.h>
#include <Xm/TextP.h>
#include <Xm/TextStrSoP.h>
#include <Xm/XmP.h>

#include <algorithm>
#include <cstring>

extern "C" void _XmTextInvalidate(XmTextWidget, XmTextPosition, XmTextPosition, long);

static constexpr bool knownMotif = XmVERSION == 2 && XmREVISION == 3;

namespace {

/// The text as the widget's source keeps it: wide characters with a gap.
class Buffer {
public:
    explicit Buffer(XmSourceData data) : _data(data) {}

    long before() const { return _data->gap_start - _data->ptr; }   // in bytes
    long gap() const { return _data->gap_end - _data->gap_start; }
    long behind() const { return static_cast<long>(_data->length) * unit - before(); }
    /// Between the capacity that the record states and where the text really ends: 0 or 1 characters.
    long spare() const { return _data->maxlength - (before() + gap() + behind()) / unit; }
    bool isKnown() const
    {
        return _data->ptr && before() >= 0 && before() % unit == 0 && gap() >= 0 && behind() >= 0 && spare() >= 0 && spare() <= 1;
    }
    void insert(XmTextPosition at, std::string_view ascii)
    {
        if (gap() <= static_cast<long>(ascii.size() + 1) * unit)
            grow(static_cast<long>(ascii.size()));
        moveGap(at);
        auto* to = reinterpret_cast<wchar_t*>(_data->gap_start);
        std::copy(ascii.begin(), ascii.end(), to);
        _data->gap_start += static_cast<long>(ascii.size()) * unit;
        _data->length += static_cast<int>(ascii.size());
    }

    void copyFront(XmTextPosition count, wchar_t* to) const
    {
        const long bytes = count * unit, first = std::min(bytes, before());
        std::memcpy(to, _data->ptr, static_cast<size_t>(first));
        std::memcpy(to + first / unit, _data->gap_end, static_cast<size_t>(bytes - first));
    }
    void cutFront(XmTextPosition end)
    {
        const long bytes = end * unit;
        if (before() < bytes)
            moveGap(end);
        std::memmove(_data->ptr, _data->ptr + bytes, static_cast<size_t>(before() - bytes));
        _data->gap_start -= bytes;
        _data->length -= static_cast<int>(end);
    }

private:
    static constexpr long unit = sizeof(wchar_t);

    void moveGap(XmTextPosition at)
    {
        const long distance = at * unit - before();
        if (distance < 0) {
            std::memmove(_data->gap_end + distance, _data->gap_start + distance, static_cast<size_t>(-distance));
        } else {
            std::memmove(_data->gap_start, _data->gap_end, static_cast<size_t>(distance));
        }
        _data->gap_start += distance;
        _data->gap_end += distance;
    }
    /// Makes room for that many characters more, and half as many again as there are. With the gap at the end, so that a
    /// long text is not copied, but its pages are mapped elsewhere.
    void grow(long more)
    {
        moveGap(_data->length);
        const long spareBytes = spare() * unit, front = before();
        const long length = _data->length + more;
        const long capacity = length + length / 2 + 1024;
        _data->ptr = XtRealloc(_data->ptr, static_cast<Cardinal>((capacity + 1) * unit));
        _data->gap_start = _data->ptr + front;
        _data->gap_end = _data->ptr + capacity * unit - spareBytes;
        std::memset(_data->gap_end, 0, static_cast<size_t>(unit + spareBytes));
        _data->maxlength = static_cast<int>(capacity);
    }

    XmSourceData _data;
};

XmDirection layoutOf(Widget w) { return reinterpret_cast<XmPrimitiveWidget>(w)->primitive.layout_direction; }

XmTextPart& partOf(Widget w) { return reinterpret_cast<XmTextWidget>(w)->text; }

/// Whether the widget is as this file knows it, at a moment when there is nothing else to keep right.
bool isPlain(Widget w)
{
    if (!knownMotif || !w || XtClass(w) != xmTextWidgetClass || !XtIsRealized(w))
        return false;
    const XmTextPart& text = partOf(w);
    XmSourceData data = text.source->data;
    return text.char_size > 2 && text.edit_mode == XmMULTI_LINE_EDIT && text.inner_widget == w && data->numwidgets == 1 &&
           data->widgets[0] == reinterpret_cast<XmTextWidget>(w) && !data->hasselection && text.highlight.number <= 1 &&
           !text.in_redisplay && !text.in_refigure_lines && !text.in_setvalues && !text.in_resize &&
           (!text.onthespot || text.onthespot->end == text.onthespot->start) && text.line_table && text.total_lines > 0 &&
           XmDirectionMatch(layoutOf(w), XmLEFT_TO_RIGHT_TOP_TO_BOTTOM) &&
           XtHasCallbacks(w, XmNvalueChangedCallback) != XtCallbackHasSome && Buffer(data).isKnown();
}

/// Which entry of the table of lines is that of a line (not of its continuation) starting there; -1: none.
int lineAt(const XmTextPart& text, XmTextPosition start)
{
    const auto position = static_cast<unsigned int>(start);
    int i = text.total_lines - 1;
    while (i > 0 && text.line_table[i].start_pos > position)
        --i;
    return text.line_table[i].start_pos == position && !text.line_table[i].virt_line ? i : -1;
}

/// Adds the lines to the table in front of an entry.
void addLines(XmTextPart& text, int at, std::string_view lines)
{
    const auto count = static_cast<int>(std::count(lines.begin(), lines.end(), '\n'));
    const auto wanted = static_cast<unsigned int>(text.total_lines + count + 1);
    if (text.table_size < wanted) {
        text.table_size = wanted + wanted / 2;
        const auto bytes = text.table_size * sizeof(XmTextLineTableRec);
        text.line_table =
            reinterpret_cast<XmTextLineTable>(XtRealloc(reinterpret_cast<char*>(text.line_table), static_cast<Cardinal>(bytes)));
    }
    XmTextLineTable table = text.line_table;
    auto start = static_cast<unsigned int>(table[at].start_pos);
    std::copy_backward(table + at, table + text.total_lines, table + text.total_lines + count);
    text.total_lines += count;
    for (int i = at + count; i < text.total_lines; ++i)
        table[i].start_pos = (table[i].start_pos + static_cast<unsigned int>(lines.size())) & 0x7FFFFFFF;
    for (size_t offset = 0; offset < lines.size(); offset = lines.find('\n', offset) + 1, ++at) {
        table[at].start_pos = (start + static_cast<unsigned int>(offset)) & 0x7FFFFFFF;
        table[at].virt_line = 0;
    }
}

/// Takes the entries in front of one, whose line starts at `end`, out of the table.
void cutLines(XmTextPart& text, int at, XmTextPosition end)
{
    XmTextLineTable table = text.line_table;
    text.total_lines -= at;
    std::copy(table + at, table + at + text.total_lines, table);
    for (int i = 0; i < text.total_lines; ++i)
        table[i].start_pos = (table[i].start_pos - static_cast<unsigned int>(end)) & 0x7FFFFFFF;
    text.table_index = 0;
}

/// A width in pixels that no printable ASCII character exceeds; 0: not known.
int widestCharacter(OutputData output)
{
    if (output->use_xft)
        return reinterpret_cast<const XftFont*>(output->font)->max_advance_width;
    int widest = 0;
    for (char c = ' '; c <= '~'; ++c) {
        int width = 0;
        if (output->use_fontset)
            width = XmbTextEscapement(reinterpret_cast<XFontSet>(output->font), &c, 1);
        else if (output->font)
            width = XTextWidth(output->font, &c, 1);
        if (width <= 0)
            return 0;
        widest = std::max(widest, width);
    }
    return widest;
}

}   // namespace

size_t lm::DirectText::plainLines(std::string_view text)
{
    if (!isPlain(_text))
        return 0;
    OutputData output = partOf(_text).output->data;
    if (output->font != _font) {
        _font = output->font;
        _widest = widestCharacter(output);
    }
    const int room = static_cast<int>(_text->core.width) - output->leftmargin - output->rightmargin;
    const auto most = static_cast<size_t>(_widest > 0 ? std::max(room / _widest - 1, 0) : 0);
    size_t plain = 0;
    for (size_t i = 0; i < text.size() && i - plain <= most; ++i) {
        if (text[i] == '\n')
            plain = i + 1;
        else if (text[i] < ' ' || text[i] > '~')
            break;
    }
    return plain;
}

bool lm::DirectText::insert(XmTextPosition at, std::string_view lines)
{
    if (lines.empty() || !isPlain(_text))
        return false;
    auto* widget = reinterpret_cast<XmTextWidget>(_text);
    XmTextPart& text = widget->text;
    const int line = lineAt(text, at);
    if (line < 0 || text.cursor_position < at || text.top_character > at || text.new_top > at)
        return false;
    const auto count = static_cast<XmTextPosition>(lines.size());
    text.output->DrawInsertionPoint(widget, text.cursor_position, off);
    XmTextDisableRedisplay(_text);
    Buffer(text.source->data).insert(at, lines);
    _XmTextInvalidate(widget, at, at, count);
    addLines(text, line, lines);
    text.cursor_position += count;
    text.last_position = text.source->data->length;
    XmTextEnableRedisplay(_text);
    text.output->DrawInsertionPoint(widget, text.cursor_position, on);
    return true;
}

bool lm::DirectText::cutFront(XmTextPosition end)
{
    if (end <= 0 || !isPlain(_text))
        return false;
    auto* widget = reinterpret_cast<XmTextWidget>(_text);
    XmTextPart& text = widget->text;
    const int line = lineAt(text, end);
    if (line < 0 || text.cursor_position < end || text.top_character < end || text.new_top != text.top_character)
        return false;
    const XmTextPosition top = text.top_character - end;
    const int topLine = text.top_line - line;
    text.output->DrawInsertionPoint(widget, text.cursor_position, off);
    XmTextDisableRedisplay(_text);
    Buffer(text.source->data).cutFront(end);
    _XmTextInvalidate(widget, 0, end, -end);
    cutLines(text, line, end);
    text.cursor_position -= end;
    text.top_character = text.new_top = top;
    text.top_line = topLine;
    text.last_position = text.source->data->length;
    XmTextEnableRedisplay(_text);
    text.output->DrawInsertionPoint(widget, text.cursor_position, on);
    return true;
}

bool lm::DirectText::copyFront(XmTextPosition count, wchar_t* to) const
{
    if (!isPlain(_text) || count > partOf(_text).source->data->length)
        return false;
    Buffer(partOf(_text).source->data).copyFront(count, to);
    return true;
}
