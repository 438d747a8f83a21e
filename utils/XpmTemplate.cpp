#include "utils/XpmTemplate.h"

#include "support/resources.h"

#include <cctype>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr int maxSide = 32767;   // of anything that X draws
constexpr int maxColors = 65536;
constexpr int maxPerPixel = 8;

constexpr std::size_t valueStart = 4;   // of "X c #rrggbb"
constexpr std::size_t valueLength = 7;

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// The next number of a text, which is moved past it; 0, which none of the numbers may be, when there is none.
int nextNumber(std::string_view& text, int limit)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < 1 || number > limit)
        return 0;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return text.empty() || isBlank(text.front()) ? number : 0;
}

bool hasLength(const char* line, std::size_t length) { return line && strnlen(line, length) == length; }

bool isColorLine(const char* line)
{
    if (!hasLength(line, valueStart + valueLength) || !isBlank(line[1]) || line[2] != 'c' || !isBlank(line[3]) || line[4] != '#')
        return false;
    for (std::size_t i = valueStart + 1; i < valueStart + valueLength; ++i)
        if (!std::isxdigit(static_cast<unsigned char>(line[i])))
            return false;
    const char next = line[valueStart + valueLength];
    return next == '\0' || isBlank(next);
}

std::string inColor(std::string line, const XColor& color)
{
    char value[valueLength + 1];
    std::snprintf(value, sizeof value, "#%02x%02x%02x", color.red >> 8, color.green >> 8, color.blue >> 8);
    return line.replace(valueStart, valueLength, value);
}

}   // namespace

std::optional<lm::XpmHeader> lm::parseXpmHeader(const char* line)
{
    if (!line)
        return {};
    std::string_view text = line;
    XpmHeader header;
    header.width = nextNumber(text, maxSide);
    header.height = nextNumber(text, maxSide);
    header.colors = nextNumber(text, maxColors);
    header.perPixel = nextNumber(text, maxPerPixel);
    if (!header.width || !header.height || !header.colors || !header.perPixel)
        return {};
    return header;
}

std::optional<lm::XpmHeader> lm::checkXpm(const char* const* xpm)
{
    const std::optional<XpmHeader> header = xpm ? parseXpmHeader(xpm[0]) : std::nullopt;
    if (!header)
        return {};
    const auto perPixel = static_cast<std::size_t>(header->perPixel);
    const auto perRow = perPixel * static_cast<std::size_t>(header->width);
    for (int i = 1; i <= header->colors + header->height; ++i)
        if (!hasLength(xpm[i], i <= header->colors ? perPixel : perRow))
            return {};
    return header;
}

std::optional<lm::RecoloredXpm> lm::recolorXpm(const char* const* xpm, std::span<const XColor> colors)
{
    const std::optional<XpmHeader> header = checkXpm(xpm);
    if (!header || header->perPixel != 1 || header->colors != std::ssize(colors))
        return {};
    RecoloredXpm copy;
    copy._own.reserve(colors.size() + 1);   // the lines must stay where they are
    copy._own.emplace_back(xpm[0]);
    for (const XColor& color : colors) {
        const char* line = xpm[copy._own.size()];
        if (!isColorLine(line))
            return {};
        copy._own.push_back(inColor(line, color));
    }
    for (std::string& line : copy._own)
        copy._lines.push_back(line.data());
    for (int i = 0; i < header->height; ++i)
        copy._lines.push_back(xtText(xpm[1 + header->colors + i]));
    return copy;
}
