#include "LmXpmIcon.h"

#include "Colors.h"
#include "support/XErrorTrap.h"
#include "support/handles.h"

#include <X11/Shell.h>
#include <X11/Xatom.h>
#include <X11/xpm.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <sys/stat.h>

const char* ICON_FILE_DIR = "config/gui/bitmaps";

namespace {

/// An XPM picture in memory.
struct Picture : XpmImage {
    Picture() : XpmImage{} {}
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() { XpmFreeXpmImage(this); }
};

/// The colours of an icon by their names in its file, as the server gave them.
using Palette = std::map<std::string, XColor, std::less<>>;

// --- where the icon is ------------------------------------------------------------------------------------------------

const std::string& installationRoot()
{
    static const std::string root = [] {
        const char* home = std::getenv("ZENTAHOME");
        return std::string(home ? home : "/usr/zenta");
    }();
    return root;
}

/// The path of the icon file; empty when it is too long to be one.
std::string iconPath(const char* name)
{
    std::string path = installationRoot() + '/' + ICON_FILE_DIR + '/' + name + ".xpm";
    return path.size() < 1024 ? path : std::string();
}

/// A FIFO or a device would keep the program waiting.
bool isRegularFile(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// --- the picture as a pixmap --------------------------------------------------------------------------------------------

/// Allocates one colour for libXpm and notes what it became: the one place where an icon's colours meet the server.
/// Answers as libXpm's own procedure does: 1 for a colour, 0 when the map is full, -1 for no known colour.
int allocateColor(Display* display, Colormap colormap, char* name, XColor* color, void* palette) noexcept
{
    if (name && !XParseColor(display, colormap, name, color))
        return -1;
    if (!lm::allocColor(display, colormap, color))
        return 0;
    if (name)
        static_cast<Palette*>(palette)->insert_or_assign(name, *color);
    return 1;
}

void reportStatus(int status)
{
    switch (status) {
    case XpmColorError:
    case XpmColorFailed:
        std::fputs("XpmColorError: Fail to allocate color for icon\n", stdout);
        return;
    case XpmNoMemory:
        std::fputs("XpmNoMemory: Not enough memory to load icon file\n", stdout);
        return;
    case XpmFileInvalid:
        std::fputs("XpmFileInvalid: Invalid icon file format\n", stdout);
        return;
    case XpmOpenFailed:
        return;   // most programs have no icon
    default:
        std::printf("loadXpmIcon: unknown errorStatus: %d\n", status);
        return;
    }
}

/// Places on the server have 16 bits; Xlib would cut a larger size and not complain.
bool fitsServer(const Picture& picture) { return std::max(picture.width, picture.height) <= 32767; }

/// The picture as a pixmap for the shell's screen, and its colours; None after a message.
Pixmap createPixmap(Widget shell, Picture& picture, Palette& palette)
{
    Display* display = XtDisplay(shell);
    Pixmap pixmap = None;
    Pixmap mask = None;
    XpmAttributes attributes{};
    attributes.valuemask = XpmCloseness | XpmAllocColor | XpmColorClosure;
    attributes.closeness = 50000;
    attributes.alloc_color = allocateColor;
    attributes.color_closure = &palette;
    lm::XErrorTrap trap(display);   // the server may have no room for the pixmap
    const Window root = RootWindowOfScreen(XtScreen(shell));
    int status = XpmSuccess;
    if (fitsServer(picture))
        status = XpmCreatePixmapFromXpmImage(display, root, &picture, &pixmap, &mask, &attributes);
    XpmFreeAttributes(&attributes);
    const lm::PixmapHandle unused(display, mask);
    lm::PixmapHandle icon(display, pixmap);
    if (status != XpmSuccess)
        reportStatus(status);
    else if (!icon || trap.error())
        std::fputs("Fail to create icon pixmap\n", stdout);
    else
        return icon.release();
    return None;
}

// --- the picture as _NET_WM_ICON ------------------------------------------------------------------------------------------

/// A colour as the property has it: alpha, red, green, blue. A colour that libXpm did not ask for is transparent.
unsigned long asArgb(const XpmColor& color, const Palette& palette)
{
    for (const char* name : {color.c_color, color.g_color, color.g4_color, color.m_color}) {
        const auto found = name ? palette.find(std::string_view(name)) : palette.end();
        if (found == palette.end())
            continue;
        const XColor& rgb = found->second;
        return 0xFF000000UL | ((rgb.red >> 8) & 0xFFUL) << 16 | ((rgb.green >> 8) & 0xFFUL) << 8 | ((rgb.blue >> 8) & 0xFFUL);
    }
    return 0;
}

/// Width, height and the rows of pixels; Xlib takes an item of 32 bits in a long.
using IconProperty = std::vector<unsigned long>;

IconProperty iconProperty(const Picture& picture, const Palette& palette)
{
    std::vector<unsigned long> colors(picture.ncolors);
    std::transform(picture.colorTable, picture.colorTable + picture.ncolors, colors.begin(),
                   [&](const XpmColor& color) { return asArgb(color, palette); });
    IconProperty property{picture.width, picture.height};
    const std::size_t pixels = std::size_t{picture.width} * picture.height;
    property.reserve(2 + pixels);
    std::transform(picture.data, picture.data + pixels, std::back_inserter(property),
                   [&](unsigned int index) { return colors[index]; });
    return property;
}

void setIconProperty(Widget shell, const IconProperty& property)
{
    Display* display = XtDisplay(shell);
    XChangeProperty(display, XtWindow(shell), XInternAtom(display, "_NET_WM_ICON", False), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(property.data()), static_cast<int>(property.size()));
}

/// Sets the property with the first event of the shell's new window, then is done.
void shellHasWindow(Widget shell, XtPointer property, XEvent*, Boolean*) noexcept;

void shellDestroyed(Widget shell, XtPointer property, XtPointer) noexcept
{
    const std::unique_ptr<IconProperty> owner(static_cast<IconProperty*>(property));
    XtRemoveEventHandler(shell, StructureNotifyMask, False, shellHasWindow, property);
}

void shellHasWindow(Widget shell, XtPointer property, XEvent*, Boolean*) noexcept
{
    setIconProperty(shell, *static_cast<IconProperty*>(property));
    XtRemoveCallback(shell, XtNdestroyCallback, shellDestroyed, property);
    shellDestroyed(shell, property, nullptr);
}

/// Icons are usually loaded before the shell is realized: then the property waits for the window.
void publishIcon(Widget shell, const Picture& picture, const Palette& palette)
{
    const std::size_t room = static_cast<std::size_t>(std::max(XMaxRequestSize(XtDisplay(shell)) - 64, 0L));
    if (std::size_t{picture.width} * picture.height > room)
        return;   // no window manager shows an icon of that size
    if (XtIsRealized(shell)) {
        setIconProperty(shell, iconProperty(picture, palette));
        return;
    }
    auto property = std::make_unique<IconProperty>(iconProperty(picture, palette));
    XtAddCallback(shell, XtNdestroyCallback, shellDestroyed, property.get());
    XtAddEventHandler(shell, StructureNotifyMask, False, shellHasWindow, property.release());
}

// --- the icon window --------------------------------------------------------------------------------------------------

struct Size {
    unsigned int width;
    unsigned int height;
};

void showPixmap(Display* display, Window window, Pixmap pixmap)
{
    XSetWindowBackgroundPixmap(display, window, pixmap);
    XClearWindow(display, window);
}

/// Installs a pixmap of known size: with it, the icon costs no question to the server.
void install(Widget shell, Pixmap pixmap, Window root, Size size)
{
    Display* display = XtDisplay(shell);
    Window window = None;
    XtVaGetValues(shell, XtNiconWindow, &window, nullptr);
    if (window == None) {
        window = XCreateSimpleWindow(display, root, 0, 0, size.width, size.height, 0, 0, 0);
        XtVaSetValues(shell, XtNiconWindow, window, nullptr);
    }
    showPixmap(display, window, pixmap);
}

}   // namespace

void loadXpmIcon(Widget shell, const char* name)
{
    const std::string path = iconPath(name);
    if (path.empty() || !isRegularFile(path))
        return;
    Picture picture;
    const int status = XpmReadFileToXpmImage(path.c_str(), &picture, nullptr);
    if (status != XpmSuccess) {
        reportStatus(status);
        return;
    }
    Palette palette;
    const Pixmap pixmap = createPixmap(shell, picture, palette);
    if (pixmap == None)
        return;
    install(shell, pixmap, RootWindowOfScreen(XtScreen(shell)), {picture.width, picture.height});
    publishIcon(shell, picture, palette);
}

void setXpmIcon(Widget shell, Pixmap pixmap)
{
    Display* display = XtDisplay(shell);
    Window root = None;
    int x, y;
    Size size{};
    unsigned int border, depth;
    Window window = None;
    XtVaGetValues(shell, XtNiconWindow, &window, nullptr);
    if (window != None) {
        showPixmap(display, window, pixmap);
        return;
    }
    lm::XErrorTrap trap(display);   // the pixmap is the caller's, and may be none
    if (XGetGeometry(display, pixmap, &root, &x, &y, &size.width, &size.height, &border, &depth))
        install(shell, pixmap, root, size);
    else
        XtVaSetValues(shell, XtNiconPixmap, pixmap, nullptr);
}
