#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmContextHelp.h"
#include "LmHelpPane.h"
#include "LmLocateHighlight.h"
#include "LmMenuBar.h"
#include "LmWindow.h"
#include "support/handles.h"

#include <X11/extensions/XTest.h>
#include <X11/extensions/Xfixes.h>
#include <Xm/LabelG.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>

#include <sys/wait.h>

using namespace lmtest;

namespace {

std::vector<std::string> asked;

void noteHelp(char* key, unsigned long time, Widget w)
{
    asked.push_back(std::string(key) + (w ? std::string(" ") + XtName(w) : "") + (time ? " timed" : ""));
}

struct BoxWindow : LmWindow {
    explicit BoxWindow(const char* name) : LmWindow(name)
    {
        setMenuBar(static_cast<LmMenuDesc*>(nullptr));
        show();
        settleUntil([this] { return isViewable(box); });
    }
    Widget setUpInterface(Widget parent) override
    {
        box = XtVaCreateWidget("box", xmRowColumnWidgetClass, parent, nullptr);
        gadget = XtVaCreateManagedWidget("gadget", xmLabelGadgetClass, box, nullptr);
        button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, box, nullptr);
        toggle = XtVaCreateManagedWidget("toggle", xmToggleButtonWidgetClass, box, nullptr);
        return box;
    }
    LmHelpPane* pane() { return menu()->helpPane(); }
    Widget box, gadget, button, toggle;
};

struct ContextHelpOnScreen : OnScreen {
    ContextHelpOnScreen() { LmHelpPane::setHelpFunctions(noteHelp, nullptr, nullptr); }
    BoxWindow* keeper = new BoxWindow("keeper");   // so that no test ends the program with its last window
    BoxWindow window{"window"};
};
using Asked = std::vector<std::string>;
Asked takeAsked() { return std::exchange(asked, {}); }

unsigned long cursorSerial(Display* display)
{
    const std::unique_ptr<XFixesCursorImage, lm::FreeWith<lm::xFree>> image(XFixesGetCursorImage(display));
    return image->cursor_serial;
}

/// Picks from a process and a connection of its own: while the program waits for a pick it does nothing else. There the cursor
/// is awaited that says so.
void clickElsewhere(int x, int y, int ready)
{
    Display* display = XOpenDisplay(nullptr);
    const unsigned long before = cursorSerial(display);
    if (write(ready, "", 1) != 1)
        _exit(1);
    while (cursorSerial(display) == before)
        usleep(1000);
    XTestFakeMotionEvent(display, -1, x, y, 0);
    XTestFakeButtonEvent(display, 1, True, 0);
    XTestFakeButtonEvent(display, 1, False, 0);
    XSync(display, False);
    _exit(0);
}

/// What help was asked for when the user picked at a place of a widget.
Asked picked(BoxWindow& window, Widget w, int x, int y)
{
    Position rootX = 0, rootY = 0;
    XtTranslateCoords(w, static_cast<Position>(x), static_cast<Position>(y), &rootX, &rootY);
    int ready[2] = {};
    EXPECT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0)
        clickElsewhere(rootX, rootY, ready[1]);
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    LmHelpPane::contextCallback(window.pane()->baseWidget(), window.pane(), nullptr);
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    close(ready[0]);
    close(ready[1]);
    settle();
    return takeAsked();
}

}   // namespace

TEST_F(ContextHelpOnScreen, KeysAreTheNamesOnTheWayDown)
{
    Widget top = window.baseWidget();
    const auto asks = [](Widget w, LmContextHelpCallbackStruct call) {
        _LmSmartHelpCallback(w, nullptr, &call);
        return takeAsked();
    };
    EXPECT_EQ(asks(top, {57, nullptr, window.gadget}), Asked{"window.window.box.gadget window"});
    EXPECT_EQ(asks(window.box, {57, nullptr, window.gadget}), Asked{"box.gadget box"});
    EXPECT_EQ(asks(window.toggle, {57, nullptr, window.box}), Asked{"lmtest.window.window.box"});
    EXPECT_EQ(asks(top, {57, nullptr, nullptr}), Asked{});
    EXPECT_EQ(asks(top, {XmCR_HELP, nullptr, window.box}), Asked{});

    XEvent event = {};
    event.xkey = {.type = KeyPress, .display = app().display(), .window = XtWindow(window.box), .x = 6, .y = 6};
    EXPECT_EQ(asks(top, {XmCR_HELP, &event, nullptr}), Asked{"window.window.box.gadget window"});
    event.xkey.x = 9999;
    EXPECT_EQ(asks(top, {XmCR_HELP, &event, nullptr}), Asked{"window.window.box window"});
    event.xkey.window = None;
    EXPECT_EQ(asks(top, {XmCR_HELP, &event, nullptr}), Asked{});
}

TEST_F(ContextHelpOnScreen, TheHelpKeyAsksForWhatIsUnderThePointer)
{
    XtAddCallback(window.box, XmNhelpCallback, _LmSmartHelpCallback, nullptr);
    pointAt(window.gadget, 3, 3);
    key(XK_F1);
    EXPECT_EQ(takeAsked(), Asked{"box.gadget box"});
}

TEST_F(ContextHelpOnScreen, GivenKeysAreCopied)
{
    const auto keyOf = [](Widget w) {
        XtCallbackList list = nullptr;
        XtVaGetValues(w, XmNhelpCallback, &list, nullptr);
        return list && list->callback == LmHelpCallback ? std::string(static_cast<char*>(list->closure)) : "(none)";
    };
    char given[] = "key";
    LmAddContextHelpCallback(window.gadget, given);
    LmAddContextHelpCallback(&window, window.toggle, given);
    given[0] = '-';
    LmAddContextHelpCallback(&window, window.button);
    EXPECT_EQ(keyOf(window.gadget), "key");
    EXPECT_EQ(keyOf(window.toggle), "window.key");
    EXPECT_EQ(keyOf(window.button), "window.button");
    LmAddContextHelpCallback(window.baseWidget(), "a shell has no such list");
    XtDestroyWidget(window.button);
    settle();
}

TEST_F(ContextHelpOnScreen, AWidgetIsPickedWithThePointer)
{
    BoxWindow other("other");
    XtVaSetValues(other.baseWidget(), XmNx, 400, XmNy, 300, nullptr);
    settle();
    EXPECT_EQ(picked(window, window.gadget, 3, 3), Asked{"window.window.box.gadget window"});
    EXPECT_EQ(picked(window, other.toggle, 3, 3), Asked{"lmtest.other.other.box.toggle"});
    EXPECT_EQ(picked(window, window.box, 700, 500), Asked{});

    const XtCallbackProc note = [](Widget w, XtPointer, XtPointer data) {
        const auto* call = static_cast<LmContextHelpCallbackStruct*>(data);
        asked.push_back(std::string(XtName(w)) + " for " + XtName(call->widget) + " " + std::to_string(call->reason));
        EXPECT_EQ(call->event, nullptr);
    };
    XtAddCallback(window.box, XmNhelpCallback, note, nullptr);
    EXPECT_EQ(picked(window, window.gadget, 3, 3), Asked{"box for gadget 57"});
    XtAddCallback(
        window.button, XmNactivateCallback, [](Widget, XtPointer, XtPointer) { asked.emplace_back("pressed"); }, nullptr);
    click(window.button);
    EXPECT_EQ(takeAsked(), Asked{"pressed"});   // picks press nothing, and leave no grab
}

TEST_F(ContextHelpOnScreen, ButtonsLightUpUnderThePointer)
{
    const auto backgroundOf = [](Widget w) {
        Pixel pixel = 0;
        XtVaGetValues(w, XmNbackground, &pixel, nullptr);
        return pixel;
    };
    setResource("*buttonBackground: #808080");
    LmSetupLocateHighlight();
    LmSetupLocateHighlight();
    pointAt(window.button, 3, 3);
    EXPECT_EQ(backgroundOf(window.button), 0xaaaaaaU);   // Motif's top shadow of it is #c6c6c6
    const Pixel plain = backgroundOf(window.toggle);
    pointAt(window.toggle, 3, 3);
    EXPECT_EQ(backgroundOf(window.button), 0x808080U);
    EXPECT_EQ(backgroundOf(window.toggle), plain);

    XtSetSensitive(window.button, False);
    pointAt(window.button, 3, 3);
    EXPECT_EQ(backgroundOf(window.button), 0x808080U);
}

TEST(ContextHelp, TheResourceAsksForLocateHighlight)
{
    const XtTimerCallbackProc look = [](XtPointer w, XtIntervalId*) {
        XEvent event = {};
        Pixel pixel = 0;
        XtCallActionProc(static_cast<Widget>(w), "Enter", &event, nullptr, 0);
        XtVaGetValues(static_cast<Widget>(w), XmNbackground, &pixel, nullptr);
        _exit(pixel == 0x010203);
    };
    for (const bool wanted : {false, true})
        EXPECT_EQ(wanted, exitStatusOf([=] {
                      app();
                      setResource(wanted ? "*locateHighlight: True" : "*locateHighlight: False");
                      setResource("*buttonHighlight: #010203");
                      XtAppAddTimeOut(app().appContext(), 0, look, (new BoxWindow("window"))->button);
                      app().run();
                  }));
}
