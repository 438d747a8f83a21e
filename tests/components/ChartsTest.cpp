#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmDeck.h"
#include "LmPie.h"
#include "LmTickMarks.h"
#include "LmVuMeter.h"

#include <X11/IntrinsicP.h>
#include <Xm/DrawingA.h>

#include <random>

using namespace lmtest;

namespace {

using ChartsOnScreen = OnScreen;

struct Counting : LmDoubleBuffer {
    Counting(const char* name, Widget parent) : LmDoubleBuffer(name, parent) {}
    void draw() override { ++drawn; }
    void resize() override { ++resized; }
    int drawn = 0, resized = 0;
};

Pixel colour(const char* name)
{
    XColor exact, near;
    XAllocNamedColor(app().display(), DefaultColormap(app().display(), 0), name, &near, &exact);
    return near.pixel;
}

}   // namespace

TEST_F(ChartsOnScreen, ADeckTurnsBothWaysAndForgetsWhatIsDestroyed)
{
    LmDeck deck("deck", shell());
    Widget views[3];
    for (Widget& view : views) {
        view = XtVaCreateManagedWidget("view", xmDrawingAreaWidgetClass, deck.baseWidget(), XmNwidth, 50, XmNheight, 50, nullptr);
        deck.addView(view);
    }
    deck.push();
    EXPECT_EQ(deck.current(), 2);   // from none, the last
    show(deck);
    deck.pop();
    deck.pop(views[1]);
    EXPECT_EQ(deck.current(), 1);
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    XQueryTree(app().display(), XtWindow(deck.baseWidget()), &root, &parent, &children, &count);
    EXPECT_EQ(children[count - 1], XtWindow(views[1]));   // on top
    XFree(children);
    deck.push(views[0], static_cast<LmDeck::TransitionStyle>(3));
    EXPECT_EQ(deck.current(), 1);
    XtDestroyWidget(views[2]);
    deck.pop();
    EXPECT_EQ(deck.current(), 0);
}

TEST_F(ChartsOnScreen, ADoubleBufferPaintsOnlyWhenAskedAndSurvivesEverySize)
{
    Counting area("area", shell());
    show(area, 60, 60);
    area.update();
    const int drawn = area.drawn;
    XClearArea(app().display(), XtWindow(area.baseWidget()), 0, 0, 0, 0, True);
    settle();
    EXPECT_EQ(area.drawn, drawn);   // an expose shows the front again
    std::mt19937 random(20261122);
    LmMeter meter("meter", area.baseWidget());
    LmPie pie("pie", area.baseWidget());
    LmTickMarks marks("marks", area.baseWidget(), True, False, True);
    LmVuMeter level("level", area.baseWidget());
    for (LmMeter* chart : {&meter, static_cast<LmMeter*>(&pie)}) {
        chart->reset(100, 7);
        chart->add(63, 3, "red", "label");
    }
    for (LmComponent* chart : std::initializer_list<LmComponent*>{&meter, &pie, &marks, &level})
        chart->show();
    for (int i = 0; i < reducedInSanitizer(500); ++i) {
        const auto size = [&] { return static_cast<Dimension>(i == 0 ? 1 : i == 1 ? 32767 : 1 + random() % 400); };
        for (LmComponent* chart : std::initializer_list<LmComponent*>{&area, &meter, &pie, &marks, &level})
            XtResizeWidget(chart->baseWidget(), size(), size(), 0);
        level.setValue(i % 111, i % 50);
        area.update();
    }
    settle();
    EXPECT_GE(area.resized, 4);
    destroyShell();
    area.update();
    area.setBackground(0);
}

TEST_F(ChartsOnScreen, AMeterStacksItsItemsFromTheBottom)
{
    LmMeter meter("meter", shell());
    show(meter, 40, 200);
    meter.add(10, "red", nullptr);   // before reset: nothing to measure against
    meter.update();
    meter.reset(200, 10);
    for (const char* name : {"red", "green", "blue"})
        meter.add(name == std::string("blue") ? 100 : 50, name, name);
    meter.add(1, "red", nullptr);   // past the end
    meter.update();
    settle();
    EXPECT_EQ(pixelAt(meter.baseWidget(), 5, 199), colour("red"));
    EXPECT_EQ(pixelAt(meter.baseWidget(), 5, 149), colour("green"));
    EXPECT_EQ(pixelAt(meter.baseWidget(), 5, 0), colour("blue"));
    EXPECT_EQ(pixelCount(meter.baseWidget(), colour("red")), 10 * 50);
    expectPicture(meter.baseWidget(), "meter");
    setSize(shell(), 40, 100);
    EXPECT_EQ(pixelCount(meter.baseWidget(), colour("red")), 10 * 25);
}

TEST_F(ChartsOnScreen, APieTakesTheSizeItNeedsAndAFullOneIsADisc)
{
    setResource("*pie.resizePolicy: RESIZE_ANY");
    LmPie pie("pie", shell());
    show(pie, 30, 30);
    pie.reset(10, 20);
    pie.add(10, 1, "red", "everything");
    pie.setTitle("A title that is wider than the disc itself");
    pie.setRadius(50);
    pie.update();
    settle();
    EXPECT_EQ(pie.graphHeight(), pie.neededHeight());
    EXPECT_GT(pie.graphWidth(), 100);
    const int middle = pie.graphHeight() - 25 - 20;   // of the upper face
    EXPECT_EQ(pixelAt(pie.baseWidget(), 50, middle - 10), colour("red"));
    EXPECT_EQ(pixelAt(pie.baseWidget(), 80, middle), colour("red"));   // no radial edge

    pie.reset(100, 10);
    for (const auto& [size, name] : {std::pair(40, "steelblue"), {33, "orange"}, {12, "forestgreen"}})
        pie.add(size, size / 10, name, name);
    pie.update();
    expectPicture(pie.baseWidget(), "pie");
    pie.update();   // the other buffer
    XClearArea(app().display(), XtWindow(pie.baseWidget()), 0, 0, 0, 0, True);
    expectPicture(pie.baseWidget(), "pie");
}

TEST_F(ChartsOnScreen, ALevelIsShownAndTheSameAgainCostsNoRequest)
{
    LmVuMeter meter("meter", shell());
    meter.setValue(0, 111);   // before there is a window
    show(meter, 20, 220);
    EXPECT_EQ(pixelAt(meter.baseWidget(), 10, 10), colour("red"));
    EXPECT_EQ(pixelAt(meter.baseWidget(), 10, 50), colour("yellow"));
    EXPECT_EQ(pixelAt(meter.baseWidget(), 10, 210), colour("forestgreen"));
    for (const int level : {110, 3, 47, 95, 58})   // in several steps
        meter.setValue(level, level - 25);
    expectPicture(meter.baseWidget(), "level");
    meter.expose();   // and in one
    expectPicture(meter.baseWidget(), "level");
    meter.setValue(110, 111);
    settle();
    EXPECT_NE(pixelAt(meter.baseWidget(), 10, 210), colour("forestgreen"));
    const unsigned long before = NextRequest(app().display());
    meter.setValue(110, 111);
    EXPECT_EQ(NextRequest(app().display()), before);
    destroyShell();
    meter.setValue(5, 5);
}

TEST_F(ChartsOnScreen, AScaleMakesRoomForItsNumbers)
{
    LmTickMarks marks("marks", shell(), False, False, False), bare("bare", shell(), True, True, False);
    const auto widthOf = [](LmComponent& c) {
        Dimension width = 0;
        XtVaGetValues(c.baseWidget(), XmNwidth, &width, nullptr);
        return width;
    };
    const Dimension before = widthOf(marks);
    marks.setScale(-100000, 100000, 50000, 10000);
    EXPECT_GT(widthOf(marks), before);
    show(marks, 120, 200);
    marks.addLabel(0);
    marks.draw();
    expectPicture(marks.baseWidget(), "marks");
    marks.setScale(3, 3, 0, -1);   // an empty range
    destroyShell();
    marks.draw();
}
