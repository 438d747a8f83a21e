// LmDoubleBuffer: a drawing area that is painted off the screen.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

/// A drawing area without flicker: a derived class paints into a back pixmap; update() shows it in one step. Exposures are
/// repaired from the front pixmap, without painting.
///
///   Widgets    XmDrawingArea of the component's name (base widget)
///   Errors     pixmaps that the server has no room for, or of more than 2^26 pixels, leave the area empty. Without a
///              widget every operation does nothing
class LM_API LmDoubleBuffer : public LmComponent {
public:
    LmDoubleBuffer(const char* name, Widget parent);   ///< The widget is not managed before show().

    const char* className() override { return "LmDoubleBuffer"; }
    void widgetDestroyed() override;
    /// Paints and shows, when the widget is realized. Derived classes call it whenever their picture changes.
    virtual void update();
    /// The colour that the area is cleared with.
    virtual void setBackground(Pixel background);
    /// The pixmaps were made anew, and are empty. Nothing here.
    virtual void resize() {}
    /// Paints into `_drawable`, `_width` by `_height` pixels, cleared with the background.
    virtual void draw() = 0;

protected:
    /// Exchanges front and back, shows the front and clears the back.
    void swapBuffers();
    /// Shows the front.
    void redisplay();
    /// Makes pixmaps of the widget's size.
    void hiddenResize();
    /// The Xt procedures of exposeCallback and resizeCallback, with the object as client data: of exposeCallback.
    static void redisplayCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// Of resizeCallback.
    static void resizeCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    Pixmap _drawable = None;   ///< the back pixmap; None while there is none
    Dimension _width = 1;      ///< of the area and the pixmaps, pixels, at least 1
    Dimension _height = 1;     ///< of the area and the pixmaps, pixels, at least 1
    GC _gc = nullptr;          ///< foreground and background are the background colour

private:
    lm::PixmapHandle newPixmap();

    lm::SharedGC _clearGC;
    lm::PixmapHandle _front, _back;
};
