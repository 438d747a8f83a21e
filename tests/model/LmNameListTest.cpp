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

std::string owned(char* text) { return lm::CString(text).get(); }

std::string asText(const LmNameList& list)
{
    std::string text;
    for (int i = 0; i < list.size(); ++i)
        text += owned(list[i]) + "|";
    return text;
}

/// What a text completes to: "<matches> <completed> <names>".
std::string completion(const LmNameList& names, std::string text)
{
    char* completed = nullptr;
    int count = -1;
    const std::unique_ptr<LmNameList> matches(names.completeName(text.data(), completed, count));
    return std::to_string(count) + " " + owned(completed) + " " + asText(*matches);
}

}   // namespace

TEST(NameListModel, KeepsCopiesInOrderWithDuplicates)
{
    LmNameList list("b");
    list.add(listOf({"a", "b", "c"}));
    list.add(list);
    list.add(static_cast<const char*>(nullptr));
    for (const char* name : {"b", "x", static_cast<const char*>(nullptr)})
        list.remove(name);
    EXPECT_EQ(asText(list), "a|b|c|b|a|b|c|");
    list.reverse();
    list.removeDuplicates();
    list = *&list;
    EXPECT_EQ(asText(list), "a|b|c|");
    EXPECT_TRUE(!list[-1] && !list[3]);

    list.add(listOf({"\xC3\xA4", "z", "B", ""}));
    list.sort();
    EXPECT_EQ(asText(list), "|B|a|b|c|z|\xC3\xA4|") << "bytes are unsigned";
}

TEST(NameListModel, CompletesATextOrGivesBackWhatOfItIsKnown)
{
    const LmNameList names = listOf({"alpha", "alphabet", "beta"});
    EXPECT_EQ(completion(names, "al"), "2 alpha alpha|alphabet|");
    EXPECT_EQ(asText(names["al"]), "alpha|alphabet|");
    EXPECT_EQ(completion(names, "alx"), "0 al ");
    EXPECT_EQ(completion(names, ""), "3  alpha|alphabet|beta|");
    EXPECT_EQ(completion(names, "alphabets" + std::string(3000, 's')), "0 alphabet ");
    EXPECT_EQ(completion(LmNameList(), "al"), "0  ");
}

TEST(CompleterModel, CompletesShortensAndTellsWhatIsUnique)
{
    const char* names[] = {"beta", "alphabet", "\xC3\xA4rger", "alpha", nullptr, "never"};
    const LmCompleter completer(names);
    std::string answers;
    for (const char* text : {"al", "alphab", "bex", "x", "", "\xC3", "never", static_cast<const char*>(nullptr)}) {
        int unique = -1;
        answers += owned(completer.getCompletedName(text, unique));
        answers += " " + std::to_string(unique) + "|";
    }
    EXPECT_EQ(answers, "alpha 0|alphabet 1|be 1| 0| 0|\xC3\xA4rger 1| 0| 0|");
}

TEST(ItemSearchModel, FindsATextAnywhereInAnyCase)
{
    EXPECT_TRUE(lm::ItemSearch("aB").occursIn("xAAb") && !lm::ItemSearch("abc").occursIn("ab"));
}

TEST(ArgumentTextModel, CarriesEveryArgumentThereAndBack)
{
    const auto carried = [](const LmNameList& list) { return asText(lm::splitArguments(lm::joinArguments(list))); };
    EXPECT_EQ(lm::joinArguments(listOf({"a b", ""})), std::string("a b\0\0", 5));
    EXPECT_EQ(carried(listOf({"a b", "", "\xC3\xA4", ""})) + carried(LmNameList()), "a b||\xC3\xA4||");
    EXPECT_EQ(asText(lm::splitArguments(std::string_view("a\0b", 3))), "a|b|");
}
