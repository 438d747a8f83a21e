// ItemSearch.h: does an item's text contain another, whatever the case?
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace lm {

/// A text to be looked for in many others. Bytes are equal when the locale's lower-case forms are, as strcasecmp has it.
class ItemSearch {
public:
    explicit ItemSearch(std::string_view wanted);

    /// Whether the text occurs anywhere in the other; the empty text occurs everywhere.
    bool occursIn(std::string_view text) const;

private:
    unsigned char folded(char c) const { return _fold[static_cast<unsigned char>(c)]; }

    std::array<unsigned char, 256> _fold;   // each byte's lower-case form
    std::string _wanted;                    // folded
};

}   // namespace lm
