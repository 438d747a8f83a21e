// What 2,000 menu items cost, from nested tables to filled panes, beside the same menus in plain Motif. Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmMenuBar.h>
#include <Lm/LmMenuItem.h>
#include <Lm/LmSubMenu.h>
#include <Lm/LmWindow.h>
#include <Lm/support/resources.h>

#include <Xm/CascadeBG.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <malloc.h>

namespace {

// --- the menus: 10 panes of 10 submenus of 20 actions -------------------------------------------------------------------

constexpr int panes = 10, submenus = 10, actions = 20;

void chosen(Widget, XtPointer, XtPointer) {}

struct Tables {
    Tables()
    {
        for (int i = 0; i < 100; ++i)
            names[i] = "item" + std::to_string(i);
        for (int i = 0; i < panes * submenus; ++i) {
            for (int k = 0; k < actions; ++k)
                leaves[i][k] = {MENU_ACTION, names[k].c_str(), chosen};
            leaves[i][actions] = {MENU_END};
        }
        for (int i = 0; i < panes; ++i) {
            for (int k = 0; k < submenus; ++k)
                middle[i][k] = {MENU_SUBMENU, names[k].c_str(), nullptr, leaves[i * submenus + k]};
            middle[i][submenus] = {MENU_END};
            bar[i] = {MENU_SUBMENU, names[i].c_str(), nullptr, middle[i]};
        }
        bar[panes] = {MENU_END};
    }
    std::string names[100];
    LmMenuDesc leaves[panes * submenus][actions + 1], middle[panes][submenus + 1], bar[panes + 1];
} tables;

/// One pane of 2,000 actions.
std::vector<LmMenuDesc> longTable()
{
    std::vector<LmMenuDesc> rows(2000, {MENU_ACTION, "item", chosen});
    rows.push_back({MENU_END});
    return rows;
}

Widget parent;   // an unrealized window's main window

Widget plainMenu(Widget where, const LmMenuDesc* table);

Widget plainItem(Widget where, const LmMenuDesc& row)
{
    char* name = lm::xtText(row.name);
    if (row.menuType == MENU_ACTION) {
        Widget item = XmCreatePushButtonGadget(where, name, nullptr, 0);
        XtAddCallback(item, XmNactivateCallback, row.callback, nullptr);
        return item;
    }
    Widget pane = XmCreatePulldownMenu(where, name, nullptr, 0);
    plainMenu(pane, row.submenu);
    Arg args[] = {{lm::xtText(XmNsubMenuId), reinterpret_cast<XtArgVal>(pane)}};
    return XmCreateCascadeButtonGadget(where, name, args, 1);
}

Widget plainMenu(Widget where, const LmMenuDesc* table)
{
    std::vector<Widget> items;
    for (; table->menuType != MENU_END; ++table)
        items.push_back(plainItem(where, *table));
    XtManageChildren(items.data(), static_cast<Cardinal>(items.size()));
    return where;
}

std::unique_ptr<LmMenuBar> menuBar() { return std::make_unique<LmMenuBar>("menuBar", tables.bar, nullptr, false); }

void fillAll(LmMenuBar& bar) { bar.findNamedItem("item19", false, true)->baseWidget(); }

// --- times --------------------------------------------------------------------------------------------------------------

void tablesToObjects(benchmark::State& state)
{
    for (auto _ : state) {
        auto bar = menuBar();
        state.PauseTiming();
        bar.reset();
        state.ResumeTiming();
    }
}

/// What the first frame waits for: the bar and its cascade buttons.
void barBeforeTheFirstFrame(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto bar = menuBar();
        state.ResumeTiming();
        bar->build(parent);
        state.PauseTiming();
        bar.reset();
        state.ResumeTiming();
    }
}

void everyPaneFilled(benchmark::State& state)
{
    for (auto _ : state) {
        auto bar = menuBar();
        bar->build(parent);
        fillAll(*bar);
        state.PauseTiming();
        bar.reset();
        state.ResumeTiming();
    }
}

void everyPaneFilledPlainMotif(benchmark::State& state)
{
    for (auto _ : state) {
        Widget bar = plainMenu(XmCreateMenuBar(parent, lm::xtText("menuBar"), nullptr, 0), tables.bar);
        state.PauseTiming();
        XtDestroyWidget(bar);
        state.ResumeTiming();
    }
}

void everythingDeleted(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto bar = menuBar();
        bar->build(parent);
        fillAll(*bar);
        state.ResumeTiming();
        bar.reset();
    }
}

void everythingDeletedPlainMotif(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Widget bar = plainMenu(XmCreateMenuBar(parent, lm::xtText("menuBar"), nullptr, 0), tables.bar);
        state.ResumeTiming();
        XtDestroyWidget(bar);
    }
}

// --- slices -------------------------------------------------------------------------------------------------------------

/// Runs idle time until every pane is filled, a millisecond's timer at a time; answers by how much, in milliseconds, one
/// was late at worst: an event would have waited so long.
double worstDelay(const std::function<bool()>& isPending)
{
    using Clock = std::chrono::steady_clock;
    double worst = 0;
    while (isPending()) {
        const auto due = Clock::now() + std::chrono::milliseconds(1);
        XtAppAddTimeOut(
            theApplication->appContext(), 1, [](XtPointer, XtIntervalId*) {}, nullptr);
        XtAppProcessEvent(theApplication->appContext(), XtIMTimer);
        worst = std::max(worst, std::chrono::duration<double, std::milli>(Clock::now() - due).count());
    }
    return worst;
}

void longestSlice(benchmark::State& state)
{
    struct Pending : LmMenuItem {
        static bool any() { return _workProcList != nullptr; }
    };
    const std::vector<LmMenuDesc> rows = longTable();
    const LmMenuDesc longBar[] = {{MENU_SUBMENU, "long", nullptr, const_cast<LmMenuDesc*>(rows.data())}, {MENU_END}};
    double worst = 0;
    for (auto _ : state) {
        LmMenuBar bar("menuBar", state.range(0) ? longBar : tables.bar, nullptr, false);
        bar.build(parent);
        worst = std::max(worst, worstDelay(Pending::any));
    }
    state.counters["worst_ms"] = worst;
}

// --- memory -------------------------------------------------------------------------------------------------------------

double bytesInUse() { return static_cast<double>(mallinfo2().uordblks); }

void memory(benchmark::State& state)
{
    double ours = 0, plain = 0;
    for (auto _ : state) {
        XtDestroyWidget(plainMenu(XmCreateMenuBar(parent, lm::xtText("menuBar"), nullptr, 0), tables.bar));   // warm caches
        double before = bytesInUse();
        Widget motif = plainMenu(XmCreateMenuBar(parent, lm::xtText("menuBar"), nullptr, 0), tables.bar);
        plain = bytesInUse() - before;
        XtDestroyWidget(motif);
        before = bytesInUse();
        auto bar = menuBar();
        bar->build(parent);
        fillAll(*bar);
        ours = bytesInUse() - before;
    }
    state.counters["bytes_ours"] = ours;
    state.counters["bytes_plain_motif"] = plain;
    state.counters["ratio"] = ours / plain;
}

}   // namespace

BENCHMARK(tablesToObjects)->Unit(benchmark::kMillisecond);
BENCHMARK(barBeforeTheFirstFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(everyPaneFilled)->Unit(benchmark::kMillisecond);
BENCHMARK(everyPaneFilledPlainMotif)->Unit(benchmark::kMillisecond);
BENCHMARK(everythingDeleted)->Unit(benchmark::kMillisecond);
BENCHMARK(everythingDeletedPlainMotif)->Unit(benchmark::kMillisecond);
BENCHMARK(longestSlice)->ArgName("one_long_pane")->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(memory)->Iterations(1);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    LmWindow window("window");
    parent = window.mainWindowWidget();
    benchmark::RunSpecifiedBenchmarks();
    std::exit(0);
}
