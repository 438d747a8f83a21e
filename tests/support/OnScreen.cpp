#include "tests/support/OnScreen.h"

#include "support/handles.h"
#include "support/resources.h"
#include "support/xmtext.h"

#include <X11/IntrinsicP.h>
#include <X11/Shell.h>
#include <X11/XKBlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <utility>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lmtest {

static std::vector<std::string> errors;

static Display* display() { return app().display(); }

// --- the application ---------------------------------------------------------------------------------------------------

static int rememberXError(Display* d, XErrorEvent* event)
{
    char text[256] = {};
    XGetErrorText(d, event->error_code, text, sizeof text);
    errors.push_back(std::string("X error: ") + text + ", request " + std::to_string(event->request_code));
    return 0;
}

static void rememberWarning(String message) { errors.push_back(std::string("Xt warning: ") + message); }

LmApp& app()
{
    static LmApp* application = [] {
        static char program[] = "lmtest";
        static char* arguments[] = {program, nullptr};
        static int count = 1;
        auto* made = theApplication ? theApplication : new LmApp("LmTest", &count, arguments, nullptr, 0);
        XSetErrorHandler(rememberXError);
        XtAppSetWarningHandler(made->appContext(), rememberWarning);
        return made;
    }();
    return *application;
}

// --- waiting -----------------------------------------------------------------------------------------------------------

static void dispatchOne()
{
    XtAppContext context = app().appContext();
    if (const XtInputMask other = XtAppPending(context) & (XtIMTimer | XtIMAlternateInput | XtIMSignal))
        return XtAppProcessEvent(context, other);
    XEvent event;
    XtAppNextEvent(context, &event);
    if (!XtDispatchEvent(&event))
        app().handleRawEvent(&event);
}

void settle()
{
    do {
        while (XtAppPending(app().appContext()))
            dispatchOne();
        XSync(display(), False);
    } while (XtAppPending(app().appContext()));
}

void settleUntil(const std::function<bool()>& condition, int milliseconds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
        ASSERT_LT(std::chrono::steady_clock::now(), end) << "waited " << milliseconds << " ms in vain";
        bool woken = false;   // blocks until something comes, so that work procedures run, but at most 20 ms
        const XtIntervalId timer = XtAppAddTimeOut(
            app().appContext(), 20, [](XtPointer flag, XtIntervalId*) { *static_cast<bool*>(flag) = true; }, &woken);
        XtAppProcessEvent(app().appContext(), XtIMAll);
        if (!woken)
            XtRemoveTimeOut(timer);
    }
}

// --- input -------------------------------------------------------------------------------------------------------------

static std::pair<Dimension, Dimension> sizeOf(Widget w)
{
    std::pair<Dimension, Dimension> size;
    XtVaGetValues(w, XtNwidth, &size.first, XtNheight, &size.second, nullptr);
    return size;
}

/// The nearest ancestor-or-self that has a window, and where the place is in it.
static Widget windowed(Widget w, int& x, int& y)
{
    for (; w && !XtIsWidget(w); w = XtParent(w)) {
        Position left = 0, top = 0;
        XtVaGetValues(w, XtNx, &left, XtNy, &top, nullptr);
        x += left;
        y += top;
    }
    return w;
}

void pointAt(Widget w, int x, int y)
{
    w = windowed(w, x, y);
    int rootX = 0, rootY = 0;
    Window child = None;
    XTranslateCoordinates(display(), XtWindow(w), RootWindowOfScreen(XtScreen(w)), x, y, &rootX, &rootY, &child);
    XTestFakeMotionEvent(display(), -1, rootX, rootY, 0);
    settle();
}

void press(Widget w, int x, int y, unsigned button)
{
    pointAt(w, x, y);
    XTestFakeButtonEvent(display(), button, True, 0);
    settle();
}

void release(unsigned button)
{
    XTestFakeButtonEvent(display(), button, False, 0);
    settle();
}

void click(Widget w, int x, int y, unsigned button)
{
    press(w, x, y, button);
    release(button);
}

void click(Widget w)
{
    const auto [width, height] = sizeOf(w);
    click(w, width / 2, height / 2);
}

void drag(Widget w, int fromX, int fromY, int toX, int toY, unsigned button)
{
    press(w, fromX, fromY, button);
    pointAt(w, (fromX + toX) / 2, (fromY + toY) / 2);
    pointAt(w, toX, toY);
    release(button);
}

void key(KeySym keysym, const std::vector<KeySym>& modifiers)
{
    const auto send = [](KeySym symbol, Bool down) {
        XTestFakeKeyEvent(display(), XKeysymToKeycode(display(), symbol), down, 0);
    };
    for (KeySym modifier : modifiers)
        send(modifier, True);
    send(keysym, True);
    send(keysym, False);
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        send(*modifier, False);
    settle();
}

void type(const std::string& text)
{
    for (const char c : text) {
        const KeySym keysym = c == '\n' ? XK_Return : static_cast<unsigned char>(c);
        const bool shifted = XkbKeycodeToKeysym(display(), XKeysymToKeycode(display(), keysym), 0, 0) != keysym;
        key(keysym, std::vector<KeySym>(shifted ? 1 : 0, XK_Shift_L));
    }
}

// --- the screen --------------------------------------------------------------------------------------------------------

/// All pixels of the widget's window, row by row.
static std::vector<unsigned long> pixelsOf(Widget w)
{
    const auto [width, height] = sizeOf(w);
    std::vector<unsigned long> pixels;
    XImage* image = XGetImage(display(), XtWindow(w), 0, 0, width, height, AllPlanes, ZPixmap);
    for (int i = 0; image && i < width * height; ++i)
        pixels.push_back(XGetPixel(image, i % width, i / width));
    if (image)
        XDestroyImage(image);
    return pixels;
}

unsigned long pixelAt(Widget w, int x, int y)
{
    const auto pixels = pixelsOf(w);
    const auto at = static_cast<std::size_t>(y * sizeOf(w).first + x);
    return at < pixels.size() ? pixels[at] : 0;
}

int colourCount(Widget w)
{
    const auto pixels = pixelsOf(w);
    return static_cast<int>(std::set(pixels.begin(), pixels.end()).size());
}

int pixelCount(Widget w, unsigned long pixel) { return static_cast<int>(std::ranges::count(pixelsOf(w), pixel)); }

bool isViewable(Widget w)
{
    int x = 0, y = 0;
    if (!w || !(XtIsManaged(w) || XtIsShell(w)) || !XtIsRealized(w = windowed(w, x, y)))
        return false;
    XWindowAttributes attributes;
    return XGetWindowAttributes(display(), XtWindow(w), &attributes) && attributes.map_state == IsViewable;
}

void screenshot(const std::string& name)
{
    const std::filesystem::path folder = std::filesystem::path(LUMORA_BINARY_DIR) / "screenshots";
    std::filesystem::create_directories(folder);
    settle();
    const std::string command = "import -window root '" + (folder / (name + ".png")).string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << "no screenshot: is imagemagick installed?";
}

void expectPicture(Widget w, const std::string& name)
{
    settle();
    const std::string committed = std::string(LUMORA_SOURCE_DIR "/tests/pictures/") + name + ".png";
    const std::string window = std::to_string(XtWindow(w));
    const std::string command = getenv("LUMORA_UPDATE_PICTURES")
                                    ? "import -window " + window + " -strip " + committed
                                    : "import -window " + window + " png:- | compare -metric AE - " + committed + " null: 2>&1";
    EXPECT_EQ(std::system((command + " >&2").c_str()), 0) << name;
}

// --- widgets -----------------------------------------------------------------------------------------------------------

Widget childNamed(Widget w, const std::string& path) { return XtNameToWidget(w, path.c_str()); }

std::string placeOf(Widget w)
{
    return std::to_string(w->core.width) + "x" + std::to_string(w->core.height) + "+" + std::to_string(w->core.x) + "+" +
           std::to_string(w->core.y);
}

void setSize(Widget w, int width, int height)
{
    XtVaSetValues(w, XmNwidth, static_cast<Dimension>(width), XmNheight, static_cast<Dimension>(height), nullptr);
    settle();
}

std::string textOf(Widget w, const char* resource)
{
    XmString value = nullptr;
    XtVaGetValues(w, resource, &value, nullptr);
    const lm::XmText owner(value);
    return lm::plainText(value);
}

void setResource(const std::string& line)
{
    XrmDatabase database = XtDatabase(display());
    XrmPutLineResource(&database, line.c_str());
}

std::string propertyOf(Widget w, const char* property)
{
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display(), XtWindow(w), XInternAtom(display(), property, False), 0, 1 << 20, False, AnyPropertyType, &type,
                       &format, &items, &left, &data);
    const lm::XString owner(reinterpret_cast<char*>(data));
    return format == 8 ? std::string(owner.get(), items) : "";
}

void sendProtocol(Widget shell, const char* protocol)
{
    XEvent event = {};
    event.xclient = {ClientMessage, 0, False, display(), XtWindow(shell), XInternAtom(display(), "WM_PROTOCOLS", False), 32, {}};
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display(), protocol, False));   // and [1] CurrentTime, 0
    XSendEvent(display(), XtWindow(shell), False, NoEventMask, &event);
    settle();
}

// --- output and exits --------------------------------------------------------------------------------------------------

static std::string outputOf(FILE* stream, const std::function<void()>& action)
{
    const lm::FileDescriptor file(memfd_create("output", MFD_CLOEXEC));
    std::fflush(stream);
    const lm::FileDescriptor saved(dup(fileno(stream)));
    dup2(file.get(), fileno(stream));
    action();
    std::fflush(stream);
    dup2(saved.get(), fileno(stream));
    std::ifstream input("/proc/self/fd/" + std::to_string(file.get()));
    return {std::istreambuf_iterator<char>(input), {}};
}

std::string stdoutOf(const std::function<void()>& action) { return outputOf(stdout, action); }

std::string stderrOf(const std::function<void()>& action) { return outputOf(stderr, action); }

int exitStatusOf(const std::function<void()>& action)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        action();
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 77 : 0);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int reducedInSanitizer(int times)
{
#ifdef __SANITIZE_ADDRESS__
    return times / 10;
#else
    return times;
#endif
}

// --- the fixture -------------------------------------------------------------------------------------------------------

OnScreen::OnScreen() { app(); }

OnScreen::~OnScreen()
{
    if (_shell)
        destroyShell();
    settle();
    EXPECT_EQ(takeErrors(), std::vector<std::string>());
}

Widget OnScreen::shell()
{
    if (!_shell)
        _shell = XtVaCreatePopupShell("shell", topLevelShellWidgetClass, app().baseWidget(), XmNallowShellResize, True, nullptr);
    return _shell;
}

void OnScreen::show(LmComponent& component, Dimension width, Dimension height)
{
    if (width && height)
        XtVaSetValues(shell(), XtNwidth, width, XtNheight, height, nullptr);
    component.show();
    XtPopup(shell(), XtGrabNone);
    settleUntil([this] { return isViewable(shell()); });
    settle();
}

void OnScreen::destroyShell()
{
    XtDestroyWidget(std::exchange(_shell, nullptr));
    settle();
}

std::vector<std::string> OnScreen::takeErrors() { return std::exchange(errors, {}); }

}   // namespace lmtest
