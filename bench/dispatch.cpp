// What an announcement costs for each registration, beside a bare indirect call.
#include <Lm/LmCallbackObject.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace {

constexpr const char* changed = "changedCallback";

void count(LmCallbackObject*, void* counter, void*) { ++*static_cast<int64_t*>(counter); }

class Counter : public LmCallbackObject {
public:
    void count(LmCallbackObject*, void*, void*) { ++_count; }

private:
    int64_t _count = 0;
};

void reportPerCall(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["per_call"] = benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)),
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void bareIndirectCalls(benchmark::State& state)
{
    int64_t counter = 0;
    std::vector<std::pair<LmCallbackFunction, void*>> calls(static_cast<size_t>(state.range(0)), {count, &counter});
    benchmark::DoNotOptimize(calls.data());
    for (auto _ : state)
        for (const auto& [function, data] : calls)
            function(nullptr, data, nullptr);
    reportPerCall(state);
}

void functions(benchmark::State& state)
{
    int64_t counter = 0;
    LmCallbackObject sender;
    for (int64_t i = 0; i < state.range(0); ++i)
        sender.addCallback(changed, count, &counter);
    for (auto _ : state)
        sender.callCallbacks(changed, nullptr);
    reportPerCall(state);
}

void methods(benchmark::State& state)
{
    LmCallbackObject sender;
    std::vector<Counter> targets(static_cast<size_t>(state.range(0)));
    for (Counter& target : targets)
        sender.addCallback(changed, &target, &Counter::count, nullptr);
    for (auto _ : state)
        sender.callCallbacks(changed, nullptr);
    reportPerCall(state);
}

/// The registrations run while ten times as many wait for other names.
void functionsAmongOthers(benchmark::State& state)
{
    int64_t counter = 0;
    LmCallbackObject sender;
    for (int64_t i = 0; i < state.range(0); ++i) {
        sender.addCallback(changed, count, &counter);
        for (int other = 0; other < 10; ++other)
            sender.addCallback("otherCallback", count, &counter);
    }
    for (auto _ : state)
        sender.callCallbacks(changed, nullptr);
    reportPerCall(state);
}

}   // namespace

BENCHMARK(bareIndirectCalls)->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(functions)->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(methods)->Arg(1)->Arg(10)->Arg(1000);
BENCHMARK(functionsAmongOthers)->Arg(10);
BENCHMARK_MAIN();
