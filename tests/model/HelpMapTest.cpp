#include <gtest/gtest.h>

#include "base/help/HelpMap.h"

static std::string repeated(const std::string& text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

/// The menu of a map in the window "main" of the class App: "Group(A B) C".
static std::string menu(const std::string& map)
{
    const auto tasks = lm::parseHelpMap(map, "App", "main").tasks;
    std::string text;
    int depth = 0;
    for (const lm::HelpEntry& entry : lm::helpEntries(tasks)) {
        text += repeated(")", depth - entry.depth) + (text.empty() || text.back() == '(' ? "" : " ") + tasks[entry.task].label;
        text += entry.isGroup ? "(" : "";
        depth = entry.depth + entry.isGroup;
    }
    return text + repeated(")", depth);
}

/// "2;task;A;0;key;App.main" for "A0"; a lower-case letter is a task of another window.
static std::string tasks(const std::string& short_)
{
    std::string map;
    for (size_t i = 0; i < short_.size(); i += 2)
        map += std::string("2;task;") + short_[i] + ";" + short_[i + 1] + ";key;" +
               (std::islower(short_[i]) ? "App.other\n" : "App.main\n");
    return map;
}

/// Which kinds of help a map tells of.
static std::string kinds(std::string_view text)
{
    const lm::HelpMap map = lm::parseHelpMap(text, "App", "main");
    return std::string(map.context ? "c" : "") + (map.overview ? "o" : "") + (map.keys ? "k" : "") + (map.tutorial ? "t" : "") +
           (map.index ? "i" : "") + std::to_string(map.tasks.size());
}

TEST(HelpMapModel, LinesTellWhatHelpThereIs)
{
    using namespace std::string_view_literals;
    const std::pair<std::string_view, const char*> cases[] = {{"", "0"},
                                                              {"1", "coi0"},
                                                              {"#1\n 1\n\n;;;\n", "0"},
                                                              {"3\n;;4;\n", "ckti0"},
                                                              {"9;1\n", "ci0"},
                                                              {"x", "ci0"},
                                                              {" 1\n\t1", "coi0"},
                                                              {"2;name;label;0\n", "ci0"},
                                                              {"2;n;l;0;k", "ci1"},
                                                              {"\0"
                                                               "1\n1\0;2"sv,
                                                               "coi0"},
                                                              {"2;n;;l;;0;;k;;;s;", "ci1"},
                                                              {"1x;2\r\n", "coi0"}};
    for (const auto& [map, expected] : cases)
        EXPECT_EQ(kinds(map), expected) << map;
    EXPECT_EQ(kinds(repeated("2", 20000) + "\n3;" + repeated("x;", 20000) + "\n1"), "coki0");
}

TEST(HelpMapModel, ScopesSayWhereATaskIsShown)
{
    const auto shown = [](const char* scopes, const char* shell) {
        return lm::parseHelpMap(std::string("2;n;l;0;key") + scopes, "App", shell).tasks.at(0).visible;
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
    const char* const cases[][2] = {
        {"A0B1C1D0", "A(B C) D"}, {"A0B2C1D2E0", "A(B C(D)) E"}, {"a0B1C1D0", "B C D"}, {"A0b1C2", "A(C)"},    {"A0b1c1", "A"},
        {"A1B2C0D0", "C D"},      {"A0b1C2d1", "A(C)"},          {"a0b0", ""},          {"A0B1c0D1", "A(B) D"}};
    for (const auto& [map, expected] : cases)
        EXPECT_EQ(menu(tasks(map)), expected) << map;
    EXPECT_EQ(
        menu("2;t;A;0;k;App.main\n2;t;B;-3;k;App.main\n2;t;C;1;k;App.main\n2;t;D;0;k;App.main\n2;t;E;1000000000;k;App.main\n"),
        "A D(E)");

    std::string deep;
    for (int i = 0; i < 50000; ++i)
        deep += "2;t;x;" + std::to_string(i) + ";k;App.main\n";
    const auto entries = lm::helpEntries(lm::parseHelpMap(deep, "App", "main").tasks);
    ASSERT_EQ(entries.size(), 50000U);
    EXPECT_EQ(entries[64].depth, 64);
    EXPECT_FALSE(entries[64].isGroup);
    EXPECT_EQ(entries.back().depth, 64);
}

TEST(HelpMapModel, TheLocaleHasAFolderOfItsOwn)
{
    using Places = std::vector<std::string>;
    EXPECT_EQ(lm::placesOfHelpMap("/usr/share/help/", "C", "App"), Places{"/usr/share/help/App.helpmap"});
    EXPECT_EQ(lm::placesOfHelpMap("x", nullptr, "App"), Places{"xApp.helpmap"});
    EXPECT_EQ(lm::placesOfHelpMap("/h/", "../etc", "App"), Places{"/h/App.helpmap"});
    EXPECT_EQ(lm::placesOfHelpMap("/h/", "C.UTF-8", "App"), (Places{"/h/C.UTF-8/App.helpmap", "/h/App.helpmap"}));
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

TEST(HelpMapModel, SectionsOfIndexMapFiles)
{
    const std::string cases[][2] = {
        {"x\nFieldHelp of all\nroot\na/b c\n\nd\te\nFieldHelp x\ny\n", "root: a/b d"},
        {"TransHelp\nt\nTransHelp\nFieldHelp\nroot\nFieldHelp\nFieldHelp\nmore\n", "root:"},
        {"FieldHelp\nFieldHelp\nroot\nFieldHelp", "-"},
        {"FieldHelp\nroot\ntopic", "root: topic..."},
        {"FieldHelp", "-"},
        {" FieldHelp\nroot", "-"},
        {"", "-"},
        {"FieldHelp\nr" + std::string(1, '\0') + "oot\n" + repeated("x", 5000) + "\nFieldHelp", "r: " + repeated("x", 4096)},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(section(text), expected) << text;
}
