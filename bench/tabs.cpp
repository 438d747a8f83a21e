// A strip of 10,000 tabs: what selecting one costs, with all that is drawn, until the server is done; near and far ones by turns.
// Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmTabPanel.h>

#include <X11/Shell.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int tabCount = 10000;

Widget newShell()
{
    return XtVaCreatePopupShell("bench", topLevelShellWidgetClass, theApplication->baseWidget(), XmNwidth, 1200, XmNheight, 40,
                                nullptr);
}

void fill(LmTabPanel& panel)
{
    for (int i = 0; i < tabCount; ++i)
        panel.addTab(("tab " + std::to_string(i)).c_str(), nullptr, False);
}

void selection(benchmark::State& state)
{
    LmTabPanel panel("panel", newShell(), True, 0);
    fill(panel);
    panel.show();
    XtPopup(XtParent(panel.baseWidget()), XtGrabNone);
    theApplication->handlePendingEvents();
    int tab = 0;
    for (auto _ : state) {
        tab = (tab + static_cast<int>(state.range(0))) % tabCount;
        panel.selectTab(tab, nullptr);
        XSync(theApplication->display(), False);
    }
}

void filling(benchmark::State& state)
{
    Widget shell = newShell();
    for (auto _ : state) {
        LmTabPanel panel("panel", shell, True, 0);
        fill(panel);
    }
}

}   // namespace

BENCHMARK(selection)->ArgName("step")->Arg(1)->Arg(3700)->Arg(9999)->Unit(benchmark::kMillisecond);
BENCHMARK(filling)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    benchmark::RunSpecifiedBenchmarks();
}
