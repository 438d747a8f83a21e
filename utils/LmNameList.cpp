#include "LmNameList.h"

#include "support/xmtext.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

int StringCompare(const char** a, const char** b) { return std::strcmp(*a, *b); }

void FreeIdTable(char** table)
{
    for (char** entry = table; entry && *entry; ++entry)
        std::free(*entry);
    std::free(table);
}

/// The number of leading bytes in which two names agree.
static std::size_t agreement(std::string_view a, std::string_view b)
{
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

// --- editing -----------------------------------------------------------------------------------------------------------

void LmNameList::add(const char* name)
{
    if (name)
        _names.emplace_back(name);
}

void LmNameList::add(const LmNameList& other)
{
    const std::size_t count = other._names.size();   // read before: the other list may be this one
    _names.reserve(_names.size() + count);
    for (std::size_t i = 0; i < count; ++i)
        _names.push_back(other._names[i]);
}

void LmNameList::remove(const char* name)
{
    if (!name)
        return;
    const auto found = std::ranges::find(_names, name);
    if (found != _names.end())
        _names.erase(found);
}

void LmNameList::sort() { std::ranges::sort(_names); }

void LmNameList::reverse() { std::ranges::reverse(_names); }

void LmNameList::removeDuplicates()
{
    sort();
    _names.erase(std::unique(_names.begin(), _names.end()), _names.end());
}

// --- queries -----------------------------------------------------------------------------------------------------------

const char* LmNameList::at(int index) const
{
    return index >= 0 && index < size() ? _names[static_cast<std::size_t>(index)].c_str() : nullptr;
}

int LmNameList::exists(const char* name) const { return name && std::ranges::find(_names, name) != _names.end() ? 1 : 0; }

char* LmNameList::operator[](int index) const
{
    const char* name = at(index);
    return name ? strdup(name) : nullptr;
}

LmNameList LmNameList::operator[](const char* prefix) const
{
    LmNameList matches;
    if (!prefix)
        return matches;
    const std::string_view start = prefix;
    std::ranges::copy_if(_names, std::back_inserter(matches._names),
                         [=](const std::string& name) { return name.starts_with(start); });
    return matches;
}

/// Room for `count` entries and the null at the end; `free` releases it.
template <class Entry> static Entry* newTable(std::size_t count)
{
    return static_cast<Entry*>(std::calloc(count + 1, sizeof(Entry)));
}

LmNameList::operator char**() const
{
    auto** table = newTable<char*>(_names.size());
    std::ranges::transform(_names, table, [](const std::string& name) { return strdup(name.c_str()); });
    return table;
}

LmNameList::operator XmString*() const
{
    auto* table = newTable<XmString>(_names.size());
    std::ranges::transform(_names, table, [](const std::string& name) { return lm::compound(name.c_str()).release(); });
    return table;
}

char* LmNameList::mostCommonString() const
{
    if (_names.empty())
        return strdup("");
    std::string_view common = _names.front();
    for (const std::string& name : _names)
        common = common.substr(0, agreement(common, name));
    return strdup(std::string(common).c_str());
}

LmNameList* LmNameList::completeName(char* text, char*& completed, int& numMatches) const
{
    const std::string wanted = text ? text : "";
    auto* matches = new LmNameList((*this)[wanted.c_str()]);
    numMatches = matches->size();
    if (numMatches > 0) {
        completed = matches->mostCommonString();
        return matches;
    }
    std::size_t known = 0;   // bytes of the text that some name begins with
    for (const std::string& name : _names)
        known = std::max(known, agreement(wanted, name));
    completed = strdup(wanted.substr(0, known).c_str());
    return matches;
}
