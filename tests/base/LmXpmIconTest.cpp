#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmXpmIcon.h"
#include "support/handles.h"

#include <X11/Shell.h>
#include <X11/Xatom.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

using namespace lmtest;   // app, OnScreen, stdoutOf
namespace fs = std::filesystem;

struct IconOnScreen : OnScreen {
    IconOnScreen()
    {
        fs::create_directories(folder());
        setenv("ZENTAHOME", root.c_str(), 1);
        icon("good", "\"2 2 3 1\", \"r c #ff0000\", \"b c #0000ff\", \". c None\", \"rb\", \".r\"");
    }
    ~IconOnScreen() override { fs::remove_all(root); }

    std::string folder() const { return root + "/config/gui/bitmaps"; }
    void icon(const std::string& name, const std::string& rows) const
    {
        std::ofstream(folder() + "/" + name + ".xpm") << "/* XPM */\nstatic char *icon[] = {\n" << rows << "};\n";
    }
    Widget newShell() const
    {
        return XtVaCreatePopupShell("window", applicationShellWidgetClass, app().baseWidget(), XmNwidth, 50, XmNheight, 50,
                                    nullptr);
    }
    static std::vector<unsigned long> iconPropertyOf(Widget w)
    {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, rest = 0;
        unsigned char* data = nullptr;
        Display* display = XtDisplay(w);
        XGetWindowProperty(display, XtWindow(w), XInternAtom(display, "_NET_WM_ICON", False), 0, 100, False, XA_CARDINAL, &type,
                           &format, &count, &rest, &data);
        const std::unique_ptr<unsigned char, lm::FreeWith<lm::xFree>> owner(data);
        std::vector<unsigned long> items(reinterpret_cast<unsigned long*>(data), reinterpret_cast<unsigned long*>(data) + count);
        for (unsigned long& item : items)
            item &= 0xFFFFFFFFUL;   // Xlib extends the sign
        return items;
    }

    const std::string root = fs::path(getenv("HOME")) / "zenta";
};

TEST_F(IconOnScreen, ABrokenIconIsReportedAndAMissingOneIsNot)
{
    icon("broken", "\"2 2 3 1\", \"r c #ff0000\"");
    icon("wide", "\"70000 1 1 1\", \"x c red\", \"" + std::string(70000, 'x') + "\"");
    mkfifo((folder() + "/fifo.xpm").c_str(), 0600);
    Widget window = newShell();
    const auto said = [&](const std::string& name) { return stdoutOf([&] { loadXpmIcon(window, name.c_str()); }); };

    EXPECT_EQ(said("broken"), "XpmFileInvalid: Invalid icon file format\n");
    EXPECT_EQ(said("wide"), "Fail to create icon pixmap\n");
    for (const std::string& name : {std::string("missing"), std::string("fifo"), std::string(2000, 'n')})
        EXPECT_EQ(said(name), "") << name;
    XtDestroyWidget(window);
}

TEST_F(IconOnScreen, TheIconIsAWindowAndAPropertyOnceThereIsAWindow)
{
    Widget early = newShell();
    Widget late = newShell();
    EXPECT_EQ(stdoutOf([&] { loadXpmIcon(early, "good"); }), "");
    XtPopup(early, XtGrabNone);
    XtPopup(late, XtGrabNone);
    settle();
    loadXpmIcon(late, "good");

    const std::vector<unsigned long> expected = {2, 2, 0xFFFF0000, 0xFF0000FF, 0, 0xFFFF0000};
    EXPECT_EQ(iconPropertyOf(early), expected);
    EXPECT_EQ(iconPropertyOf(late), expected);
    Window iconWindow = None;
    XtVaGetValues(early, XmNiconWindow, &iconWindow, nullptr);
    EXPECT_NE(iconWindow, Window{None});
    XtDestroyWidget(early);
    XtDestroyWidget(late);
}
