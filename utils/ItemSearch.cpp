#include "ItemSearch.h"

#include <algorithm>
#include <cctype>

lm::ItemSearch::ItemSearch(std::string_view wanted)
{
    for (int byte = 0; byte < 256; ++byte)
        _fold[static_cast<std::size_t>(byte)] = static_cast<unsigned char>(std::tolower(byte));
    std::ranges::transform(wanted, std::back_inserter(_wanted), [this](char c) { return static_cast<char>(folded(c)); });
}

bool lm::ItemSearch::occursIn(std::string_view text) const
{
    const auto equal = [this](char inText, char inWanted) { return folded(inText) == static_cast<unsigned char>(inWanted); };
    return _wanted.empty() || std::search(text.begin(), text.end(), _wanted.begin(), _wanted.end(), equal) != text.end();
}
