// A meter of 100 items, 300 by 300 pixels, redrawn and synchronised, beside the same drawing in plain Motif; and a level meter.
// Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmMeter.h>
#include <Lm/LmVuMeter.h>

#include <X11/Shell.h>
#include <Xm/DrawingA.h>

#include <benchmark/benchmark.h>

namespace {

constexpr int side = 300, items = 100;

Widget newShell()
{
    return XtVaCreatePopupShell("bench", topLevelShellWidgetClass, theApplication->baseWidget(), XmNwidth, side, XmNheight, side,
                                nullptr);
}

void pop(Widget shell)
{
    XtPopup(shell, XtGrabNone);
    theApplication->handlePendingEvents();
}

void lumoraMeter(benchmark::State& state)
{
    LmMeter meter("meter", newShell());
    meter.show();
    pop(XtParent(meter.baseWidget()));
    for (auto _ : state) {
        meter.reset(items, side);
        for (int i = 0; i < items; ++i)
            meter.add(1, static_cast<Pixel>(i * 0x020104), nullptr);
        meter.update();
        XSync(theApplication->display(), False);
    }
    state.counters["frames/s"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void plainMotifMeter(benchmark::State& state)
{
    Widget area = XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, newShell(), nullptr);
    pop(XtParent(area));
    Display* display = XtDisplay(area);
    const auto depth = static_cast<unsigned>(DefaultDepth(display, 0));
    Pixmap buffer = XCreatePixmap(display, XtWindow(area), side, side, depth);
    GC pen = XCreateGC(display, buffer, 0, nullptr), clear = XCreateGC(display, buffer, 0, nullptr);
    for (auto _ : state) {
        XFillRectangle(display, buffer, clear, 0, 0, side, side);
        for (int i = 0; i < items; ++i) {
            XSetForeground(display, pen, static_cast<Pixel>(i * 0x020104));
            XFillRectangle(display, buffer, pen, 0, side - 3 * (i + 1), side, 3);
        }
        XCopyArea(display, buffer, XtWindow(area), pen, 0, 0, side, side, 0, 0);
        XSync(display, False);
    }
    state.counters["frames/s"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    XFreeGC(display, pen);
    XFreeGC(display, clear);
    XFreePixmap(display, buffer);
}

void lumoraLevel(benchmark::State& state)
{
    LmVuMeter meter("meter", newShell());
    meter.show();
    pop(XtParent(meter.baseWidget()));
    int level = 0;
    for (auto _ : state) {
        level = (level * 37 + 11) % 111;
        meter.setValue(level, level / 2);
        XFlush(theApplication->display());
    }
}

}   // namespace

BENCHMARK(plainMotifMeter)->Unit(benchmark::kMillisecond);
BENCHMARK(lumoraMeter)->Unit(benchmark::kMillisecond);
BENCHMARK(lumoraLevel)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    benchmark::RunSpecifiedBenchmarks();
}
