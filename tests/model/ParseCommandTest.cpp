#include <gtest/gtest.h>

#include "LmParseCommand.h"
#include "LmSPGenericList.h"

#include <string>

/// "path|word|word" of a command.
static std::string parsed(const std::string& command)
{
    char* path = nullptr;
    char** argv = nullptr;
    LmParseCommand(command.c_str(), &path, &argv);
    std::string text = path;
    for (char** word = argv; *word; ++word)
        text += std::string("|") + *word;
    LmFreeParsedCommand(path, argv);
    return text;
}

TEST(ParseCommandModel, SpacesSeparateWordsAndQuotesHoldThemTogether)
{
    const char* const cases[][2] = {
        {"/bin/ls -l /tmp", "/bin/ls|ls|-l|/tmp"},   {"   cmd   a    b   ", "cmd|cmd|a|b"},    {"", "|"},
        {"cmd x'a b'y", "cmd|cmd|x'a b'y"},          {"cmd \"it's\"", "cmd|cmd|it's"},         {"cmd '' x", "cmd|cmd||x"},
        {"cmd 'abc def", "cmd|cmd|'abc def"},        {"cmd 'a' 'b'c' d'", "cmd|cmd|a|b'c' d"}, {"'my prog' x", "'my|'my|prog' x"},
        {"cmd\targ \\ b", "cmd\targ|cmd\targ|\\|b"},
    };
    for (const auto& [command, expected] : cases)
        EXPECT_EQ(parsed(command), expected) << command;
}

TEST(SPGenericListModel, EveryIndexIsFoundFromEveryPlaceVisitedBefore)
{
    int numbers[9] = {};
    LmSPGenericList list;
    for (int at : {4, 5, 8})
        list.append(&numbers[at]);
    for (int at : {0, 1, 2, 3, 6, 7})
        list.insertAt(at, &numbers[at]);
    for (long visited = 0; visited < 9; ++visited)
        for (long index = -1; index <= 9; ++index) {
            list.findNode(visited);
            EXPECT_EQ(list.findItem(index), index < 0 || index > 8 ? nullptr : &numbers[index]) << visited << " " << index;
        }
    EXPECT_EQ(list.remove(8L), &numbers[8]);
    EXPECT_EQ(list.remove(static_cast<void*>(&numbers[0])), &numbers[0]);
    EXPECT_EQ(list.remove(list.findNode(3)), &numbers[4]);
    list.insertAt(list.size(), &numbers[0]);
    EXPECT_EQ(list.findItem(list.size() - 1), &numbers[0]);
}
