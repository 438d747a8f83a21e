// The start-up unit saves time and changes nothing else. What Motif does by itself is the expected value here: each case
// runs in a child process, for Motif keeps things per process.
#include <gtest/gtest.h>

#include "base/core/StartUp.h"
#include "support/handles.h"
#include "support/resources.h"
#include "tests/support/Servers.h"

#include <X11/Xatom.h>
#include <X11/extensions/XTest.h>
#include <Xm/DisplayP.h>
#include <Xm/DropSMgrP.h>
#include <Xm/Text.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sstream>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

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
    int ends[2] = {};
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const std::string answer = work();
        _exit(write(ends[1], answer.data(), answer.size()) == std::ssize(answer) ? 0 : 1);
    }
    close(ends[1]);
    std::string answer;
    char buffer[4096];
    for (ssize_t n; (n = read(ends[0], buffer, sizeof buffer)) > 0;)
        answer.append(buffer, static_cast<size_t>(n));
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    return answer;
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
        EXPECT_GT(std::ranges::count(expected, '\n'), 5) << text;
        EXPECT_EQ(keyTable(Start::prepared), expected) << text;
        setBindings("");
        EXPECT_EQ(keyTable(Start::prepared), keyTable(Start::plain));   // in the other order, from Motif's property
    }
}

static std::string resourceOf(Display* display, const char* name)
{
    char* type = nullptr;
    XrmValue value = {};
    return XrmGetResource(XtDatabase(display), name, "LmTest.Whatever", &type, &value) ? value.addr : "unset";
}

TEST(StartUpOnScreen, AUsersOwnSettingsWin)
{
    const Resources ownKeys = {"*DefaultVirtualBindings: osfHelp: <Key>F5"};
    EXPECT_EQ(std::ranges::count(keyTable(Start::prepared, ownKeys), '\n'), 1);
    EXPECT_EQ(keyTable(Start::prepared, ownKeys), keyTable(Start::plain, ownKeys));

    const auto palette = [](const Resources& resources) {
        return inChild([&] { return resourceOf(openDisplay(Start::prepared, resources), "lmtest.useColorObj"); });
    };
    EXPECT_EQ(palette({}), "False");
    EXPECT_EQ(palette({"lmtest*useColorObj: True"}), "True");
    EXPECT_EQ(palette({"*UseColorObj: True"}), "unset");   // what the class name says stays in force

    Display* display = openDisplay(Start::plain);
    static XmDropSiteManagerClassRec own = xmDropSiteManagerClassRec;
    WidgetClass wanted = reinterpret_cast<WidgetClass>(&own), used = nullptr;
    XrmDatabase database = XtDatabase(display);
    XrmValue value = {sizeof wanted, reinterpret_cast<XPointer>(&wanted)};
    XrmPutResource(&database, "*dropSiteManagerClass", "WidgetClass", &value);
    lm::prepareDisplay(display);
    XtVaGetValues(XmGetXmDisplay(display), XmNdropSiteManagerClass, &used, nullptr);
    EXPECT_EQ(used, wanted);
}

static auto asTuple(const XColor& color) { return std::tuple(color.pixel, color.red, color.green, color.blue); }

static Pixel converted(Widget shell, std::string text)
{
    XrmValue from = {static_cast<unsigned>(text.size() + 1), text.data()}, to = {};
    EXPECT_TRUE(XtConvertAndStore(shell, XtRString, &from, XtRPixel, &to)) << text;
    return *reinterpret_cast<Pixel*>(to.addr);
}

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
        ASSERT_TRUE(XAllocColor(display, colormap, &theirs));
        ASSERT_TRUE(lm::allocColor(display, colormap, &ours));
        EXPECT_EQ(asTuple(ours), asTuple(theirs));

        lm::queryColors(display, &ours, 1);
        XQueryColor(display, colormap, &theirs);
        EXPECT_EQ(asTuple(ours), asTuple(theirs));
        XFreeColors(display, colormap, &ours.pixel, 1, 0);
    }
    for (const char* text : {"Black", "white", "#12ab9f", "#FFF", "navy"}) {
        XColor exact = {}, screen = {};
        XAllocNamedColor(display, colormap, text, &screen, &exact);
        EXPECT_EQ(converted(shell, text), screen.pixel) << text;
    }
    XtRealizeWidget(shell);
    XSync(display, False);
}

TEST(StartUpOnScreen, ColorsAreTheServersOnEveryKindOfScreen)
{
    compareColors(openDisplay(Start::prepared), 500);
    const lmtest::Server depth16("640x480x16"), pseudoColor("640x480x8", {"-cc", "3"}), trueColor8("640x480x8", {"-cc", "4"}),
        gray("640x480x8", {"-cc", "0"});
    for (const lmtest::Server* server : {&depth16, &pseudoColor, &trueColor8, &gray})
        compareColors(openDisplay(Start::prepared, {}, server->displayName().c_str()), 12);
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

/// A hand on the mouse: a connection of its own, for Motif's drag has an event loop of its own, too. The server keeps the
/// pace: each step comes `milliseconds` after the one before.
class Mouse {
public:
    explicit Mouse(Widget over) : _display(XOpenDisplay(nullptr))
    {
        Position x = 0, y = 0;
        XtTranslateCoords(over, 0, 0, &x, &y);
        _origin = {x, y};
    }
    ~Mouse() { XCloseDisplay(_display); }

    void move(int x, int y, unsigned long milliseconds)
    {
        XTestFakeMotionEvent(_display, -1, _origin.x + x, _origin.y + y, milliseconds);
        XFlush(_display);
    }
    void press(bool down, unsigned long milliseconds)
    {
        XTestFakeButtonEvent(_display, Button2, down, milliseconds);
        XFlush(_display);
    }
    /// From one point to another, where it rests before it lets go.
    void drag(XPoint from, XPoint to, unsigned long rest)
    {
        move(from.x, from.y, 0);
        press(true, 50);
        for (int i = 1; i <= 10; ++i)
            move(from.x + (to.x - from.x) * i / 10, from.y + (to.y - from.y) * i / 10, 30);
        press(false, rest);
    }

private:
    Display* _display;
    XPoint _origin;
};

static void dispatchUntil(XtAppContext context, const std::function<bool()>& done)
{
    static bool late;
    late = false;
    const XtIntervalId limit = XtAppAddTimeOut(
        context, 10000, [](XtPointer, XtIntervalId*) { late = true; }, nullptr);
    while (!done() && !late)
        XtAppProcessEvent(context, XtIMAll);
    if (!late)
        XtRemoveTimeOut(limit);
}

TEST(StartUpOnScreen, TextIsDraggedAndScrolledAtTheEdgeAsBefore)
{
    Display* display = openDisplay(Start::prepared);
    const XtAppContext context = XtDisplayToApplicationContext(display);
    Widget shell = XtVaAppCreateShell("lmtest", "LmTest", applicationShellWidgetClass, display, nullptr);
    Arg arguments[] = {{XmNeditMode, XmMULTI_LINE_EDIT}, {XmNrows, 5}, {XmNcolumns, 30}};
    Widget text = XmCreateScrolledText(shell, lm::xtText("text"), arguments, XtNumber(arguments));
    XtManageChild(text);
    std::string lines = "alpha beta\n";
    for (int i = 0; i < 40; ++i)
        lines += "line\n";
    XmTextSetString(text, lines.data());
    XtRealizeWidget(shell);
    XSync(display, False);
    const auto point = [&](XmTextPosition position) {
        Position x = 0, y = 0;
        XmTextPosToXY(text, position, &x, &y);
        return XPoint{static_cast<short>(x + 2), static_cast<short>(y - 3)};
    };
    Mouse mouse(text);

    XmTextSetSelection(text, 0, 6, XtLastTimestampProcessed(display));
    mouse.drag(point(2), point(10), 100);
    const auto content = [&] { return std::unique_ptr<char, lm::FreeWith<lm::xtFree>>(XmTextGetString(text)); };
    dispatchUntil(context, [&] { return std::string_view(content().get()).starts_with("betaalpha \n"); });
    EXPECT_TRUE(std::string_view(content().get()).starts_with("betaalpha \n")) << std::string_view(content().get()).substr(0, 20);

    XmTextSetSelection(text, 0, 4, XtLastTimestampProcessed(display));
    Dimension height = 0;
    XtVaGetValues(text, XmNheight, &height, nullptr);
    mouse.drag(point(2), {20, static_cast<short>(height - 1)}, 3000);
    dispatchUntil(context, [&] { return XmTextGetTopCharacter(text) > 0; });
    EXPECT_GT(XmTextGetTopCharacter(text), 0);
}
