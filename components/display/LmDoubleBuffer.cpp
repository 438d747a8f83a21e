#include "LmDoubleBuffer.h"

#include "support/XErrorTrap.h"

#include <Xm/DrawingA.h>

#include <algorithm>
#include <utility>

/// A quarter of a gigabyte for each pixmap: far beyond any screen, and what a server can spare without stalling everybody.
static constexpr long mostPixels = 1L << 26;

LmDoubleBuffer::LmDoubleBuffer(const char* name, Widget parent) : LmComponent(name)
{
    _baseWidget = XtCreateWidget(LmComponent::name(), xmDrawingAreaWidgetClass, parent, nullptr, 0);
    installDestroyHandler();
    XtAddCallback(_baseWidget, XmNexposeCallback, redisplayCallback, this);
    XtAddCallback(_baseWidget, XmNresizeCallback, resizeCallback, this);
    Pixel background = 0;
    XtVaGetValues(_baseWidget, XmNbackground, &background, nullptr);
    LmDoubleBuffer::setBackground(background);
    hiddenResize();
}

void LmDoubleBuffer::widgetDestroyed()
{
    _drawable = None;
    _front = {};
    _back = {};
    _gc = nullptr;
    _clearGC = {};   // XtReleaseGC still needs the widget
    LmComponent::widgetDestroyed();
}

void LmDoubleBuffer::setBackground(Pixel background)
{
    if (!_baseWidget)
        return;
    _clearGC = lm::SharedGC(_baseWidget, GCForeground | GCBackground, {.foreground = background, .background = background});
    _gc = _clearGC.get();
}

/// A pixmap of the area's size, cleared.
lm::PixmapHandle LmDoubleBuffer::newPixmap()
{
    Display* display = XtDisplay(_baseWidget);
    int depth = 0;
    XtVaGetValues(_baseWidget, XmNdepth, &depth, nullptr);
    const Window root = RootWindowOfScreen(XtScreen(_baseWidget));
    lm::PixmapHandle pixmap(display, XCreatePixmap(display, root, _width, _height, static_cast<unsigned>(depth)));
    XFillRectangle(display, pixmap.get(), _gc, 0, 0, _width, _height);
    return pixmap;
}

void LmDoubleBuffer::hiddenResize()
{
    if (!_baseWidget)
        return;
    Dimension width = 0, height = 0;
    XtVaGetValues(_baseWidget, XmNwidth, &width, XmNheight, &height, nullptr);
    _width = std::max<Dimension>(width, 1);
    _height = std::max<Dimension>(height, 1);
    _drawable = None;
    _front = {};
    _back = {};
    if (static_cast<long>(_width) * _height > mostPixels) {
        resize();
        return;
    }
    lm::XErrorTrap trap(XtDisplay(_baseWidget));   // the server may have no room
    _front = newPixmap();
    _back = newPixmap();
    if (trap.error()) {   // one of them may exist; freeing the other is another error, and trapped, too
        _front = {};
        _back = {};
    }
    _drawable = _back.get();
    resize();
}

void LmDoubleBuffer::update()
{
    if (!_baseWidget || !XtIsRealized(_baseWidget))
        return;
    if (_drawable)
        draw();
    swapBuffers();
}

void LmDoubleBuffer::swapBuffers()
{
    if (!_baseWidget)
        return;
    std::swap(_front, _back);
    redisplay();
    if (_back)
        XFillRectangle(XtDisplay(_baseWidget), _back.get(), _gc, 0, 0, _width, _height);
    _drawable = _back.get();
}

void LmDoubleBuffer::redisplay()
{
    if (_baseWidget && XtIsRealized(_baseWidget) && _front)
        XCopyArea(XtDisplay(_baseWidget), _front.get(), XtWindow(_baseWidget), _gc, 0, 0, _width, _height, 0, 0);
}

void LmDoubleBuffer::redisplayCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmDoubleBuffer*>(clientData)->redisplay();
}

void LmDoubleBuffer::resizeCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmDoubleBuffer*>(clientData)->hiddenResize();
}
