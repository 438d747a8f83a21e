// The shipped colour schemes, read as text: what must be legible is.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

using Colors = std::map<std::string, std::string>;   // "XmList.background" -> "#rrggbb"

Colors colorsOf(const std::string& scheme)
{
    std::ifstream file(LUMORA_SOURCE_DIR "/data/schemes/" + scheme);
    Colors colors;
    std::string name, value;
    for (std::string line; std::getline(file, line);) {
        const auto colon = line.find(':');
        if (line.starts_with('*') && colon != std::string::npos)
            colors[line.substr(1, colon - 1)] = line.substr(line.find_first_not_of(" \t", colon + 1));
    }
    return colors;
}

double luminance(const std::string& color)
{
    EXPECT_EQ(color.size(), 7U) << color;
    double sum = 0;
    for (const auto& [at, weight] : {std::pair{1, 0.2126}, {3, 0.7152}, {5, 0.0722}}) {
        const double c = std::stoi(color.substr(static_cast<std::size_t>(at), 2), nullptr, 16) / 255.0;
        sum += weight * (c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
    }
    return sum;
}

double contrast(const std::string& a, const std::string& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

}   // namespace

TEST(SchemesModel, TextStandsOutFromEveryGroundAndNoTopShadowIsItsGround)
{
    EXPECT_NEAR(contrast("#767676", "#ffffff"), 4.54, 0.01);

    for (const std::string scheme : {"LumoraLight", "LumoraDark", "LumoraHighContrast", "QR_Color", "QR_Gray"}) {
        auto colors = colorsOf(scheme);
        const auto expectLegible = [&](const std::string& text, const std::string& ground) {
            EXPECT_GE(contrast(colors[text], colors[ground]), scheme == "LumoraHighContrast" ? 7 : 4.5)
                << scheme << ": " << ground;
        };
        for (const std::string ground : {"background", "armColor", "buttonHighlight", "troughColor", "XmMenuShell*background"}) {
            expectLegible("foreground", ground);
            EXPECT_NE(colors["topShadowColor"], colors[ground]) << scheme << ": Motif draws such a shadow dotted";
        }
        for (const std::string toggle : {"XmToggleButton", "XmToggleButtonGadget"})
            expectLegible("foreground", toggle + ".selectColor");
        for (const std::string field : {"XmText", "XmTextField", "XmList"}) {
            expectLegible(field + ".foreground", field + ".background");
            EXPECT_NE(colors[field + ".topShadowColor"], colors[field + ".background"]) << scheme << ' ' << field;
        }
        expectLegible("XmList.foreground", "XmList.selectColor");
        EXPECT_EQ(colors["buttonBackground"], colors["background"]) << scheme << ": the pointer leaves it behind";
        EXPECT_GE(contrast(colors["highlightColor"], colors["background"]), 3) << scheme << ": the focus";
    }
}
