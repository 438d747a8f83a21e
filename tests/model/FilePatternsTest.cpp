#include "components/FilePatterns.h"
#include "components/CanonicalPath.h"

#include <gtest/gtest.h>

#include <map>

TEST(FilePatternsModel, ANameIsOneWord)
{
    EXPECT_EQ(lm::shellWord("a b"), "'a b'");
    EXPECT_EQ(lm::shellWord("it's"), R"('it'\''s')");
    EXPECT_EQ(lm::shellWord(""), "''");
    EXPECT_FALSE(lm::holdsPattern("a;b`c`(d)"));
    for (const char* pattern : {"*", "a?", "[", "b]", "~", "x$"})
        EXPECT_TRUE(lm::holdsPattern(pattern)) << pattern;
}

TEST(FilePatternsModel, OnlyPatternsActInWhatIsTyped)
{
    const struct {
        const char *typed, *words;
    } cases[] = {
        {"*.c", "*.c"},
        {"  a*\tb?\n", "a* b?"},
        {"[a-z]*[!0-9^x]", "[a-z]*[!0-9^x]"},
        {"*; rm -rf /", "*';' rm ./-rf /"},
        {"*|cat>x&", "*'|'cat'>'x'&'"},
        {"`a`$(b)*", "'`'a'`$('b')'*"},
        {"$HOME/*", "\"${HOME}\"/*"},
        {"${A_1}x $B-c", "\"${A_1}\"x \"${B}\"-c"},
        {"${A:-`x`} ${} $ $$ $1 ${A", "'${'A:-'`'x'`}' '${}' '$' '$$' '$'1 '${'A"},
        {"~ ~joe/* a~ \\~", "~ ~joe/* a'~' '~'"},
        {"'a *'* \"b $C \\$D \\x\"", "'a *'* 'b '\"${C}\"' $D \\x'"},
        {"a\\ b* \\* *\\", "a' 'b* '*' *'\\'"},
        {"don't*", "don''\\'''t*"},
        {"'' \"\"*", "'' *"},
        {"-l* \"-l\" ''-l \\-l -", "./-l* ./'-l' ./-l ./'-'l ./-"},
        {"#* {a,b}* !*", "'#'* '{'a,b'}'* !*"},
        {"[;]*[\"!\"a]", "[';']*['!'a]"},
        {"\xC3\xA4*", "'\xC3\xA4'*"},
        {"", ""},
    };
    for (const auto& [typed, words] : cases)
        EXPECT_EQ(lm::shellPatterns(typed), words) << typed;
}

TEST(CanonicalPathModel, APathLosesItsDetours)
{
    const std::map<std::string, std::string> links = {{"/a/away", "/x/y"}, {"/a/near", "b/c"}, {"/a/up", ".."},
                                                      {"/a/loop", "loop"}, {"/a/one", "two"},  {"/a/two", "/a/one"}};
    const auto target = [&](const std::string& path) {
        const auto link = links.find(path);
        return link == links.end() ? std::nullopt : std::optional(link->second);
    };
    // clang-format off
    const char* const cases[][2] = {
        {"/", "/"}, {"//a///b//", "/a/b"}, {"/a/./b/.", "/a/b"}, {"/a/b/../c", "/a/c"}, {"/../..", "/"}, {"/a/b/../..", "/"},
        {"/a/away", "/a/away"}, {"/a/away/..", "/x"}, {"/a/away/../z", "/x/z"}, {"/a/near/../d", "/a/b/d"}, {"/a/up/..", "/"},
        {"/a/loop/../b", "/a/b"}, {"/a/one/../b", "/a/b"}, {"/a/..b/...", "/a/..b/..."}};
    // clang-format on
    for (const auto& [path, canonical] : cases)
        EXPECT_EQ(lm::canonicalPath(path, target), canonical) << path;

    EXPECT_EQ(lm::joinedPath("/", "a"), "/a");
    EXPECT_EQ(lm::absolutePath("b", "/a"), "/a/b");
    EXPECT_EQ(lm::absolutePath("/b", "/a"), "/b");
}
