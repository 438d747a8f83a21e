// XpmTemplate.h: XPM data in memory, checked before anybody reads it, and copies of it in other colours.
#pragma once

#include <X11/Xlib.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace lm {

/// What the first line of XPM data announces: that many colour lines follow, then `height` lines of pixels.
struct XpmHeader {
    int width = 0;      ///< in pixels, 1 to 32767
    int height = 0;     ///< in pixels, 1 to 32767
    int colors = 0;     ///< 1 to 65536
    int perPixel = 0;   ///< characters per pixel, 1 to 8

    bool operator==(const XpmHeader&) const = default;
};

/// Reads "width height colours characters", whatever follows; nothing for other text and for numbers out of their range.
std::optional<XpmHeader> parseXpmHeader(const char* line);

/// The header of data whose every announced line is there and long enough for what it should hold; nothing otherwise.
/// An array cannot tell its length: a null entry ends it, and one without must hold all lines that it announces.
std::optional<XpmHeader> checkXpm(const char* const* xpm);

/// A copy of XPM data whose header and colour lines are its own. The lines of pixels are the original's, which must
/// live as long.
class RecoloredXpm {
public:
    RecoloredXpm(RecoloredXpm&&) = default;   // a copy's lines would be the original's
    RecoloredXpm& operator=(RecoloredXpm&&) = default;

    /// For libXpm, which only reads; valid while this object lives.
    char** data() { return _lines.data(); }

private:
    RecoloredXpm() = default;
    friend std::optional<RecoloredXpm> recolorXpm(const char* const* xpm, std::span<const XColor> colors);

    std::vector<std::string> _own;
    std::vector<char*> _lines;
};

/// The data with the value of colour line i replaced by "#rrggbb" of colors[i]. Nothing unless checkXpm accepts the data,
/// it has one character per pixel and as many colour lines as there are colours, and all of these have the form
/// "X c #rrggbb" (pixel character, blank, c, blank, six hexadecimal digits; more may follow after a blank).
std::optional<RecoloredXpm> recolorXpm(const char* const* xpm, std::span<const XColor> colors);

}   // namespace lm
