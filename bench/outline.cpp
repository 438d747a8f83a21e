// An outline of 101,000 nodes in 1,000 groups, all open: from nothing to the first frame, toggles, scrolling and memory, beside
// a plain XmList that gets the same labels. Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmOlNode.h>
#include <Lm/LmOutline.h>

#include <X11/Shell.h>
#include <Xm/List.h>
#include <Xm/ScrolledW.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace {

constexpr int groups = 1000, children = 100;

struct Labels {
    Labels()
    {
        for (int g = 0; g < groups; ++g) {
            texts.push_back("group " + std::to_string(g));
            for (int i = 0; i < children; ++i)
                texts.push_back("node " + std::to_string(g) + "." + std::to_string(i));
        }
        for (std::string& text : texts)
            labels.push_back(text.data());
    }
    char* group(int g) const { return labels[static_cast<std::size_t>(g) * (children + 1)]; }
    /// The labels of a group's children, ended by null.
    std::vector<char*> below(int g) const
    {
        const auto first = labels.begin() + static_cast<std::ptrdiff_t>(g) * (children + 1) + 1;
        std::vector<char*> names(first, first + children);
        names.push_back(nullptr);
        return names;
    }
    std::vector<std::string> texts;
    std::vector<char*> labels;
};
const Labels& all()
{
    static const Labels labels;
    return labels;
}

Widget newShell()
{
    return XtVaCreatePopupShell("bench", topLevelShellWidgetClass, theApplication->baseWidget(), XmNwidth, 400, XmNheight, 500,
                                nullptr);
}

void drawn(Widget shell)
{
    XtPopup(shell, XtGrabNone);
    theApplication->handlePendingEvents();
    XSync(theApplication->display(), False);
    theApplication->handlePendingEvents();
}

double residentMegabytes()
{
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    long pages = 0, resident = 0;
    file >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

void fillByGroups(LmOutline& outline)
{
    std::vector<char*> names;
    for (int g = 0; g < groups; ++g)
        names.push_back(all().group(g));
    names.push_back(nullptr);
    char* top[] = {nullptr};
    outline.addChildren(top, names.data());
    for (int g = 0; g < groups; ++g) {
        char* path[] = {all().group(g), nullptr};
        outline.addChildren(path, all().below(g).data());
    }
}

void fillByPairs(LmOutline& outline)
{
    for (int g = 0; g < groups; ++g)
        for (char* name : all().below(g))
            if (name)
                outline.add(all().group(g), name);
}

Widget plainList(Widget shell)
{
    Arg policy{const_cast<char*>(XmNlistSizePolicy), XmCONSTANT};
    Widget list = XmCreateScrolledList(shell, const_cast<char*>("list"), &policy, 1);
    XtManageChild(list);
    return list;
}

void fillPlain(Widget list)
{
    std::vector<XmString> strings;
    strings.reserve(all().labels.size());
    for (char* label : all().labels)
        strings.push_back(XmStringCreateLocalized(label));
    XmListAddItemsUnselected(list, strings.data(), static_cast<int>(strings.size()), 0);
    for (XmString string : strings)
        XmStringFree(string);
}

/// The widgets are there already, the rows are not.
void plainFirstFrame(benchmark::State& state)
{
    all();
    for (auto _ : state) {
        state.PauseTiming();
        Widget shell = newShell();
        Widget list = plainList(shell);
        XtRealizeWidget(shell);
        malloc_trim(0);
        state.ResumeTiming();
        fillPlain(list);
        drawn(shell);
        state.PauseTiming();
        XtDestroyWidget(shell);
        theApplication->handlePendingEvents();
        state.ResumeTiming();
    }
}

void firstFrame(benchmark::State& state, void (*fill)(LmOutline&))
{
    all();
    for (auto _ : state) {
        state.PauseTiming();
        Widget shell = newShell();
        auto outline = std::make_unique<LmOutline>("outline", shell, XmCONSTANT);
        XtRealizeWidget(shell);
        malloc_trim(0);
        state.ResumeTiming();
        fill(*outline);
        outline->displayAll();
        drawn(shell);
        state.PauseTiming();
        outline.reset();
        XtDestroyWidget(shell);
        theApplication->handlePendingEvents();
        state.ResumeTiming();
    }
}

/// An outline that is on the screen.
struct Shown {
    Shown() : shell(newShell()), outline("outline", shell, XmCONSTANT)
    {
        fillByGroups(outline);
        outline.displayAll();
        drawn(shell);
    }
    ~Shown() { XtDestroyWidget(shell); }
    Widget shell;
    LmOutline outline;
};

void toggleGroup(benchmark::State& state)
{
    Shown shown;
    for (auto _ : state) {
        shown.outline.toggleChildren(3 * (children + 1) + 1);
        XFlush(theApplication->display());
    }
}

/// Each node is closed by its path before the tree is shown anew.
void everything(benchmark::State& state, bool open)
{
    Shown shown;
    std::vector<LmOlNode*> nodes;
    for (int g = 0; g < groups; ++g) {
        char* path[] = {all().group(g), nullptr};
        nodes.push_back(shown.outline.createPath(path, path));
    }
    const auto setAll = [&](bool isOpen) {
        for (LmOlNode* node : nodes)
            isOpen ? node->Open() : node->Close();
        shown.outline.displayAll();
        theApplication->handlePendingEvents();
    };
    for (auto _ : state) {
        state.PauseTiming();
        setAll(!open);
        state.ResumeTiming();
        setAll(open);
    }
}

void scrollStep(benchmark::State& state)
{
    Shown shown;
    int top = 1;
    for (auto _ : state) {
        top = top % 90000 + 1;
        XmListSetPos(shown.outline.listWidget(), top);
        theApplication->handlePendingEvents();
        XSync(theApplication->display(), False);
    }
}

void memory(benchmark::State& state)
{
    all();
    for (auto _ : state) {
        const double before = residentMegabytes();
        Shown shown;
        state.counters["MB"] = residentMegabytes() - before;
    }
}

void plainMemory(benchmark::State& state)
{
    all();
    for (auto _ : state) {
        const double before = residentMegabytes();
        Widget shell = newShell();
        fillPlain(plainList(shell));
        drawn(shell);
        state.counters["MB"] = residentMegabytes() - before;
        XtDestroyWidget(shell);
    }
}

}   // namespace

BENCHMARK(plainMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(memory)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(plainFirstFrame)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(firstFrame, addChildren, fillByGroups)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(firstFrame, add, fillByPairs)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(toggleGroup)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(everything, collapse, false)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(everything, expand, true)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollStep)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    benchmark::RunSpecifiedBenchmarks();
}
