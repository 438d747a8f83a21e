#include <gtest/gtest.h>

#include "base/core/WindowTitle.h"

TEST(WindowTitleModel, TheTreesNameFollowsTheTitle)
{
    EXPECT_EQ(lm::titleInTree("Editor", nullptr), "Editor");
    EXPECT_EQ(lm::titleInTree("Editor", "alpha"), "Editor");
    EXPECT_EQ(lm::titleInTree("Editor", "/views/alpha"), "Editor (alpha)");
    const std::string cut = lm::titleInTree(std::string(1020, 'x').c_str(), "/\xc3\xa4");
    EXPECT_EQ(cut.size(), 1022U);   // 1020 + " ("; the two bytes of the letter would not fit, half of it is not shown
}
