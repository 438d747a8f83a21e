#include "base/help/HelpMap.h"
#include "fuzz/Targets.h"

#include <cstdlib>

static void expect(bool holds)
{
    if (!holds)
        std::abort();
}

/// A menu: tasks in order, each entry at most one level below a group, and no group without entries.
static void expectMenu(const std::vector<lm::HelpEntry>& entries, const lm::HelpMap& map)
{
    for (size_t i = 0; i < entries.size(); ++i) {
        const lm::HelpEntry& entry = entries[i];
        expect(entry.task < map.tasks.size() && map.tasks[entry.task].visible);
        expect(entry.depth >= 0 && entry.depth <= lm::deepestHelpEntry);
        expect(!entry.isGroup || (i + 1 < entries.size() && entries[i + 1].depth == entry.depth + 1));
        if (i == 0) {
            expect(entry.depth == 0);
            continue;
        }
        const lm::HelpEntry& before = entries[i - 1];
        expect(entry.task > before.task && entry.depth <= before.depth + before.isGroup);
    }
}

void lmfuzz::helpMap(std::string_view bytes)
{
    for (const char* shell : {"gallery", "", static_cast<const char*>(nullptr)}) {
        const lm::HelpMap map = lm::parseHelpMap(bytes, "Gallery", shell);
        expect(map.index == map.context);
        expect(map.index || (!map.overview && !map.keys && !map.tutorial && map.tasks.empty()));
        expectMenu(lm::helpEntries(map.tasks), map);
    }
}

void lmfuzz::helpIndex(std::string_view bytes)
{
    for (const char* name : {"FieldHelp", "TransHelp"}) {
        const auto section = lm::readHelpSection(bytes, name);
        if (!section)
            continue;
        expect(!section->root.empty() && section->root != name);
        for (const std::string& topic : section->topics) {
            expect(!topic.empty() && topic != name && topic.size() <= 4096);
            expect(topic.find_first_of(std::string_view(" \t\n\0", 4)) == std::string::npos);
        }
    }
}
