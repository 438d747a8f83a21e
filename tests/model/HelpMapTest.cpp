#include <gtest/gtest.h>

#include "base/help/HelpMap.h"

using namespace std::string_literals;

/// The menu of tasks given as letter and level, "A0 b1": "Group(A B) C". Lower-case letters are tasks of another window.
static std::string menu(const std::string& letters)
{
    std::string map;
    for (size_t i = 0; i < letters.size(); i += 2)
        map += "2;task;"s + letters[i] + ";" + letters[i + 1] + ";key;App." + (std::islower(letters[i]) ? "other\n" : "main\n");
    const auto tasks = lm::parseHelpMap(map, "App", "main").tasks;
    std::string text;
    int depth = 0;
    for (const lm::HelpEntry& entry : lm::helpEntries(tasks)) {
        for (; depth > entry.depth; --depth)
            text += ")";
        text += tasks[entry.task].label + (entry.isGroup ? "(" : "");
        depth = entry.depth + entry.isGroup;
    }
    return text + std::string(static_cast<size_t>(depth), ')');
}

/// Which kinds of help a map tells of, and how many tasks.
static std::string kinds(std::string_view text)
{
    const lm::HelpMap map = lm::parseHelpMap(text, "App", "main");
    return (map.context ? "c"s : "") + (map.overview ? "o" : "") + (map.keys ? "k" : "") + (map.tutorial ? "t" : "") +
           (map.index ? "i" : "") + std::to_string(map.tasks.size());
}

/// "root: topic topic", with "..." behind a section that the file ends; "-" when there is none.
static std::string section(const std::string& text)
{
    const auto found = lm::readHelpSection(text, "FieldHelp");
    if (!found)
        return "-";
    std::string result = found->root + ":";
    for (const std::string& topic : found->topics)
        result += " " + topic;
    return result + (found->isClosed ? "" : "...");
}

TEST(HelpMapModel, LinesTellWhatHelpThereIs)
{
    const std::string cases[][2] = {{"", "0"},
                                    {"#1\n 1\n\n;;;\n", "0"},
                                    {"1", "coi0"},
                                    {"3\n;;4;\n", "ckti0"},
                                    {" 1\n\t1", "coi0"},
                                    {"x", "ci0"},
                                    {"2;name;label;0\n", "ci0"},
                                    {"2;n;l;0;k", "ci1"},
                                    {"2;n;;l;;0;;k;;;s;", "ci1"},
                                    {"1x;2\r\n", "coi0"},
                                    {"\0\n3"s, "cki0"},
                                    {"3\0\n"s, "cki0"},
                                    {std::string(20000, '2') + "\n3;" + std::string(20000, 'x') + "\n1", "coki0"}};
    for (const auto& [map, expected] : cases)
        EXPECT_EQ(kinds(map), expected) << map;
}

TEST(HelpMapModel, ScopesSayWhereATaskIsShown)
{
    const auto shown = [](const char* scopes, const char* shell) {
        return lm::parseHelpMap("2;n;l;0;key"s + scopes, "App", shell).tasks.at(0).visible;
    };
    for (const char* scopes : {";App.main", ";App.main.form", ";X.y;App.main;Z", ";App.other;App.main"})
        EXPECT_TRUE(shown(scopes, "main")) << scopes;
    for (const char* scopes : {"", ";App", ";App.", ";App.mai", ";App.mainWindow", ";Application.main", ";app.main", ";X.main"})
        EXPECT_FALSE(shown(scopes, "main")) << scopes;
    EXPECT_TRUE(shown(";App.other", nullptr));
    EXPECT_FALSE(shown(";App", nullptr));
}

TEST(HelpMapModel, LevelsMakeSubmenus)
{
    const char* const cases[][2] = {{"A0B1C1D0", "A(BC)D"}, {"A0B2C1D2E0", "A(BC(D))E"}, {"a0B1C1D0", "BCD"}, {"A0b1C2", "A(C)"},
                                    {"A0b1c1", "A"},        {"A1B2C0D0", "CD"},          {"a0b0", ""}};
    for (const auto& [map, expected] : cases)
        EXPECT_EQ(menu(map), expected) << map;

    std::vector<lm::HelpTask> deep;
    for (int level : {-3, 1000000000})
        deep.push_back({true, "", "", level, ""});
    EXPECT_TRUE(lm::helpEntries(deep).empty());
    for (int level = 0; level < 50000; ++level)
        deep.push_back({true, "", "", level, ""});
    const auto entries = lm::helpEntries(deep);
    ASSERT_EQ(entries.size(), 50000U);
    EXPECT_TRUE(entries[63].isGroup);
    EXPECT_FALSE(entries[64].isGroup);
    EXPECT_EQ(entries.back().depth, 64);
}

TEST(HelpMapModel, TheLocaleHasAFolderOfItsOwn)
{
    using Places = std::vector<std::string>;
    for (const char* none : {"C", "../etc", static_cast<const char*>(nullptr)})
        EXPECT_EQ(lm::placesOfHelpMap("/usr/share/help/", none, "App"), Places{"/usr/share/help/App.helpmap"});
    EXPECT_EQ(lm::placesOfHelpMap("/h/", "C.UTF-8", "App"), (Places{"/h/C.UTF-8/App.helpmap", "/h/App.helpmap"}));
}

TEST(HelpMapModel, SectionsOfIndexMapFiles)
{
    const std::string cases[][2] = {
        {"x\nFieldHelp of all\nroot\na/b c\n\nd\te\nFieldHelp x\ny\n", "root: a/b d"},
        {"FieldHelp\nFieldHelp\nroot\nFieldHelp", "-"},
        {"FieldHelp\nroot\ntopic", "root: topic..."},
        {"FieldHelp", "-"},
        {" FieldHelp\nroot", "-"},
        {"FieldHelp\nr\0oot\n"s + std::string(5000, 'x') + "\nFieldHelp", "r: " + std::string(4096, 'x')},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(section(text), expected) << text;
}
