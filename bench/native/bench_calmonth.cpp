#include "HyCalMonth.h"
#include "calmonth_months.h"

#include <benchmark/benchmark.h>

namespace {

const auto kCases = MakeCalMonthCases();

// One SetMonth per iteration over a spread of months and years.
void BM_SetMonth(benchmark::State& state)
{
    CHyCalMonth cal(static_cast<short>(state.range(0)));
    size_t i = 0;
    for (auto _ : state) {
        const CalMonthCase& c = kCases[i++ % kCases.size()];
        cal.SetMonth(c.month, c.year);
        benchmark::DoNotOptimize(cal.cellDay);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SetMonth)->ArgName("mondayFirst")->Arg(0)->Arg(1);

// What the date picker does on each change of display month: lay out twelve
// consecutive months.
void BM_SetTwelveMonths(benchmark::State& state)
{
    CHyCalMonth months[12];
    for (CHyCalMonth& m : months)
        m.mondayFirst = static_cast<short>(state.range(0));
    int first = 0;
    for (auto _ : state) {
        const int base = 2000 * 12 + first++ % 240;
        for (int k = 0; k < 12; ++k)
            months[k].SetMonth((base + k) % 12 + 1, (base + k) / 12);
        benchmark::DoNotOptimize(months);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * 12);
}
BENCHMARK(BM_SetTwelveMonths)->ArgName("mondayFirst")->Arg(0)->Arg(1);

} // namespace

BENCHMARK_MAIN();
