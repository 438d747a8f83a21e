#include "process/OutputQueue.h"
#include "utils/Characters.h"
#include "utils/InputLine.h"

#include <gtest/gtest.h>

using lm::Units;

static std::string decoded(std::initializer_list<std::string_view> pieces, Units units = Units::Utf8)
{
    lm::TextDecoder decoder(units);
    std::string text;
    for (std::string_view piece : pieces)
        decoder.decode(piece, text);
    decoder.finish(text);
    return text;
}

TEST(TextDecoderModel, MendsWhatIsBrokenAndWaitsForWhatIsCut)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(decoded({"abc\xff"
                       "def\0\n"sv}),
              "abc\uFFFDdef\uFFFD\n");
    EXPECT_EQ(decoded({"eight or more \xE2\x82", "\xAC and on"}), "eight or more € and on");
    EXPECT_EQ(decoded({"\xF0", "\x9F", "\x98", "\x80"}), "😀");
    EXPECT_EQ(decoded({"\xE2\x82", "x"}), "\uFFFDx");
    EXPECT_EQ(decoded({"end \xC3"}), "end \uFFFD");
    EXPECT_EQ(decoded({"12345678\0"sv, "\xED\xA0\x80 \xC0\xAF"}), "12345678\uFFFD\uFFFD\uFFFD\uFFFD \uFFFD\uFFFD");
    EXPECT_EQ(decoded({"\xff\0"sv}, Units::Bytes), "\xff?");
}

TEST(InputLineModel, IsEditedByCharacters)
{
    lm::InputLine line(Units::Utf8);
    line.insert(0, "größe");
    line.insert(3, "€");
    EXPECT_EQ(line.text(), "grö€ße");
    EXPECT_EQ(line.length(), 6U);
    EXPECT_FALSE(line.erase(4, 3));
    EXPECT_TRUE(line.erase(2, 2));
    EXPECT_EQ(line.text(), "grße");
    line.insert(99, " über  ");
    EXPECT_EQ(line.lastWordLength(), 6U);
    EXPECT_TRUE(line.erase(line.length() - 6, 6));
    EXPECT_EQ(line.text(), "grße ");
    EXPECT_EQ(line.lastWordLength(), 5U);
    EXPECT_EQ(lm::byteOffset("aß€", 2, Units::Utf8), 3U);
    EXPECT_EQ(lm::byteOffset("aß€", 9, Units::Utf8), 6U);
}

TEST(OutputQueueModel, GivesWholeLinesAndForgetsTheOldest)
{
    EXPECT_EQ(lm::frontCut("one\ntwo\nthree", 1), 4U);
    EXPECT_EQ(lm::frontCut("one\ntwo\nthree", 4), 4U);
    EXPECT_EQ(lm::frontCut("one\ntwo\nthree", 5), 8U);
    EXPECT_EQ(lm::frontCut("a€€\n", 2), 4U);   // the only line, within which no character is cut

    lm::OutputQueue queue;
    queue.tail() = "one\ntwo\n€uro";
    EXPECT_EQ(queue.slice(6), "one\n");
    queue.pop(8);
    EXPECT_EQ(queue.slice(4), "€u");
    EXPECT_EQ(queue.slice(100), "€uro");
    queue.clear();
    for (int i = 0; i < 100; ++i)
        queue.tail() += std::to_string(100 + i) + "\n";
    EXPECT_FALSE(queue.keepNewest(350));
    EXPECT_TRUE(queue.keepNewest(101));
    EXPECT_EQ(queue.size(), 100U);
    EXPECT_EQ(queue.slice(4), "175\n");
}
