#include <gtest/gtest.h>

#include "support/text.h"

TEST(TextModel, BrokenUtf8BecomesReplacementCharacters)
{
    const std::string bad = "\xEF\xBF\xBD";
    struct Case {
        std::string bytes, shown;
    };
    for (const Case& c : {Case{"a\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80", "a\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"},   // well formed
                          Case{"\xc3(", bad + "("}, Case{"\xe2\x82(", bad + "("}, Case{"\xe2\x82", bad},            // broken off
                          Case{"\xc0\xaf", bad + bad}, Case{"\xed\xa0\x80", bad + bad + bad},   // overlong, surrogate
                          Case{"\xf4\x90\x80\x80", bad + bad + bad + bad}, Case{"\xff\x80", bad + bad}}) {
        EXPECT_EQ(lm::toUtf8(c.bytes), c.shown);
        EXPECT_EQ(lm::isUtf8(c.bytes), c.bytes == c.shown);
        EXPECT_TRUE(lm::isUtf8(lm::toUtf8(c.bytes)));
    }
}

TEST(TextModel, APrefixCutsNoCharacter)
{
    EXPECT_EQ(lm::utf8Prefix("a\xc3\xa4z", 9), "a\xc3\xa4z");
    EXPECT_EQ(lm::utf8Prefix("a\xc3\xa4z", 2), "a");
    EXPECT_EQ(lm::utf8Prefix("a\xc3\xa4z", 3), "a\xc3\xa4");
    EXPECT_EQ(lm::utf8Prefix("\xf0\x9f\x98\x80", 3), "");
    EXPECT_EQ(lm::withoutPartialEnd("a\xe2\x82"), "a");
    EXPECT_EQ(lm::utf8Prefix("\x80\x80\x80\x80\x80\x80", 5).size(), 5U);   // no text at all: cut as asked
}
