#include <gtest/gtest.h>

#include "LmCompleter.h"
#include "LmNameList.h"
#include "support/handles.h"
#include "utils/ArgumentText.h"
#include "utils/ItemSearch.h"

#include <memory>

namespace {

LmNameList listOf(std::initializer_list<const char*> names)
{
    LmNameList list;
    for (const char* name : names)
        list.add(name);
    return list;
}

std::string asText(const LmNameList& list)
{
    char** table = list;
    std::string text;
    for (char** entry = table; *entry; ++entry)
        text.append(*entry).append("|");
    FreeIdTable(table);
    return text;
}

std::string owned(char* text) { return lm::CString(text).get(); }

/// What a text completes to: "<matches> <completed> <names>".
std::string completion(const LmNameList& names, std::string text)
{
    char* completed = nullptr;
    int count = -1;
    const std::unique_ptr<LmNameList> matches(names.completeName(text.data(), completed, count));
    return std::to_string(count) + " " + owned(completed) + " " + asText(*matches);
}

/// What the completer answers: "<completed> <unique>".
std::string completed(const LmCompleter& completer, const char* text)
{
    int unique = -1;
    const std::string answer = owned(completer.getCompletedName(text, unique));
    return answer + " " + std::to_string(unique);
}

}   // namespace

TEST(NameListModel, KeepsCopiesInOrderWithDuplicates)
{
    LmNameList list("b");
    list.add(listOf({"a", "b", "c"}));
    list.add(list);
    list.add(static_cast<const char*>(nullptr));
    EXPECT_EQ(asText(list), "b|a|b|c|b|a|b|c|");

    for (const char* name : {"b", "x", static_cast<const char*>(nullptr)})
        list.remove(name);
    EXPECT_EQ(asText(list), "a|b|c|b|a|b|c|");
    EXPECT_EQ(list.exists("b") - list.exists("B"), 1);
    list.reverse();
    EXPECT_EQ(asText(list), "c|b|a|b|c|b|a|");
    list.removeDuplicates();
    EXPECT_EQ(asText(list), "a|b|c|");
    EXPECT_EQ(owned(list[2]), "c");
    EXPECT_EQ(list[-1], nullptr);
    EXPECT_EQ(list[3], nullptr);

    const LmNameList copy = list;
    list = *&list;
    EXPECT_EQ(copy == list, 1);
    list.reverse();
    EXPECT_EQ(copy == list, 0);
    list.clear();
    EXPECT_EQ(asText(list) + asText(copy), "a|b|c|");

    list.add(listOf({"\xC3\xA4", "z", "B", ""}));
    list.sort();
    EXPECT_EQ(asText(list), "|B|z|\xC3\xA4|") << "bytes are unsigned";
}

TEST(NameListModel, SelectsByPrefixAndFindsWhatNamesShare)
{
    const LmNameList names = listOf({"beta", "alphabet", "alpha"});
    EXPECT_EQ(asText(names["al"]), "alphabet|alpha|");
    EXPECT_EQ(asText(names[""]), "beta|alphabet|alpha|");
    EXPECT_EQ(asText(names["A"]), "");
    EXPECT_EQ(asText(LmNameList()[""]), "");

    EXPECT_EQ(owned(names["al"].mostCommonString()), "alpha");
    EXPECT_EQ(owned(listOf({"abc", "abd", "x"}).mostCommonString()), "");
    EXPECT_EQ(owned(LmNameList().mostCommonString()), "");
    const std::string longName(5000, 'n');
    EXPECT_EQ(owned(listOf({(longName + "1").c_str(), (longName + "2").c_str()}).mostCommonString()), longName);
}

TEST(NameListModel, CompletesATextOrGivesBackWhatOfItIsKnown)
{
    const LmNameList names = listOf({"alpha", "alphabet", "beta"});
    EXPECT_EQ(completion(names, "al"), "2 alpha alpha|alphabet|");
    EXPECT_EQ(completion(names, "b"), "1 beta beta|");
    EXPECT_EQ(completion(names, "alx"), "0 al ");
    EXPECT_EQ(completion(names, "x"), "0  ");
    EXPECT_EQ(completion(names, ""), "3  alpha|alphabet|beta|");
    EXPECT_EQ(completion(names, "alphabets" + std::string(3000, 's')), "0 alphabet ");
    EXPECT_EQ(completion(LmNameList(), "al"), "0  ");
}

TEST(CompleterModel, CompletesShortensAndTellsWhatIsUnique)
{
    const char* names[] = {"beta", "alphabet", "\xC3\xA4rger", "alpha", nullptr, "never"};
    LmCompleter completer(names);
    // clang-format off
    const std::pair<const char*, const char*> answers[] = {
        {"al", "alpha 0"}, {"alphab", "alphabet 1"}, {"be", "beta 1"}, {"alx", "al 0"}, {"bex", "be 1"}, {"x", " 0"},
        {"", " 0"}, {"\xC3", "\xC3\xA4rger 1"}, {"beta", "beta 1"}, {"betas", "beta 1"}, {nullptr, " 0"}};
    // clang-format on
    for (const auto& [text, answer] : answers)
        EXPECT_EQ(completed(completer, text), answer);

    const char* twice[] = {"c", "c", "d"};
    completer.setNameList(twice, 2);
    EXPECT_EQ(completed(completer, "c"), "c 0");
    EXPECT_EQ(completed(completer, "d"), " 0");
    EXPECT_EQ(completed(LmCompleter(), "c"), " 0");
    EXPECT_EQ(completed(LmCompleter(names + 4), "b"), " 0");
}

TEST(ItemSearchModel, FindsATextAnywhereInAnyCase)
{
    EXPECT_TRUE(lm::ItemSearch("aB").occursIn("xAAb"));
    EXPECT_TRUE(lm::ItemSearch("").occursIn(""));
    EXPECT_FALSE(lm::ItemSearch("ab").occursIn("a b"));
    EXPECT_FALSE(lm::ItemSearch("abc").occursIn("ab"));
}

TEST(ArgumentTextModel, CarriesEveryArgumentThereAndBack)
{
    const auto carried = [](const LmNameList& list) { return asText(lm::splitArguments(lm::joinArguments(list))); };
    EXPECT_EQ(lm::joinArguments(listOf({"a b", ""})), std::string("a b\0\0", 5));
    EXPECT_EQ(carried(listOf({"a b", "", "\xC3\xA4", ""})), "a b||\xC3\xA4||");
    EXPECT_EQ(carried(LmNameList("")), "|");
    EXPECT_EQ(carried(LmNameList()), "");
    EXPECT_EQ(asText(lm::splitArguments(std::string_view("a\0b", 3))), "a|b|");
}
