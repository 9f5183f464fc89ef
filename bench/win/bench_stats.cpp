#include "bench_stats.h"

#include <algorithm>

namespace {

// The value at fraction p (0..1) of the sorted list.
double AtFraction(const std::vector<double>& sorted, double p)
{
    const double rank = p * static_cast<double>(sorted.size() - 1);
    const size_t below = static_cast<size_t>(rank);
    if (below + 1 >= sorted.size())
        return sorted.back();
    const double above = rank - static_cast<double>(below);
    return sorted[below] + (sorted[below + 1] - sorted[below]) * above;
}

} // namespace

BenchSpread BenchSummarise(std::vector<double> samples)
{
    BenchSpread spread;
    if (samples.empty())
        return spread;
    std::sort(samples.begin(), samples.end());
    spread.count = static_cast<int>(samples.size());
    spread.min = samples.front();
    spread.q1 = AtFraction(samples, 0.25);
    spread.median = AtFraction(samples, 0.5);
    spread.q3 = AtFraction(samples, 0.75);
    spread.max = samples.back();
    return spread;
}
