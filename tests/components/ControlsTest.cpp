#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmAlignmentGroup.h"
#include "LmCheckBox.h"
#include "LmGang.h"
#include "LmIconButton.h"
#include "LmRadioGroup.h"
#include "LmRepeatButton.h"

#include <X11/IntrinsicP.h>
#include <Xm/ArrowB.h>
#include <Xm/PushB.h>
#include <Xm/PushBGP.h>
#include <Xm/RowColumn.h>
#include <Xm/Scale.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <chrono>
#include <memory>

using namespace lmtest;
using namespace std::chrono;

namespace {

using ControlsOnScreen = OnScreen;

struct Presses {
    explicit Presses(LmRepeatButton& button)
    {
        button.addCallback(
            LmRepeatButton::buttonCallback,
            [](LmCallbackObject*, void* me, void* data) {
                static_cast<Presses*>(me)->add(*static_cast<LmRepeatButtonCallbackStruct*>(data));
            },
            this);
    }
    void add(const LmRepeatButtonCallbackStruct& press)
    {
        times.push_back(steady_clock::now());
        events += press.event ? 1 : 0;
    }
    /// Milliseconds from the first to the index-th.
    long at(std::size_t index) const { return duration_cast<milliseconds>(times.at(index) - times[0]).count(); }
    std::vector<steady_clock::time_point> times;
    int events = 0;
};

int valueOf(Widget scale)
{
    int value = 0;
    XmScaleGetValue(scale, &value);
    return value;
}

Pixel colourOf(Widget w, const char* resource)
{
    Pixel pixel = 0;
    XtVaGetValues(w, resource, &pixel, nullptr);
    return pixel;
}

const char* iconOf12x8[] = {"12 8 2 1",
                            "x s fillcolor c #000000",
                            ". s background c #ffffff",
                            "xxxxxxxxxxxx",
                            "x..........x",
                            "x..........x",
                            "x..........x",
                            "x..........x",
                            "x..........x",
                            "x..........x",
                            "xxxxxxxxxxxx"};

}   // namespace

TEST_F(ControlsOnScreen, AHeldButtonRepeatsUntilItIsReleasedOrDies)
{
    setResource("*pair.initialDelay: 300");
    setResource("*pair.repeatDelay: 100");
    Widget pair = XtVaCreateManagedWidget("pair", xmRowColumnWidgetClass, shell(), nullptr);
    LmRepeatButton button("button", pair, LmRB_ArrowButton);
    LmRepeatButton unlike("unlike", pair, static_cast<LmRepeatButtonType>(4));
    EXPECT_EQ(unlike.baseWidget(), nullptr);
    auto gadget = std::make_unique<LmRepeatButton>("gadget", pair, LmRB_PushButtonGadget);
    Presses presses(button), onGadget(*gadget);
    gadget->show();
    show(button);
    click(button.baseWidget());
    EXPECT_EQ(presses.times.size(), 1U);
    EXPECT_EQ(presses.events, 1);

    presses.times.clear();
    press(button.baseWidget(), 5, 5);
    settleUntil([&] { return presses.times.size() == 4; });
    release();
    EXPECT_GE(presses.at(1), 299);
    EXPECT_GE(presses.at(3), 499);
    EXPECT_LT(presses.at(3), 1500);
    EXPECT_EQ(LmRepeatButton("plain", shell(), LmRB_PushButton).initialDelay(), 1000);

    press(gadget->baseWidget(), 5, 5);
    settleUntil([&] { return onGadget.times.size() == 2; });
    gadget->addCallback(
        LmRepeatButton::buttonCallback, [](LmCallbackObject* b, void*, void*) { delete b; }, nullptr);
    const std::size_t before = onGadget.times.size();
    settleUntil([&] { return onGadget.times.size() > before; });
    gadget.release();
    release();
    press(button.baseWidget(), 5, 5);
    destroyShell();   // while it is held
    const std::size_t heard = presses.times.size();
    bool over = false;
    XtAppAddTimeOut(
        app().appContext(), 400, [](XtPointer flag, XtIntervalId*) { *static_cast<bool*>(flag) = true; }, &over);
    settleUntil([&] { return over; });
    EXPECT_EQ(presses.times.size(), heard);
    release();
}

TEST_F(ControlsOnScreen, ABoxOfTogglesTellsWhichChanged)
{
    auto box = std::make_unique<LmCheckBox>("box", shell());
    Heard heard(*box, LmCheckBox::itemChangedCallback);
    int own = 0;
    const auto count = [](Widget, XtPointer n, XtPointer) { ++*static_cast<int*>(n); };
    box->addItem("a", False, nullptr, nullptr);
    Widget b = box->addItem("b", True, count, &own);
    EXPECT_EQ(heard.values, std::vector{1});
    EXPECT_EQ(own, 1);
    show(*box);
    click(b);
    EXPECT_EQ(box->getValue(1), 0);
    const char states[] = {1, 1, 1};
    box->setValues(states, 3);   // there is no third
    box->setValue(-1, True);
    EXPECT_EQ(heard.values, (std::vector{1, 1, 0, 1}));
    EXPECT_EQ(box->getValue(0) + box->getValue(1) + box->getValue(2), 2);
    box->addCallback(
        LmCheckBox::itemChangedCallback, [](LmCallbackObject* x, void*, void*) { delete x; }, nullptr);
    click(b);
    box.release();
    EXPECT_EQ(childNamed(shell(), "box"), nullptr);

    LmRadioBox radio("radio", shell());
    Heard changed(radio, LmCheckBox::itemChangedCallback);
    for (const char* name : {"a", "b", "c"})
        radio.addItem(name, name[0] == 'a', nullptr, nullptr);
    radio.show();
    settle();
    changed.values.clear();
    radio.setValue(2, True);
    EXPECT_EQ(radio.getValue(0), 0);
    std::ranges::sort(changed.values);
    EXPECT_EQ(changed.values, (std::vector{0, 2}));
    XtDestroyWidget(childNamed(radio.baseWidget(), "*b"));
    click(childNamed(radio.baseWidget(), "*a"));
    EXPECT_EQ(radio.getValue(0), 1);
    destroyShell();
    EXPECT_EQ(radio.addItem("late", True, nullptr, nullptr), nullptr);
    radio.setValue(0, True);
}

TEST_F(ControlsOnScreen, AGangCouplesItsScalesWhileTheToggleIsOn)
{
    LmGang gang("gang", shell());
    show(gang, 260, 320);
    Widget toggle = childNamed(gang.baseWidget(), "gangToggle");
    EXPECT_EQ(textOf(childNamed(gang.baseWidget(), "*leftLabel")), "Left");
    EXPECT_EQ(toggle->core.width, 88);
    EXPECT_GT(gang.leftScale()->core.height, 200);   // the scales take what is to spare
    EXPECT_LT(gang.leftScale()->core.x, gang.rightScale()->core.x);
    Widget bar = childNamed(gang.leftScale(), "*Scrollbar");
    click(toggle);
    drag(bar, bar->core.width / 2, bar->core.height - 20, bar->core.width / 2, 60);
    const int value = valueOf(gang.leftScale());
    EXPECT_GT(value, 20);
    EXPECT_EQ(valueOf(gang.rightScale()), value);
    click(toggle);
    XmScaleSetValue(gang.rightScale(), 3);
    drag(bar, bar->core.width / 2, 60, bar->core.width / 2, 100);
    EXPECT_EQ(valueOf(gang.rightScale()), 3);

    click(toggle);
    XtAddCallback(
        gang.leftScale(), XmNvalueChangedCallback,
        [](Widget, XtPointer w, XtPointer) { XtDestroyWidget(static_cast<Widget>(w)); }, gang.rightScale());
    drag(bar, bar->core.width / 2, 100, bar->core.width / 2, 60);
    EXPECT_TRUE(gang.isGanged());
    destroyShell();
    EXPECT_FALSE(gang.isGanged());
}

TEST_F(ControlsOnScreen, AnIconButtonShowsItsPicturesInTheColoursOfTheButton)
{
    setResource("*bright.tevMode: True");
    setResource("*marginWidth: 0");
    setResource("*marginHeight: 0");
    setResource("*XmPushButton.shadowThickness: 0");
    setResource("*XmPushButton.highlightThickness: 0");
    Widget row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, shell(), XmNpacking, XmPACK_TIGHT, nullptr);
    Widget bright = XtVaCreateManagedWidget("bright", xmRowColumnWidgetClass, row, nullptr);
    auto plain = std::make_unique<LmIconButton>("plain", row, iconOf12x8, nullptr, False);
    LmIconButton highlighting("a longer label", bright, iconOf12x8, iconOf12x8, True);
    LmIconButton bare("bare", row, nullptr, nullptr, True);
    Dimension width = 0, height = 0;
    XtVaGetValues(plain->baseWidget(), XmNwidth, &width, XmNheight, &height, nullptr);
    EXPECT_EQ(width * 100 + height, 1218);
    for (LmComponent* button : std::initializer_list<LmComponent*>{&highlighting, &bare, plain.get()})
        show(*button);
    Widget w = plain->baseWidget();
    const Pixel foreground = colourOf(w, XmNforeground), background = colourOf(w, XmNbackground);
    const int left = 0;   // where the row aligns it
    EXPECT_EQ(pixelAt(w, left, (w->core.height - 18) / 2), foreground);
    EXPECT_EQ(pixelCount(w, foreground), 36);
    press(w, w->core.width / 2, 5);
    EXPECT_EQ(pixelAt(w, left + 5, 4), colourOf(w, XmNarmColor));
    release();
    XtSetSensitive(w, False);
    settle();
    EXPECT_EQ(pixelCount(w, foreground), 0);

    Widget h = highlighting.baseWidget();
    EXPECT_GT(pixelCount(h, colourOf(h, XmNforeground)), 60);   // icon and label
    const unsigned long before = pixelAt(h, 1, 1);
    pointAt(h, 5, 5);
    EXPECT_NE(pixelAt(h, 1, 1), before);
    pointAt(row, 300, 300);
    EXPECT_EQ(pixelAt(h, 1, 1), background);
    XtAddCallback(
        w, XmNactivateCallback, [](Widget, XtPointer b, XtPointer) { delete static_cast<LmIconButton*>(b); }, plain.get());
    XtSetSensitive(w, True);
    click(w);
    plain.release();
    destroyShell();
    highlighting.enter();
}

TEST_F(ControlsOnScreen, GroupsForgetMembersThatAreDestroyedInCallbacks)
{
    Widget column = XtVaCreateManagedWidget("column", xmRowColumnWidgetClass, shell(), nullptr);
    Widget buttons[3];
    LmRadioGroup radio;
    LmAlignmentGroup aligned;
    for (Widget& button : buttons) {
        button = XtVaCreateManagedWidget("button", &button == buttons ? xmToggleButtonWidgetClass : xmPushButtonWidgetClass,
                                         column, nullptr);
        radio.add(button);
        aligned.add(button);
    }
    XtPopup(shell(), XtGrabNone);
    settle();
    // The chosen one goes while another is being chosen.
    XtAddCallback(
        buttons[0], XmNvalueChangedCallback,
        [](Widget w, XtPointer, XtPointer data) {
            if (!static_cast<XmToggleButtonCallbackStruct*>(data)->set)
                XtDestroyWidget(w);
        },
        nullptr);
    click(buttons[0]);
    EXPECT_EQ(radio.selected(), buttons[0]);
    click(buttons[1]);
    EXPECT_EQ(radio.selected(), buttons[1]);
    EXPECT_EQ(radio.size(), 2);
    XtAddCallback(
        buttons[2], XmNactivateCallback, [](Widget, XtPointer w, XtPointer) { XtDestroyWidget(static_cast<Widget>(w)); },
        buttons[1]);
    click(buttons[2]);
    EXPECT_EQ(radio.selected(), buttons[2]);
    aligned.alignWidth();
    EXPECT_EQ(aligned.size(), 1);
}
