// ResizeParts.h: the widgets of a resizer: the frame, what it shows of the widget behind it, and two grips.
#pragma once

#include "support/handles.h"

#include <X11/Intrinsic.h>

namespace lm {

struct ResizeFrame;

/// The parts in one parent. Each may be destroyed by others at any time, also the parent; then its field is null.
class ResizeParts {
public:
    static constexpr int inset = 6;   ///< how far the frame stands out: its shadow and its margin, pixels

    /// Presses and releases on the grips go to these handlers.
    ResizeParts(XtEventHandler press, XtEventHandler release, XtPointer owner) : _press(press), _release(release), _owner(owner)
    {}
    ResizeParts(const ResizeParts&) = delete;
    ResizeParts& operator=(const ResizeParts&) = delete;
    ~ResizeParts();

    Widget parent() const { return _parent; }
    Widget frame() const { return _frame; }
    Widget upperRight() const { return _gripUR; }
    bool complete() const { return _frame && _area && _gripLL && _gripUR; }

    /// Makes the parts in a parent, unmanaged, unless they are there; parts in another parent are destroyed.
    void makeIn(Widget parent);
    /// Places all parts.
    void place(const ResizeFrame& geometry);
    /// Colours all parts: the frame and the grips as the parent, with shadows that stand out from it.
    void colour(Pixel background, Pixel foreground, Pixel area);
    /// Manages the parts and stacks them: frame, widget, grips.
    void show(Widget around);
    void hide();
    void hideGrips();
    void raiseFrame();
    /// The cursors of the grips; None: no own one.
    void defineCursors(Cursor lowerLeft, Cursor upperRight);

private:
    static void destroyed(Widget w, XtPointer parts, XtPointer) noexcept;
    Widget makeGrip(const char* name);
    void destroyAll();
    void setParent(Widget parent);

    XtEventHandler _press, _release;
    XtPointer _owner;
    Widget _parent = nullptr, _frame = nullptr, _area = nullptr, _gripLL = nullptr, _gripUR = nullptr;
};

struct Rect;
/// Asks for a place and a size, cut to what X can say.
void setGeometry(Widget w, const Rect& r);

}   // namespace lm
