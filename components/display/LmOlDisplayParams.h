// LmOlDisplayParams: how the rows of an outline are drawn.
#pragma once

#include "support/LmExport.h"
#include "support/handles.h"

#include <Xm/Xm.h>

#include <memory>

namespace lm {
struct RowStyle;
}   // namespace lm

/// The list of an outline and up to five attribute sets (styles) of its rows. Set 0 is plain, in the list's own colours and
/// font; a set that was not defined reads as set 0.
class LM_API LmOlDisplayParams {
public:
    /// Makes the icons in the colours of the row list.
    explicit LmOlDisplayParams(Widget list);
    LmOlDisplayParams(const LmOlDisplayParams&) = delete;
    LmOlDisplayParams& operator=(const LmOlDisplayParams&) = delete;
    ~LmOlDisplayParams();

    /// Adds a set and returns its number, 1 to 4; 0 when there are five. The icon of closed nodes is filled with the
    /// background, annotation marks are painted in markColor. A null font is the list's; any other must outlive this object.
    int setAttributeSet(Pixel foreground, Pixel background, Pixel markColor, XmFontList font);
    /// How many sets there are, 1 to 5.
    int setCount() const { return _nSets; }

    /// The list; null once it is gone.
    Widget widget() const { return _widget; }
    void forgetWidget() { _widget = nullptr; }   ///< The list is gone: widget() is null from now on.
    /// Pixels per level of the tree, 30 at first. Takes effect with the next display.
    int indentation() const { return _indentation; }
    void setIndentation(int pixels) { _indentation = pixels; }   ///< Sets what indentation() answers.
    /// The icon of open nodes, and of closed ones with set 0.
    Pixmap openPixmap() const { return _openPixmap.get(); }
    Pixmap closedPixmap() const { return closedPixmap(0); }   ///< The icon of closed nodes with set 0.

    Pixel foreground(int i) const;      ///< The colour of labels with set i.
    Pixel background(int i) const;      ///< The colour behind labels with set i.
    XmFontList font(int i) const;       ///< The font of labels with set i.
    Pixmap closedPixmap(int i) const;   ///< The icon of closed nodes with set i.
    /// For annotation marks in the set's mark colour. Set 0 has none: null.
    GC gc(int i) const;
    /// Font and colours together, as the list wants them.
    const lm::RowStyle& style(int i) const;

private:
    struct Set;
    static constexpr int MaxSets = 5;

    std::size_t place(int i) const { return i > 0 && i < _nSets ? static_cast<std::size_t>(i) : 0; }

    Widget _widget;
    Display* _display;
    int _indentation = 30;
    int _nSets = 1;
    std::unique_ptr<Set[]> _sets;
    lm::PixmapHandle _openPixmap;
};
