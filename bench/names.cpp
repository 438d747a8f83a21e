// Completing and searching 100,000 names: what a typed key costs.
#include <Lm/LmApp.h>
#include <Lm/LmCompleter.h>
#include <Lm/LmListSearch.h>
#include <Lm/LmNameList.h>
#include <Lm/support/handles.h>
#include <Lm/support/resources.h>

#include <Xm/List.h>
#include <Xm/TextF.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

namespace {

constexpr int count = 100000;

/// "name 000000 of the list" and so on, in an order of their own.
const LmNameList& names()
{
    static const LmNameList list = [] {
        LmNameList made;
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(1000000 + static_cast<int>(i * 7919LL % count));
            made.add(("name " + number.substr(1) + " of the list").c_str());
        }
        return made;
    }();
    return list;
}

void nameListAdd(benchmark::State& state)
{
    for (auto _ : state) {
        LmNameList list;
        for (int i = 0; i < count; ++i)
            list.add(names().at(i));
        benchmark::DoNotOptimize(list.size());
    }
}

void nameListSort(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        LmNameList list = names();
        state.ResumeTiming();
        list.sort();
    }
}

/// One completion with as many matches as the argument says.
void nameListComplete(benchmark::State& state)
{
    std::string text = state.range(0) == count ? "name" : state.range(0) == 10 ? "name 05000" : "name 050001x";
    for (auto _ : state) {
        char* completed = nullptr;
        int matches = 0;
        delete names().completeName(text.data(), completed, matches);
        std::free(completed);
        if (matches != state.range(0))
            state.SkipWithError("another number of matches");
    }
}

void completerComplete(benchmark::State& state)
{
    char** table = names();
    const LmCompleter completer(table);
    FreeIdTable(table);
    const char* const texts[] = {"name", "name 05000", "name 050001x"};
    for (auto _ : state) {
        int unique = 0;
        std::free(completer.getCompletedName(texts[state.range(0)], unique));
    }
}

/// A shown list of all names below a text field, on the display.
struct Shown {
    Shown()
    {
        static char program[] = "bench";
        static char* arguments[] = {program, nullptr};
        static int argc = 1;
        auto* app = new LmApp("Bench", &argc, arguments, nullptr, 0);   // lives until the process ends
        Widget shell = XtVaCreatePopupShell("shell", topLevelShellWidgetClass, app->baseWidget(), nullptr);
        list = XmCreateScrolledList(shell, lm::xtText("list"), nullptr, 0);
        XmString* items = names();
        XtVaSetValues(list, XmNitems, items, XmNitemCount, count, XmNvisibleItemCount, 20, nullptr);
        for (int i = 0; i < count; ++i)
            XmStringFree(items[i]);
        std::free(items);
        XtManageChild(list);
        XtPopup(shell, XtGrabNone);
        text = XtVaCreateWidget("text", xmTextFieldWidgetClass, app->baseWidget(), nullptr);
    }
    Widget list, text;
};

Shown& shown()
{
    static Shown window;
    return window;
}

/// A key that sets the text; with 0 nothing matches, which costs a walk over all items, with 1 the very last item does.
void searchKey(benchmark::State& state)
{
    LmListSearch search(shown().list, shown().text, False);
    const std::string last = names().at(count - 1);
    const std::string found = last.substr(5, 6), wanted = state.range(0) == 1 ? found : "of the lisp";
    for (auto _ : state) {
        state.PauseTiming();
        XmTextFieldSetString(shown().text, lm::xtText(""));
        theApplication->handlePendingEvents();
        state.ResumeTiming();
        XmTextFieldSetString(shown().text, lm::xtText(wanted.c_str()));
        XmUpdateDisplay(shown().list);
        if ((search.currentPos() == count) != (state.range(0) == 1))
            state.SkipWithError("found something else");
    }
}

}   // namespace

BENCHMARK(nameListAdd)->Unit(benchmark::kMillisecond);
BENCHMARK(nameListSort)->Unit(benchmark::kMillisecond);
BENCHMARK(nameListComplete)->Arg(0)->Arg(10)->Arg(count)->Unit(benchmark::kMillisecond);
BENCHMARK(completerComplete)->Arg(0)->Arg(1)->Arg(2);
BENCHMARK(searchKey)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
