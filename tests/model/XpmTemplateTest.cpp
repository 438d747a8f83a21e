#include <gtest/gtest.h>

#include "utils/XpmTemplate.h"

namespace {

const XColor shades[] = {{.red = 0xffff, .green = 0x80ff, .blue = 0x00ff}, {.red = 0x1234, .green = 0xabcd, .blue = 0}};

std::optional<lm::RecoloredXpm> recolored(std::vector<const char*> lines)
{
    lines.push_back(nullptr);
    return lm::recolorXpm(lines.data(), shades);
}

}   // namespace

TEST(XpmTemplateModel, ColourValuesAreReplacedAndRowsShared)
{
    const char* const rows[] = {". +", "+.+"};
    auto copy = recolored({"3 2 2 1", ". c #000000", "+\tc\t#FfFfFf s other", rows[0], rows[1]});

    ASSERT_TRUE(copy);
    EXPECT_STREQ(copy->data()[0], "3 2 2 1");
    EXPECT_STREQ(copy->data()[1], ". c #ff8000");
    EXPECT_STREQ(copy->data()[2], "+\tc\t#12ab00 s other");
    EXPECT_EQ(copy->data()[3], rows[0]);
    EXPECT_EQ(copy->data()[4], rows[1]);

    lm::RecoloredXpm moved = std::move(*copy);
    EXPECT_STREQ(moved.data()[1], ". c #ff8000");
}

TEST(XpmTemplateModel, BrokenDataIsRefused)
{
    const char* const dot = ". c #000000";
    const char* const plus = "+ c #000000";
    EXPECT_TRUE(recolored({"2 1 2 1", dot, plus, ".+"}));
    for (const std::vector<const char*>& lines :
         std::initializer_list<std::vector<const char*>>{{},
                                                         {"2 1 2 1"},
                                                         {"2 1 2 1", dot},
                                                         {"2 1 2 1", dot, plus},
                                                         {"2 2 2 1", dot, plus, ".+"},   // lines are missing
                                                         {"2 1 2 1", dot, plus, "."},
                                                         {"2 1 2 1", dot, "+ c #00000", ".+"},   // short lines
                                                         {"2 1 2 1", dot, "+ c #00000g", ".+"},
                                                         {"2 1 2 1", dot, "+ c #000000000000", ".+"},   // other values
                                                         {"2 1 2 1", dot, "+ c None   ", ".+"},
                                                         {"2 1 2 1", dot, "++c #000000", ".+"},
                                                         {"2 1 2 1", dot, "+ s #000000", ".+"},
                                                         {"2 1 1 1", dot, ".+"},
                                                         {"2 1 3 1", dot, plus, plus, ".+"},
                                                         {"1 1 2 2", dot, plus, ".+"}})
        EXPECT_FALSE(recolored(lines)) << (lines.empty() ? "" : lines.back());
    EXPECT_FALSE(lm::recolorXpm(nullptr, shades));

    EXPECT_EQ(lm::parseXpmHeader(" 16\t17 300 2 1 1 XPMEXT"), (lm::XpmHeader{16, 17, 300, 2}));
    for (const char* header : {"", "x", "16 16 2", "0 1 2 1", "1 -1 2 1", "1 1 99999 1", "40000 1 2 1", "1 1 2 9", "1 1 2x 1",
                               "1 1 2 1x", "99999999999999999999 1 2 1", "1,1 2 1"})
        EXPECT_FALSE(lm::parseXpmHeader(header)) << header;
}
