// What a resource look-up costs, beside XtGetSubresources for the same value. Needs a display.
#include <Lm/LmApp.h>
#include <Lm/LmResource.h>

#include <Xm/Form.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

Widget widget;   // six levels below the shell

void programString(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(LmGetResource("title", "Title"));
}

void widgetString(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(LmGetResource(widget, "title", "Title"));
}

void widgetInt(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(LmGetResource(widget, "level", "Level", XtRInt, "7"));
}

void widgetPixel(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(LmGetResource(widget, "ink", "Ink", XtRPixel, "#102030"));
}

void plainXtInt(benchmark::State& state)
{
    char name[] = "level", className[] = "Level", fallback[] = "7";
    for (auto _ : state) {
        int level = 0;
        XtResource table[] = {
            {name, className, const_cast<char*>(XtRInt), sizeof level, 0, const_cast<char*>(XtRString), fallback}};
        XtGetSubresources(XtParent(widget), &level, XtName(widget), "XmForm", table, 1, nullptr, 0);
        benchmark::DoNotOptimize(level);
    }
}

}   // namespace

BENCHMARK(programString)->Unit(benchmark::kMicrosecond);
BENCHMARK(widgetString)->Unit(benchmark::kMicrosecond);
BENCHMARK(widgetInt)->Unit(benchmark::kMicrosecond);
BENCHMARK(widgetPixel)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainXtInt)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    LmApp app("Bench", &argc, argv, nullptr, 0);
    XrmDatabase database = XtDatabase(app.display());
    for (const char* line : {"*title: hello", "*level: 12", "*ink: #405060", "*form3*level: 13"})
        XrmPutLineResource(&database, line);
    widget = app.baseWidget();
    for (int level = 0; level < 6; ++level)
        widget = XmCreateForm(widget, ("form" + std::to_string(level)).data(), nullptr, 0);
    benchmark::RunSpecifiedBenchmarks();
}
