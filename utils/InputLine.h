// InputLine.h: the line that the user types, as bytes, edited by characters.
#pragma once

#include "utils/Characters.h"

namespace lm {

/// The text consists of whole characters; indexes and counts are characters.
class InputLine {
public:
    explicit InputLine(Units units) : _units(units) {}

    const std::string& text() const { return _text; }
    size_t length() const { return _length; }
    /// Inserts whole characters in front of the one at `index`; behind all when there are not so many.
    void insert(size_t index, std::string_view text);
    /// Removes characters; False, and nothing, when there are not so many.
    bool erase(size_t index, size_t count);
    /// How many characters the last word and the spaces behind it have.
    size_t lastWordLength() const;
    void clear();

private:
    Units _units;
    std::string _text;
    size_t _length = 0;
};

}   // namespace lm
