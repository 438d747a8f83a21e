// RowLooks.h: how the rows of a list look. Each distinct look is kept once and known by a small number.
#pragma once

#include "support/handles.h"

#include <cstdint>
#include <map>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace lm {

/// Font and colours of a row. A null font is the list's.
struct RowStyle {
    XmFontList font = nullptr;
    Pixel foreground = 0;
    Pixel background = 0;
};

/// A row's indentation in pixels, the number of its style (0: the list's own colours) and its icon.
struct RowLook {
    int indent = 0;
    int style = 0;
    Pixmap icon = None;

    bool operator==(const RowLook&) const = default;
};

/// The size of an icon in pixels; depth 0 when the id is no pixmap.
struct IconSize {
    int width = 0;
    int height = 0;
    unsigned depth = 0;
};

/// The looks, styles and icons of one list. Number 0 is the plain look, and the style of the list itself.
class RowLooks {
public:
    explicit RowLooks(Display* display) : _display(display), _looks(1), _styles(1) {}

    const RowLook& look(int number) const { return _looks[static_cast<std::size_t>(number)]; }
    /// The style with the number, its font owned here.
    const RowStyle& style(int number) const { return _styles[static_cast<std::size_t>(number)].style; }

    /// The number of the look, given a new one when it is new.
    int number(const RowLook& look);
    /// The number of the style, given a new one (and the font copied) when it is new.
    int number(const RowStyle& style);

    /// Size and depth of a pixmap; the server is asked once for each.
    const IconSize& size(Pixmap icon);
    /// The widest and the highest icon asked for so far, and the highest line of a style's font.
    int widestIcon() const { return _widestIcon; }
    int tallestIcon() const { return _tallestIcon; }
    int tallestLine() const { return _tallestLine; }

private:
    struct Hash {
        std::size_t operator()(const RowLook& look) const;
    };
    struct FreeFont {
        void operator()(XmFontList font) const { XmFontListFree(font); }
    };
    struct OwnedStyle {
        RowStyle style;
        std::unique_ptr<std::remove_pointer_t<XmFontList>, FreeFont> font;
    };

    Display* _display;
    std::vector<RowLook> _looks;
    std::unordered_map<RowLook, int, Hash> _numbers;
    std::vector<OwnedStyle> _styles;
    std::map<std::tuple<const void*, Pixel, Pixel>, int> _styleNumbers;   // by table, foreground, background
    std::unordered_map<Pixmap, IconSize> _icons;
    int _widestIcon = 0;
    int _tallestIcon = 0;
    int _tallestLine = 0;
};

}   // namespace lm
