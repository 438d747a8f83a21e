// OutlineIcons.h: the arrows of an outline, as XPM data.
#pragma once

namespace lm {

// Their colours are symbols, so that the arrows take the list's shadows and background.
// clang-format off

/// A closed node: the arrow points right.
inline const char* closedIcon[] = {
    "14 14 4 1",
    "b c #5f728d s background",
    "  c #404c5e s bottomShadowColor",
    "a c #a7c7f6 s topShadowColor",
    "c c white",
    "bbbbbbbbbbbbbb",
    "bbbcbbbbbbbbbb",
    "bbbcaabbbbbbbb",
    "bbbcbbabbbbbbb",
    "bbbabbbaabbbbb",
    "bbbabbbbbabbbb",
    "bbbabbbbbbaabb",
    "bbbabbbbbb  bb",
    "bbbabbbbb bbbb",
    "bbbabbb  bbbbb",
    "bbbabb bbbbbbb",
    "bbba  bbbbbbbb",
    "bbb bbbbbbbbbb",
    "bbbbbbbbbbbbbb",
};

/// An open node: it points down.
inline const char* openIcon[] = {
    "14 14 4 1",
    "b c #5f728d s background",
    "  c #404c5e s bottomShadowColor",
    "a c #a7c7f6 s topShadowColor",
    "c c white",
    "bbbbbbbbbbbbbb",
    "bbbbbbbbbbbbbb",
    "bbbbbbbbbbbbbb",
    "bcccaaaaaaaa b",
    "bbabbbbbbbb bb",
    "bbabbbbbbbb bb",
    "bbbabbbbbb bbb",
    "bbbbabbbb bbbb",
    "bbbbabbbb bbbb",
    "bbbbbabb bbbbb",
    "bbbbbba bbbbbb",
    "bbbbbba bbbbbb",
    "bbbbbbbbbbbbbb",
    "bbbbbbbbbbbbbb",
};

/// A closed node above a highlighted one: the arrow is filled in the colour of the highlight.
inline const char* lightedClosedIcon[] = {
    "14 14 5 1",
    "b c #5f728d s background",
    "  c #404c5e s bottomShadowColor",
    "a c #a7c7f6 s topShadowColor",
    "c c white",
    "d c white s highlightColor",
    "bbbbbbbbbbbbbb",
    "bbbcbbbbbbbbbb",
    "bbbcaabbbbbbbb",
    "bbbcddabbbbbbb",
    "bbbadddaabbbbb",
    "bbbadddddabbbb",
    "bbbaddddddaabb",
    "bbbadddddd  bb",
    "bbbaddddd bbbb",
    "bbbaddd  bbbbb",
    "bbbadd bbbbbbb",
    "bbba  bbbbbbbb",
    "bbb bbbbbbbbbb",
    "bbbbbbbbbbbbbb",
};

// clang-format on

}   // namespace lm
