#include "Words.h"

#include <Lm/support/text.h>

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>

std::string sizeText(std::int64_t bytes, Units units)
{
    static constexpr std::array<std::array<const char*, 5>, 2> names = {
        {{"B", "kB", "MB", "GB", "TB"}, {"B", "KiB", "MiB", "GiB", "TiB"}}};
    const bool isBinary = units == Units::Binary;
    const double step = isBinary ? 1024 : 1000;
    auto value = static_cast<double>(bytes);
    std::size_t unit = 0;
    while (units != Units::Bytes && unit + 1 < names[0].size() && std::round(value * 10) / 10 >= step) {
        value /= step;
        ++unit;
    }
    std::array<char, 40> text = {};
    if (unit == 0)
        std::snprintf(text.data(), text.size(), "%lld B", static_cast<long long>(bytes));
    else
        std::snprintf(text.data(), text.size(), "%.1f %s", value, names[isBinary ? 1 : 0][unit]);
    return text.data();
}

std::optional<std::int64_t> readSize(std::string_view text)
{
    while (text.starts_with(' '))
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !(value >= 0))
        return {};
    std::string unit;
    for (const char c : text.substr(static_cast<std::size_t>(end - text.data())))
        if (c != ' ')
            unit += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (unit.ends_with('b'))
        unit.pop_back();
    const double step = unit.ends_with('i') ? 1024 : 1000;
    if (unit.size() == 2 && unit.ends_with('i'))
        unit.pop_back();
    const auto power = std::string_view("kmgt").find(unit);
    if (unit.size() > 1 || power == std::string_view::npos)
        return {};
    value *= unit.empty() ? 1 : std::pow(step, static_cast<double>(power + 1));
    return value < 9e18 ? std::optional(static_cast<std::int64_t>(value)) : std::nullopt;
}

std::string shownName(std::string_view name)
{
    std::string text = lm::toUtf8(name);
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == 127)
            c = '?';
    return text;
}

std::string commandOn(std::string_view command, std::string_view path)
{
    std::string line(command);
    line += " '";
    for (const char c : path)
        if (c == '\'')
            line += "'\\''";
        else
            line += c;
    return line + "'";
}
