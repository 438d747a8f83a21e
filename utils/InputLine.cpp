#include "utils/InputLine.h"

void lm::InputLine::insert(size_t index, std::string_view text)
{
    _text.insert(byteOffset(_text, index, _units), text);
    _length += characterCount(text, _units);
}

bool lm::InputLine::erase(size_t index, size_t count)
{
    if (index > _length || count > _length - index)
        return false;
    const size_t from = byteOffset(_text, index, _units);
    _text.erase(from, byteOffset(std::string_view(_text).substr(from), count, _units));
    _length -= count;
    return true;
}

size_t lm::InputLine::lastWordLength() const
{
    const size_t end = _text.find_last_not_of(' ');
    const size_t space = end == std::string::npos ? end : _text.find_last_of(' ', end);
    return space == std::string::npos ? _length : characterCount(std::string_view(_text).substr(space + 1), _units);
}

void lm::InputLine::clear()
{
    _text.clear();
    _length = 0;
}
