// Words.h: sizes as people write them, and paths as a shell reads them. Plain C++, without a display.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// How sizes are written.
enum class Units {
    Decimal,   ///< 1.2 MB
    Binary,    ///< 1.2 MiB
    Bytes      ///< 1234567 B
};

/// The size, with one digit behind the point and the largest unit of which there is a whole one.
std::string sizeText(std::int64_t bytes, Units units);

/// Reads "100 MB", "1.5g", "64 KiB" or "4096"; nothing for anything else.
std::optional<std::int64_t> readSize(std::string_view text);

/// A name for the screen: UTF-8 on one line.
std::string shownName(std::string_view name);

/// A command line for sh: the command with the path as its last word.
std::string commandOn(std::string_view command, std::string_view path);
