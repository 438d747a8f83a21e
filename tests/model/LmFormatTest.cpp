#include <gtest/gtest.h>

#include "LmFormat.h"
#include "imsg.h"

#include <memory>
#include <string>

TEST(FormatModel, TakesItsPreviousResultAsArgumentAndAsFormat)
{
    const char* path = LmFormat("%s.%s", LmFormat("%s.%d", "window", 7), "list");
    EXPECT_STREQ(LmFormat("<%s%s>", path, path), "<window.7.listwindow.7.list>");
}

TEST(FormatModel, CutsAt1023BytesButNotInsideACharacter)
{
    EXPECT_EQ(LmFormat("%s", std::string(5000, 'x').c_str()), std::string(1023, 'x'));
    const std::string filler(1022, 'x');
    EXPECT_EQ(LmFormat("%sü", filler.c_str()), filler);
    EXPECT_EQ(LmFormat("%süü", filler.substr(1).c_str()), filler.substr(1) + "ü");
    EXPECT_EQ(LmFormat("%s\xF0\x9F\x98\x80", filler.substr(2).c_str()), filler.substr(2));
    EXPECT_EQ(LmFormat("%s", std::string(2000, '\x80').c_str()), std::string(1023, '\x80'));   // no UTF-8: cut anywhere
}

TEST(FormatModel, JoinsLeaveOutWhatIsNull)
{
    using Owner = std::unique_ptr<char[]>;
    const auto joined = [](const char* a, const char* b) { return std::string(Owner(strdotconcat(a, b)).get()); };
    EXPECT_EQ(joined("a", "b") + joined(nullptr, "b") + joined("a", nullptr) + joined("", ""), "a.bba.");
}

TEST(FormatModel, MessagesSkipTheThirdArgument)
{
    char buffer[80];
    EXPECT_EQ(imsg_sprintf(buffer, "%-*s|%s", -1, 6, "lib", "1.0"), 10);
    EXPECT_STREQ(buffer, "lib   |1.0");
}
