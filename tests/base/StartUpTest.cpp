// The start-up unit saves time and changes nothing else. What Motif does by itself is the expected value here: each case
// runs in a child process, for Motif keeps things per process.
#include "tests/support/OnScreen.h"

#include "base/core/StartUp.h"
#include "support/handles.h"
#include "support/resources.h"

#include <X11/Xatom.h>
#include <X11/extensions/XTest.h>
#include <Xm/DisplayP.h>
#include <Xm/Text.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <sstream>
#include <tuple>

extern "C" const char _XmVirtKeys_hpFallbackBindingString[];   // one of Motif's own tables, with Shift and two keys in a line

using Resources = std::vector<const char*>;
enum class Start { plain, prepared };

static Display* openDisplay(Start start, const Resources& resources = {}, const char* name = nullptr)
{
    std::vector<char*> arguments = {lm::xtText("lmtest")};
    for (const char* line : resources)
        arguments.insert(arguments.end(), {lm::xtText("-xrm"), lm::xtText(line)});
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    XtToolkitInitialize();
    Display* display = XtOpenDisplay(XtCreateApplicationContext(), name, nullptr, "LmTest", nullptr, 0, &count, arguments.data());
    if (display && start == Start::prepared)
        lm::prepareDisplay(display);
    return display;
}

static std::string inChild(const std::function<std::string()>& work)
{
    return lmtest::stdoutOf([&] { EXPECT_EQ(lmtest::exitStatusOf([&] { std::fputs(work().c_str(), stdout); }), 0); });
}

static std::string keyTable(Start start, const Resources& resources = {})
{
    return inChild([&] {
        Widget display = XmGetXmDisplay(openDisplay(start, resources));
        const XmDisplayPart& part = reinterpret_cast<XmDisplayRec*>(display)->display;
        std::ostringstream text;
        for (Cardinal i = 0; i < part.num_bindings; ++i)
            text << std::hex << part.bindings[i].virtkey << " is " << part.bindings[i].modifiers << ' ' << part.bindings[i].keysym
                 << '\n';
        return text.str();
    });
}

/// As xmbind leaves it; none when empty.
static void setBindings(const std::string& text)
{
    Display* display = XOpenDisplay(nullptr);
    const Window root = DefaultRootWindow(display);
    XDeleteProperty(display, root, XInternAtom(display, "_MOTIF_DEFAULT_BINDINGS", False));
    const Atom property = XInternAtom(display, "_MOTIF_BINDINGS", False);
    if (text.empty())
        XDeleteProperty(display, root, property);
    else
        XChangeProperty(display, root, property, XA_STRING, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    XCloseDisplay(display);
}

TEST(StartUpOnScreen, TheKeyTableIsTheOneMotifMakes)
{
    const std::string odd = "osfHelp: ~Shift<Key>F1, <Key>Help\nosfCancel: None<Key>Escape\nosfMenu: Shift<Key>F10,<Key>Menu\n"
                            "osfUndo: <Key>SunUndo\nosfActivate: Ctrl<Key>KP_Enter\nosfUp: <Key>exclam\nosfDown: <KeyUp>Down\n"
                            "osfLeft: nonsense\nosfRight: <Key>Right,\nosfCopy: Ctrl Mod1 <Key>A , Shift<Key>percent\n";
    for (const std::string& text : {std::string(), std::string(_XmVirtKeys_hpFallbackBindingString), odd}) {
        setBindings(text);
        const std::string expected = keyTable(Start::plain);
        EXPECT_EQ(keyTable(Start::prepared), expected) << text;
        setBindings("");
        EXPECT_EQ(keyTable(Start::prepared), keyTable(Start::plain));   // in the other order, from Motif's property
    }
}

TEST(StartUpOnScreen, AUsersOwnSettingsWin)
{
    const Resources ownKeys = {"*DefaultVirtualBindings: osfHelp: <Key>F5"};
    EXPECT_EQ(std::ranges::count(keyTable(Start::prepared, ownKeys), '\n'), 1);
    EXPECT_EQ(keyTable(Start::prepared, ownKeys), keyTable(Start::plain, ownKeys));
}

static auto asTuple(const XColor& color) { return std::tuple(color.pixel, color.red, color.green, color.blue); }

/// Our colours on the display are the server's; the first X error would end the process.
static void compareColors(Display* display, int count)
{
    const Colormap colormap = DefaultColormap(display, DefaultScreen(display));
    Widget shell = XtVaAppCreateShell("lmtest", "LmTest", applicationShellWidgetClass, display, nullptr);
    for (int i = 0; i < count; ++i) {
        XColor ours = {.red = static_cast<unsigned short>(i * 40503),
                       .green = static_cast<unsigned short>(i * 25717),
                       .blue = static_cast<unsigned short>(65535 - i * 9973)};
        XColor theirs = ours;
        ASSERT_TRUE(XAllocColor(display, colormap, &theirs) && lm::allocColor(display, colormap, &ours));
        EXPECT_EQ(asTuple(ours), asTuple(theirs));
        XFreeColors(display, colormap, &ours.pixel, 1, 0);
    }
    for (const char* text : {"Black", "white", "#12ab9f", "#FFF", "navy"}) {
        XColor exact = {}, screen = {};
        XrmValue from = {static_cast<unsigned>(std::strlen(text) + 1), lm::xtText(text)}, to = {};
        XAllocNamedColor(display, colormap, text, &screen, &exact);
        ASSERT_TRUE(XtConvertAndStore(shell, XtRString, &from, XtRPixel, &to)) << text;
        EXPECT_EQ(*reinterpret_cast<Pixel*>(to.addr), screen.pixel) << text;
    }
    XtRealizeWidget(shell);
    XSync(display, False);
}

TEST(StartUpOnScreen, ColorsAreTheServersOnEveryKindOfScreen)
{
    const lmtest::Server depth16("640x480x16"), pseudoColor("640x480x8", {"-cc", "3"}), trueColor8("640x480x8", {"-cc", "4"}),
        gray("640x480x8", {"-cc", "0"});
    const auto failures = [](const std::string& server, int colors) {
        return lmtest::exitStatusOf([&] { compareColors(openDisplay(Start::prepared, {}, server.c_str()), colors); });
    };
    EXPECT_EQ(failures(lmtest::server().displayName(), 500), 0);
    for (const lmtest::Server* server : {&depth16, &pseudoColor, &trueColor8, &gray})
        EXPECT_EQ(failures(server->displayName(), 12), 0);
}

/// How often the program waits for the server until its first window is painted.
static int tripsOf(const std::string& program)
{
    FILE* counter = popen((LUMORA_BINARY_DIR "/tripcount " LUMORA_BINARY_DIR "/" + program).c_str(), "r");
    int trips = -1;
    EXPECT_EQ(std::fscanf(counter, "trips=%d", &trips), 1) << program;
    pclose(counter);
    return trips;
}

TEST(StartUpOnScreen, TheFirstWindowTakes45RoundTripsAtMost)
{
    tripsOf("sample_motif");   // the first Motif program of a server writes tables for the others
    EXPECT_GT(tripsOf("sample_motif"), 85);

    const int trips = tripsOf("sample_lumora");
    EXPECT_LE(trips, 45);
    EXPECT_EQ(tripsOf("sample_lumora later"), trips) << "a scrolled text must not cost more";
}

/// Selects a word and drags it away with button 2, on a connection of its own, for Motif's drag has an event loop of its
/// own, too; the server keeps the pace.
static void dragText()
{
    Display* display = lmtest::app().display();
    Display* hand = XOpenDisplay(nullptr);
    Widget shell = XtVaAppCreateShell("lmtest", "LmTest", applicationShellWidgetClass, display, nullptr);
    Widget text = XmCreateText(shell, lm::xtText("text"), nullptr, 0);
    XmTextSetString(text, lm::xtText("alpha beta"));
    XtManageChild(text);
    XtRealizeWidget(shell);
    lmtest::settle();
    XmTextSetSelection(text, 0, 6, XtLastTimestampProcessed(display));
    Position left = 0, top = 0, x = 0, y = 0, endX = 0;
    XmTextPosToXY(text, 2, &x, &y);
    XmTextPosToXY(text, 10, &endX, &y);
    XtTranslateCoords(text, x + 2, y - 3, &left, &top);
    XTestFakeMotionEvent(hand, -1, left, top, 0);
    XTestFakeButtonEvent(hand, Button2, True, 50);
    for (int i = 1; i <= 10; ++i)
        XTestFakeMotionEvent(hand, -1, left + (endX - x) * i / 10, top, 30);
    XTestFakeButtonEvent(hand, Button2, False, 100);
    XFlush(hand);
    lmtest::settleUntil([&] { return std::string_view(lm::XtString(XmTextGetString(text)).get()) == "betaalpha "; });
}

TEST(StartUpOnScreen, TextIsDraggedAsBefore) { EXPECT_EQ(lmtest::exitStatusOf(dragText), 0); }
