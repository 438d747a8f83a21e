#include "support/text.h"

#include <algorithm>

static unsigned char byteAt(std::string_view text, size_t i) { return static_cast<unsigned char>(text[i]); }

static bool continues(std::string_view text, size_t i) { return i < text.size() && (byteAt(text, i) & 0xC0) == 0x80; }

/// The length that a first byte announces; 0 for a byte that starts no character.
static size_t announcedLength(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first < 0xC2)   // a continuation byte, or an overlong form of ASCII
        return 0;
    if (first < 0xE0)
        return 2;
    if (first < 0xF0)
        return 3;
    return first < 0xF5 ? 4 : 0;
}

/// Whether the second byte keeps the character out of the overlong forms, the surrogates and what lies above U+10FFFF.
static bool secondFits(unsigned char first, unsigned char second)
{
    switch (first) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

size_t lm::utf8Length(std::string_view text)
{
    if (text.empty())
        return 0;
    const size_t length = announcedLength(byteAt(text, 0));
    for (size_t i = 1; i < length; ++i) {
        if (!continues(text, i) || (i == 1 && !secondFits(byteAt(text, 0), byteAt(text, 1))))
            return 0;
    }
    return length;
}

/// How many bytes one U+FFFD stands for: the longest start of a character that then breaks off, at least one byte.
static size_t brokenLength(std::string_view text)
{
    const size_t length = announcedLength(byteAt(text, 0));
    size_t i = 1;
    while (i < length && continues(text, i) && (i > 1 || secondFits(byteAt(text, 0), byteAt(text, 1))))
        ++i;
    return i;
}

bool lm::isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const size_t length = utf8Length(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string lm::toUtf8(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const size_t length = utf8Length(bytes);
        text += length ? bytes.substr(0, length) : std::string_view("\xEF\xBF\xBD");
        bytes.remove_prefix(length ? length : brokenLength(bytes));
    }
    return text;
}

std::string_view lm::withoutPartialEnd(std::string_view text)
{
    for (size_t length = 1; length <= std::min<size_t>(3, text.size()); ++length) {
        const std::string_view end = text.substr(text.size() - length);
        if (continues(end, 0))
            continue;
        const bool breaksOff = announcedLength(byteAt(end, 0)) > length && brokenLength(end) == length;
        return breaksOff ? text.substr(0, text.size() - length) : text;
    }
    return text;
}

std::string_view lm::utf8Prefix(std::string_view text, size_t limit)
{
    return text.size() <= limit ? text : withoutPartialEnd(text.substr(0, limit));
}
