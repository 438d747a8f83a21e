#include "LabelText.h"

#include "support/handles.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace lm {

namespace {

// The bytes of a short compound string: type and tag, length of the text, rendition, reference count; then the text.
constexpr std::size_t HeaderSize = 4, LengthByte = 1, CountByte = 3, LongestText = 255;
constexpr unsigned CountOne = 1U << 2;

using Header = std::array<char, HeaderSize>;

/// The text with a NUL at its end, and the key with one, behind a copy of the header.
XmString assembled(const Header& header, std::string_view text, const char* key)
{
    const std::size_t keySize = key ? std::strlen(key) + 1 : 0;
    char* block = XtMalloc(static_cast<Cardinal>(HeaderSize + text.size() + 1 + keySize));
    std::memcpy(block, header.data(), HeaderSize);
    block[LengthByte] = static_cast<char>(text.size());
    std::memcpy(block + HeaderSize, text.data(), text.size());
    block[HeaderSize + text.size()] = '\0';
    if (key)
        std::memcpy(block + HeaderSize + text.size() + 1, key, keySize);
    return reinterpret_cast<XmString>(block);
}

unsigned count(XmString string) { return static_cast<unsigned char>(reinterpret_cast<const char*>(string)[CountByte]) & ~3U; }

/// Whether a string that we put together is in every way the one that Motif makes of the text.
bool isMotifsOwn(const Header& header, const char* text)
{
    const XmText ours(assembled(header, text, "key")), theirs(XmStringCreateLocalized(const_cast<char*>(text)));
    if (!XmStringByteCompare(ours.get(), theirs.get()) || count(ours.get()) != CountOne)
        return false;
    const XmText copy(XmStringCopy(ours.get()));
    return copy.get() == ours.get() && count(ours.get()) == 2 * CountOne;
}

/// The header of Motif's own short strings, or an empty one when they are not what we know.
Header motifsHeader()
{
    const char sample[] = "aB3";
    const XmText string(XmStringCreateLocalized(const_cast<char*>(sample)));
    const char* bytes = reinterpret_cast<const char*>(string.get());
    Header header{};
    if (XmVersion != xmUseVersion || bytes[LengthByte] != std::ssize(sample) - 1 ||
        std::memcmp(bytes + HeaderSize, sample, sizeof sample - 1) != 0)
        return header;
    std::memcpy(header.data(), bytes, HeaderSize);
    return isMotifsOwn(header, "x") && isMotifsOwn(header, "A label, and its \xc3\xa4") ? header : Header{};
}

/// Newlines and tabs make Motif cut the text into several parts.
bool isShortLine(std::string_view text)
{
    if (text.empty() || text.size() > LongestText)
        return false;
    return std::none_of(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\t'; });
}

}   // namespace

LabelText makeLabel(const char* text, const char* key)
{
    static const Header header = motifsHeader();
    const std::string_view line = text ? text : "";
    const char* ownKey = key ? key : "";
    if (header == Header{} || !isShortLine(line))
        return {.label = XmStringCreateLocalized(const_cast<char*>(line.data()))};
    const bool keyFollows = line != ownKey;
    return {.label = assembled(header, line, keyFollows ? ownKey : nullptr), .inOneBlock = true, .keyFollows = keyFollows};
}

const char* textOf(XmString label) { return reinterpret_cast<const char*>(label) + HeaderSize; }

const char* keyOf(XmString label, bool keyFollows)
{
    const char* text = textOf(label);
    return keyFollows ? text + static_cast<unsigned char>(reinterpret_cast<const char*>(label)[LengthByte]) + 1 : text;
}

}   // namespace lm
