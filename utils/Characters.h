// Characters.h: what a position of a text widget counts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lm {

/// Motif's text positions count characters; in locales whose characters are single bytes, bytes.
enum class Units { Bytes, Utf8 };

/// The units of the present locale.
Units localeUnits();

/// How many characters a text of whole characters has.
size_t characterCount(std::string_view text, Units units);

/// Where its character number `index` starts; the size of the text when there are not so many.
size_t byteOffset(std::string_view text, size_t index, Units units);

/// Where a text is cut that is to lose at least `excess` bytes (at most all) at its front: at the next line start, or
/// within a line when nothing would remain otherwise.
size_t frontCut(std::string_view text, size_t excess);

/// Turns bytes, as they arrive, into text of whole characters: what is no UTF-8 becomes U+FFFD, one for each broken
/// sequence, and so does a NUL byte, which no C string can hold. A character that breaks off waits for its rest. With
/// units of bytes, a NUL becomes '?' and nothing else changes.
class TextDecoder {
public:
    explicit TextDecoder(Units units) : _units(units) {}

    /// Appends the text of the next bytes.
    void decode(std::string_view bytes, std::string& text);
    /// No more bytes come: a character that waits is broken.
    void finish(std::string& text);

private:
    Units _units;
    std::string _partial;   // the start of a character
};

}   // namespace lm
