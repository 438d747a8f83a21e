#include "LmCompleter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>

using Names = std::span<const std::string>;

static std::size_t agreement(std::string_view a, std::string_view b)
{
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

static std::string_view viewOf(const std::string& name) { return name; }

/// The names that begin with the prefix; in a sorted set they stand together.
static Names beginningWith(Names names, std::string_view prefix)
{
    const auto first = std::ranges::lower_bound(names, prefix, {}, viewOf);
    const auto last = std::partition_point(first, names.end(), [=](const auto& name) { return name.starts_with(prefix); });
    return {first, last};
}

/// The longest start of the text that some name begins with. The names that agree most are those beside its own place.
static std::string_view knownPart(Names names, std::string_view text)
{
    const auto place = std::ranges::lower_bound(names, text, {}, viewOf);
    std::size_t known = 0;
    if (place != names.end())
        known = agreement(text, *place);
    if (place != names.begin())
        known = std::max(known, agreement(text, *std::prev(place)));
    return text.substr(0, known);
}

LmCompleter::LmCompleter(const char* const* list)
{
    int count = 0;
    while (list && list[count])
        ++count;
    copyAndSortStrings(list, count);
}

void LmCompleter::copyAndSortStrings(const char* const* list, int n)
{
    _names.clear();
    for (int i = 0; list && i < n; ++i) {
        if (list[i])
            _names.emplace_back(list[i]);
    }
    std::ranges::sort(_names);
}

int LmCompleter::substringMatch(const char* prefix) const { return beginningWith(_names, prefix).empty() ? 0 : 1; }

char* LmCompleter::mostCommonString(const char* prefix, int& unique) const
{
    const Names matches = beginningWith(_names, prefix);
    unique = matches.size() == 1 ? 1 : 0;
    if (matches.empty())
        return strdup("");
    const std::string& first = matches.front();   // what the outermost two share, all between them share
    return strdup(first.substr(0, agreement(first, matches.back())).c_str());
}

char* LmCompleter::getCompletedName(const char* text, int& unique) const
{
    unique = 0;
    const std::string_view wanted = text ? text : "";
    const std::string known(knownPart(_names, wanted));
    if (known.empty())
        return strdup("");
    char* completed = mostCommonString(known.c_str(), unique);
    if (known.size() == wanted.size())
        return completed;
    std::free(completed);
    return strdup(known.c_str());
}
