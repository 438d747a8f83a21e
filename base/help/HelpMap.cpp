#include "base/help/HelpMap.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace lm {

static constexpr size_t longestMapLine = 10240, longestIndexLine = 4096;

/// Takes the next line off the text, at most `limit` bytes of it, and only up to a NUL: what is behind is not read.
static std::string_view takeLine(std::string_view& text, size_t limit)
{
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, std::min(end, limit));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line.substr(0, line.find('\0'));
}

// --- help maps ---------------------------------------------------------------------------------------------------------

std::vector<std::string> placesOfHelpMap(const std::string& directory, const char* locale, const std::string& applicationClass)
{
    const std::string file = applicationClass + ".helpmap";
    std::vector<std::string> places;
    if (locale && std::strcmp(locale, "C") != 0 && !std::strchr(locale, '/'))
        places.push_back(directory + locale + "/" + file);
    places.push_back(directory + file);
    return places;
}

static std::vector<std::string_view> fieldsOf(std::string_view line)
{
    std::vector<std::string_view> fields;
    for (size_t start = 0; (start = line.find_first_not_of(';', start)) != line.npos;) {
        const size_t end = std::min(line.find(';', start), line.size());
        fields.push_back(line.substr(start, end - start));
        start = end;
    }
    return fields;
}

/// The number that the field starts with, 0 when there is none.
static int numberIn(std::string_view field)
{
    const long number = std::strtol(std::string(field).c_str(), nullptr, 10);
    return static_cast<int>(std::clamp(number, long{INT_MIN}, long{INT_MAX}));
}

/// Whether a scope names a window: "Class.shell", perhaps followed by a period and more. Without a shell name the class
/// suffices.
static bool namesWindow(std::string_view scope, std::string_view applicationClass, const char* shellName)
{
    if (!scope.starts_with(applicationClass))
        return false;
    scope.remove_prefix(applicationClass.size());
    if (!scope.starts_with('.'))
        return false;
    scope.remove_prefix(1);
    if (!shellName)
        return true;
    if (!scope.starts_with(shellName))
        return false;
    scope.remove_prefix(std::strlen(shellName));
    return scope.empty() || scope.front() == '.';
}

/// Reads the fields of a line that has some.
static void readMapLine(const std::vector<std::string_view>& fields, std::string_view applicationClass, const char* shellName,
                        HelpMap& map)
{
    enum Kind { overview = 1, task = 2, keys = 3, tutorial = 4 };
    map.index = map.context = true;
    const int kind = numberIn(fields[0]);
    map.overview |= kind == overview;
    map.keys |= kind == keys;
    map.tutorial |= kind == tutorial;
    if (kind != task || fields.size() < 5)
        return;
    const bool visible = std::any_of(fields.begin() + 5, fields.end(),
                                     [&](std::string_view scope) { return namesWindow(scope, applicationClass, shellName); });
    map.tasks.push_back({visible, std::string(fields[1]), std::string(fields[2]), numberIn(fields[3]), std::string(fields[4])});
}

HelpMap parseHelpMap(std::string_view text, std::string_view applicationClass, const char* shellName)
{
    HelpMap map;
    while (!text.empty()) {
        const std::string_view line = takeLine(text, longestMapLine);
        if (line.empty() || line.front() == '#' || line.front() == ' ')
            continue;
        if (const auto fields = fieldsOf(line); !fields.empty())
            readMapLine(fields, applicationClass, shellName, map);
    }
    return map;
}

std::vector<HelpEntry> helpEntries(const std::vector<HelpTask>& tasks)
{
    struct Ancestor {
        int level;
        std::optional<size_t> entry;   // the nearest one that is shown
    };
    std::vector<Ancestor> path;   // from a task of level 0 down to the last one; the levels grow
    std::vector<HelpEntry> entries;
    for (size_t i = 0; i < tasks.size(); ++i) {
        while (!path.empty() && path.back().level >= tasks[i].level)
            path.pop_back();
        if (path.empty() && tasks[i].level != 0)
            continue;
        std::optional<size_t> above = path.empty() ? std::nullopt : path.back().entry;
        if (tasks[i].visible) {
            int depth = 0;
            if (above) {
                entries[*above].isGroup = entries[*above].depth < deepestHelpEntry;
                depth = std::min(entries[*above].depth + 1, deepestHelpEntry);
            }
            above = entries.size();
            entries.push_back({i, depth});
        }
        path.push_back({tasks[i].level, above});
    }
    return entries;
}

// --- index map files ---------------------------------------------------------------------------------------------------

static std::string_view firstWord(std::string_view line) { return line.substr(0, line.find_first_of(" \t")); }

/// Takes lines off the text up to one with a word; empty when there is none.
static std::string_view takeWord(std::string_view& text)
{
    std::string_view word;
    while (word.empty() && !text.empty())
        word = firstWord(takeLine(text, longestIndexLine));
    return word;
}

std::optional<HelpSection> readHelpSection(std::string_view text, std::string_view name)
{
    bool found = false;
    while (!found && !text.empty())
        found = takeLine(text, longestIndexLine).starts_with(name);
    const std::string_view root = found ? takeWord(text) : std::string_view();
    if (root.empty() || root == name)
        return std::nullopt;
    HelpSection section{.root = std::string(root)};
    for (std::string_view word = takeWord(text); !word.empty(); word = takeWord(text)) {
        if (word == name) {
            section.isClosed = true;
            break;
        }
        section.topics.emplace_back(word);
    }
    return section;
}

}   // namespace lm
