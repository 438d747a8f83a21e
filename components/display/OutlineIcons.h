// OutlineIcons.h: the arrows of an outline, as XPM data.
#pragma once

namespace lm {

// Their colours are symbols, so that the arrows take the list's shadows and background. The dark shadow goes all around: on a
// white list the light one alone would not be seen.
// clang-format off

/// A closed node: the arrow points right.
inline const char* closedIcon[] = {
    "14 14 4 1",
    "b c #5f728d s background",
    "  c #404c5e s bottomShadowColor",
    "a c #a7c7f6 s topShadowColor",
    "c c white",
    "bbbbbbbbbbbbbb",
    "bbb bbbbbbbbbb",
    "bbb   bbbbbbbb",
    "bbb aa bbbbbbb",
    "bbb caa  bbbbb",
    "bbb cbbaa bbbb",
    "bbb abbbaa  bb",
    "bbb abbbbb  bb",
    "bbb abbbb bbbb",
    "bbb abb  bbbbb",
    "bbb ab bbbbbbb",
    "bbb   bbbbbbbb",
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
    "b            b",
    "bb accaaaaa bb",
    "bb aabbbbbb bb",
    "bbb abbbbb bbb",
    "bbbb abbb bbbb",
    "bbbb aabb bbbb",
    "bbbbb ab bbbbb",
    "bbbbbb  bbbbbb",
    "bbbbbb  bbbbbb",
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
    "bbb bbbbbbbbbb",
    "bbb   bbbbbbbb",
    "bbb aa bbbbbbb",
    "bbb caa  bbbbb",
    "bbb cddaa bbbb",
    "bbb adddaa  bb",
    "bbb addddd  bb",
    "bbb adddd bbbb",
    "bbb add  bbbbb",
    "bbb ad bbbbbbb",
    "bbb   bbbbbbbb",
    "bbb bbbbbbbbbb",
    "bbbbbbbbbbbbbb",
};

// clang-format on

}   // namespace lm
