#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmResizer.h"

#include <X11/IntrinsicP.h>
#include <Xm/BulletinB.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/LabelG.h>
#include <Xm/TextF.h>

#include <memory>

using namespace lmtest;

namespace {

/// A board of 400 x 300 with a widget of 100 x 80 at 50, 60, and a text field beside the board.
struct ResizerOnScreen : OnScreen {
    ResizerOnScreen()
    {
        Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell(), nullptr);
        field = XtVaCreateManagedWidget("field", xmTextFieldWidgetClass, form, XmNy, 320, XmNwidth, 100, nullptr);
        board = newBoard(form);
        widget = newWidget(board);
        XtVaSetValues(shell(), XmNwidth, 600, XmNheight, 400, nullptr);
        XtPopup(shell(), XtGrabNone);
        settle();
    }
    static Widget newBoard(Widget parent)
    {
        return XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, parent, XmNwidth, 400, XmNheight, 300,
                                       XmNresizePolicy, XmRESIZE_NONE, nullptr);
    }
    static Widget newWidget(Widget parent)
    {
        return XtVaCreateManagedWidget("widget", xmLabelWidgetClass, parent, XmNx, 50, XmNy, 60, XmNwidth, 100, XmNheight, 80,
                                       XmNrecomputeSize, False, nullptr);
    }
    Widget part(const char* name) { return childNamed(board, std::string("*resize") + name); }
    static std::string lastOf(LmResizer& resizer)
    {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        resizer.lastLocation(&x, &y, &width, &height);
        return std::to_string(width) + "x" + std::to_string(height) + "+" + std::to_string(x) + "+" + std::to_string(y);
    }
    /// Whether keys arrive again: a drag holds them back.
    void expectKeysAreFree()
    {
        release();
        click(field);
        type("ab");
        EXPECT_EQ(std::string(lm::XtString(XmTextFieldGetString(field)).get()), "ab");
        XmTextFieldSetString(field, const_cast<char*>(""));
    }
    Widget field, board, widget;
};

}   // namespace

TEST_F(ResizerOnScreen, TheWidgetTakesTheFrameInStepsWhenTheButtonGoesUp)
{
    LmResizer resizer(False, False);
    Heard heard(resizer, LmResizer::stateChangedCallback);
    resizer.attach(widget);
    EXPECT_FALSE(isViewable(part("Frame")));
    resizer.setIncrements(10, 10, 5, 0);
    resizer.show();
    settle();
    EXPECT_EQ(lastOf(resizer), "100x80+50+60");
    EXPECT_EQ(placeOf(part("Frame")), "112x92+44+54");
    EXPECT_EQ(placeOf(part("GripUR")), "8x8+148+54");
    EXPECT_EQ(placeOf(part("GripLL")), "8x8+44+138");
    for (const char* background : {"black", "white"}) {   // the raised edges are seen on each
        XtVaSetValues(board, XtVaTypedArg, XmNbackground, XtRString, background, 6, nullptr);
        resizer.adjustGeometry();
        settle();
        EXPECT_EQ(colourCount(part("GripUR")), 3) << background;
    }

    press(part("GripUR"), 4, 4);
    pointAt(board, 179, 44);
    EXPECT_EQ(placeOf(part("Frame")), "132x102+44+44");
    EXPECT_EQ(placeOf(widget), "100x80+50+60");
    EXPECT_EQ(lastOf(resizer), "120x90+50+50");
    EXPECT_FALSE(isViewable(part("GripLL")));
    release(2);
    release(1);
    EXPECT_EQ(placeOf(widget), "120x90+50+50");
    EXPECT_EQ(lastOf(resizer), "120x90+50+50");
    EXPECT_EQ(placeOf(part("GripUR")), "8x8+168+44");
    EXPECT_TRUE(isViewable(part("GripLL")));
    EXPECT_EQ(heard.values, (std::vector{1, 3}));

    drag(part("GripLL"), 4, 4, 24, 40, 2);   // along x only
    EXPECT_EQ(placeOf(widget), "120x90+70+50");
    EXPECT_EQ(heard.values.back(), 4);
    drag(part("GripLL"), 4, 4, 300, 4);
    EXPECT_EQ(placeOf(widget), "120x90+70+50");
    XtVaSetValues(widget, XmNx, 100, nullptr);
    settle();
    EXPECT_EQ(placeOf(part("Frame")), "132x102+64+44");   // not by itself
    expectKeysAreFree();

    resizer.setIncrements(0, 0, 1, 1);
    const std::size_t before = heard.values.size();
    drag(part("GripUR"), 4, 4, 50, 50);
    resizer.setIncrements(256, 0, 0, 0);   // cut off to 0
    drag(part("GripUR"), 4, 4, 50, 50);
    drag(part("GripUR"), 4, 4, 50, 50, 2);
    EXPECT_EQ(heard.values.size(), before);
    resizer.detach();
    EXPECT_FALSE(isViewable(part("Frame")));
    EXPECT_TRUE(isViewable(widget));
}

TEST_F(ResizerOnScreen, InLiveModeTheWidgetFollowsAndTheFrameFollowsIt)
{
    auto resizer = std::make_unique<LmResizer>(True, True);
    Heard heard(*resizer, LmResizer::stateChangedCallback);
    resizer->attach(widget);
    resizer->show();
    settle();
    press(part("GripUR"), 4, 4);
    pointAt(board, 162, 48);
    EXPECT_EQ(placeOf(widget), "110x90+50+50");
    pointAt(board, 172, 38);   // not twice as far: the frame is not rebuilt meanwhile
    EXPECT_EQ(placeOf(widget), "120x100+50+40");
    release();
    EXPECT_EQ(heard.values, (std::vector{1, 1, 3}));
    XtVaSetValues(widget, XmNwidth, 60, nullptr);
    settle();
    EXPECT_EQ(placeOf(part("Frame")), "72x112+44+34");

    Widget other = newBoard(XtParent(board)), second = newWidget(other);
    settle();
    resizer->attach(second);
    settle();
    EXPECT_EQ(part("Frame"), nullptr);
    EXPECT_NE(childNamed(other, "*resizeFrame"), nullptr);
    resizer.reset();
    settle();
    EXPECT_EQ(childNamed(other, "*widget"), nullptr);   // it owned the widget
    EXPECT_EQ(childNamed(other, "*resizeFrame"), nullptr);
    EXPECT_TRUE(isViewable(widget));
    XtVaSetValues(other, XmNwidth, 300, nullptr);   // and left no handler behind
    settle();
}

TEST_F(ResizerOnScreen, HoweverADragEndsPointerAndKeyboardAreFreeAfterwards)
{
    using End = void (*)(ResizerOnScreen&, std::unique_ptr<LmResizer>&);
    const End ends[] = {[](ResizerOnScreen& t, auto&) { XtDestroyWidget(t.widget); },
                        [](ResizerOnScreen& t, auto&) { XtDestroyWidget(t.board); },
                        [](ResizerOnScreen& t, auto&) {
                            XtDestroyWidget(t.part("Frame"));
                            release();
                        },
                        [](ResizerOnScreen& t, auto&) { XtUnmanageChild(t.board); },
                        [](ResizerOnScreen&, auto& resizer) { resizer->detach(); },
                        [](ResizerOnScreen&, auto& resizer) { resizer.reset(); },
                        [](ResizerOnScreen& t, auto& resizer) {
                            resizer->addCallback(
                                LmResizer::stateChangedCallback, [](LmCallbackObject* r, void*, void*) { delete r; }, nullptr);
                            pointAt(t.board, 200, 50);
                            resizer.release();
                        }};
    for (const End end : ends) {
        auto resizer = std::make_unique<LmResizer>(True, False);
        resizer->attach(widget);
        resizer->show();
        settle();
        press(part("GripUR"), 4, 4);
        pointAt(board, 170, 50);
        end(*this, resizer);
        settle();
        pointAt(shell(), 300, 200);
        expectKeysAreFree();
        resizer.reset();
        settle();
        Widget form = XtParent(field);
        if (!childNamed(form, "board"))
            board = newBoard(form);
        XtResizeWidget(board, 410, 300, 0);   // nobody listens any more
        settle();
        XtResizeWidget(board, 400, 300, 0);
        XtManageChild(board);
        if (!childNamed(board, "widget"))
            widget = newWidget(board);
        settle();
    }
    Widget gadget = XtVaCreateManagedWidget("gadget", xmLabelGadgetClass, board, nullptr);
    EXPECT_EQ(exitStatusOf([gadget] { LmResizer(True, True).attach(gadget); }), 128 + SIGABRT);
}
