// OnScreen.h: fixture and vocabulary for tests that need an X server.
#pragma once

#include <gtest/gtest.h>   // before any X header: X.h defines None, Bool, Status as macros

#include "LmApp.h"
#include "LmSimpleWindow.h"
#include "support/calldata.h"
#include "tests/support/Servers.h"

#include <X11/keysym.h>

#include <functional>
#include <string>
#include <vector>

namespace lmtest {

/// The application object of this test process, "lmtest" of class "LmTest"; made at the first call.
LmApp& app();

// --- waiting: never by time --------------------------------------------------------------------------------------------

/// Dispatches until neither the server nor Xt has anything left for us, through LmApp's own handling of raw events.
void settle();
/// Dispatches until the condition holds; fails the test when it does not within the limit.
void settleUntil(const std::function<bool()>& condition, int milliseconds = 10000);

// --- input, through XTEST ----------------------------------------------------------------------------------------------

/// Moves the pointer to a place in the widget's coordinates.
void pointAt(Widget w, int x, int y);
/// Presses and releases a button there.
void click(Widget w, int x, int y, unsigned button = 1);
void press(Widget w, int x, int y, unsigned button = 1);
void release(unsigned button = 1);
/// A click in the middle of a widget or gadget.
void click(Widget w);
/// Presses the button at one place, moves, and releases it at the other.
void drag(Widget w, int fromX, int fromY, int toX, int toY, unsigned button = 1);
/// Presses and releases a key, while the modifiers (XK_Control_L ...) are down.
void key(KeySym keysym, const std::vector<KeySym>& modifiers = {});
/// Types text of ASCII characters.
void type(const std::string& text);

// --- what is on the screen ---------------------------------------------------------------------------------------------

unsigned long pixelAt(Widget w, int x, int y);
/// How many different pixels the widget's window shows.
int colourCount(Widget w);
/// How many pixels of the widget's window have that value.
int pixelCount(Widget w, unsigned long pixel);
/// Whether the widget is managed, realized and visible on the screen.
bool isViewable(Widget w);
/// Writes the whole screen to build/screenshots/<name>.png, for people to look at.
void screenshot(const std::string& name);

/// Compares what a widget shows with tests/pictures/<name>.png. LUMORA_UPDATE_PICTURES=1 writes the picture instead.
void expectPicture(Widget w, const std::string& name);

// --- widgets -----------------------------------------------------------------------------------------------------------

/// The widget that a resource path such as "*menuBar" names, from `w` down; null when there is none.
Widget childNamed(Widget w, const std::string& path);
/// "WxH+X+Y" of a widget in its parent.
std::string placeOf(Widget w);
/// Gives a widget a size, and lets everything follow.
void setSize(Widget w, int width, int height);
/// The text of an XmString resource of the widget, lines joined by newlines.
std::string textOf(Widget w, const char* resource = "labelString");
/// Merges one resource line into the application's database.
void setResource(const std::string& line);
/// A property of the widget's window as text; "" when it is not there.
std::string propertyOf(Widget w, const char* property);
/// Has the window manager's message arrive at a shell: "WM_DELETE_WINDOW" or "_WM_QUIT_APP".
void sendProtocol(Widget shell, const char* protocol);

// --- what the program says ---------------------------------------------------------------------------------------------

std::string stdoutOf(const std::function<void()>& action);
std::string stderrOf(const std::function<void()>& action);
/// Runs the action in a child process of its own, which must not have an application object from its parent. The child
/// leaves with status 0 when the action returns. Answers the exit status, or 128 + the signal.
int exitStatusOf(const std::function<void()>& action);

/// How often a long run repeats what it does: a tenth where a sanitizer makes everything slower.
int reducedInSanitizer(int times);

/// What an object announced under one name, in order, as integers.
struct Heard {
    Heard(LmCallbackObject& object, const char* name)
    {
        object.addCallback(
            name, [](LmCallbackObject*, void* me, void* data) { static_cast<Heard*>(me)->values.push_back(lm::asInt(data)); },
            this);
    }
    std::vector<int> values;
};

/// The fixture: an application object, and no X error and no Xt warning at the end, unless the test takes them.
class OnScreen : public testing::Test {
protected:
    OnScreen();
    ~OnScreen() override;

    /// A shell for components that are no windows; made at the first call, realized by show().
    Widget shell();
    /// Shows a component in shell() at a size, or at its natural one (0).
    void show(LmComponent& component, Dimension width = 0, Dimension height = 0);
    void destroyShell();

    /// Errors and warnings since the last call.
    std::vector<std::string> takeErrors();

private:
    Widget _shell = nullptr;
};

}   // namespace lmtest
