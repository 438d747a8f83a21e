// LmScroll: one tall child in a window that scrolls up and down.
#pragma once

#include "LmComponent.h"
#include "support/alive.h"

/// Call data of LmScroll::scrollCallback.
struct LmScrollCallbackStruct {
    int reason;       ///< 1: first exposed; 2: laid out; 3: the scroll bar's trough is to be painted
    int a, b, c, d;   ///< for reason 3 width and height of the trough in pixels, 0, and the rows it stands for; else 0
    Pixmap pixmap;    ///< for reason 3 what to paint on, the scroll bar's own; else None
};

/// A form with a framed clip window and an annotated scroll bar at its right. The child is made in clip(); it is moved up
/// and down behind the clip window. The wheel scrolls wherever the pointer is in the frame.
///
///   Widgets    XmForm of the component's name (base widget, managed): sb (annotated scroll bar), frame (XmFrame) with
///              clip (XmForm)
///   Callbacks  scrollCallback; call data: LmScrollCallbackStruct
///   Errors     none; without a child the slider fills the trough
class LM_API LmScroll : public LmComponent {
public:
    static const char* const scrollCallback;   ///< "scrollCallback"

    LmScroll(const char* name, Widget parent);   ///< Without a child.
    ~LmScroll() override;

    const char* className() override { return "LmScroll"; }
    void widgetDestroyed() override;

    /// The widget to scroll, made in clip(); null: none. It is not owned. Gadgets are refused.
    void setChild(Widget w);
    /// Scrolls to a position, pixels from the child's top; cut to what there is.
    void setScrollPos(int position);
    /// Has the scroll bar ask for its trough, with reason 3.
    void setAnnotations();

    /// The parent of the child.
    Widget clip() const { return _clip; }
    /// Pixels from the child's top.
    int scrollPos() const { return _position; }

protected:
    /// Moves the child.
    void scrollChanged(int position);
    /// Fits the scroll bar to the frame and the child.
    void resizeClip();
    void exposeClip();            ///< The clip window is seen for the first time: announces reason 1 and fits the scroll bar.
    void reannotateScrollBar();   ///< Has the scroll bar paint its trough now.
    /// The scroll bar asks for its trough; the arguments are a to d and pixmap of the call data.
    void troughPixmap(int width, int height, int unused, int rows, Pixmap pixmap);
    void callCallback(int reason);   ///< Announces a reason without further data.

    /// The Xt procedures, with the component as client data.
    static void expose_clip(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    /// The clip window changed its size.
    static void resize_clip(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    /// The child was moved or resized.
    static void resize_child(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    static void scroll_changed(Widget w, XtPointer clientData, XtPointer callData) noexcept;   ///< The scroll bar was moved.
    /// The scroll bar asks for its trough.
    static void trough_pixmap(Widget w, XtPointer clientData, XtPointer callData) noexcept;

private:
    void makeScrollBar();
    void makeClip();
    void childResized();
    void childDestroyed();
    void forgetChild();
    void turnWheel(XEvent* event);
    int innerHeight() const;

    Widget _frame = nullptr, _scrollBar = nullptr, _clip = nullptr;
    Widget _child = nullptr;   // null until setChild(), and once destroyed
    int _position = 0;         // pixels
    bool _annotations = false;
    Dimension _childHeight = 0;   // as known last
    lm::Alive _alive;
};
