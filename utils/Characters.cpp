#include "utils/Characters.h"

#include "support/text.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

static bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

lm::Units lm::localeUnits() { return MB_CUR_MAX > 1 ? Units::Utf8 : Units::Bytes; }

size_t lm::characterCount(std::string_view text, Units units)
{
    if (units == Units::Bytes)
        return text.size();
    return static_cast<size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

size_t lm::byteOffset(std::string_view text, size_t index, Units units)
{
    if (units == Units::Bytes)
        return std::min(index, text.size());
    size_t offset = 0;
    while (offset < text.size() && (index > 0 || !startsCharacter(text[offset]))) {
        ++offset;
        if (offset == text.size() || startsCharacter(text[offset]))
            --index;
    }
    return offset;
}

size_t lm::frontCut(std::string_view text, size_t excess)
{
    if (excess == 0)
        return 0;
    const size_t newline = text.find('\n', excess - 1);
    if (newline < text.size() - 1)
        return newline + 1;
    while (excess < text.size() && !startsCharacter(text[excess]))
        ++excess;
    return excess;
}

// --- decoding ----------------------------------------------------------------------------------------------------------

/// How many of eight bytes, from the first, are ASCII and not NUL: eight or unknown (0).
static size_t plainEight(const char* bytes)
{
    constexpr std::uint64_t ones = 0x0101010101010101, highs = 0x8080808080808080;
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    return ((eight | (eight - ones)) & highs) == 0 ? 8 : 0;
}

/// The length of the well-formed text without NUL that the bytes start with.
static size_t wellFormedLength(std::string_view bytes)
{
    size_t length = 0;
    while (length < bytes.size()) {
        const std::string_view rest = bytes.substr(length);
        size_t step = rest.size() >= 8 ? plainEight(rest.data()) : 0;
        if (step == 0)
            step = rest[0] == '\0' ? 0 : lm::utf8Length(rest);
        if (step == 0)
            break;
        length += step;
    }
    return length;
}

/// The length of what starts no character, at the start of the bytes.
static size_t brokenLength(std::string_view bytes)
{
    size_t length = 0;
    while (length < bytes.size() && lm::utf8Length(bytes.substr(length)) == 0)
        ++length;
    return length;
}

static void appendText(std::string_view bytes, std::string& text)
{
    while (!bytes.empty()) {
        const size_t good = wellFormedLength(bytes);
        text += bytes.substr(0, good);
        bytes.remove_prefix(good);
        if (bytes.empty())
            return;
        const size_t bad = bytes[0] == '\0' ? 1 : brokenLength(bytes);
        text += bytes[0] == '\0' ? "\xEF\xBF\xBD" : lm::toUtf8(bytes.substr(0, bad));
        bytes.remove_prefix(bad);
    }
}

void lm::TextDecoder::decode(std::string_view bytes, std::string& text)
{
    if (_units == Units::Bytes) {
        const size_t before = text.size();
        text += bytes;
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(before), text.end(), '\0', '?');
        return;
    }
    std::string joined;
    if (!_partial.empty()) {
        joined = std::exchange(_partial, {}).append(bytes);
        bytes = joined;
    }
    const std::string_view whole = withoutPartialEnd(bytes);
    _partial = bytes.substr(whole.size());
    appendText(whole, text);
}

void lm::TextDecoder::finish(std::string& text) { text += toUtf8(std::exchange(_partial, {})); }
