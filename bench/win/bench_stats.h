// Median and spread of repeated timings (platform-free).
#pragma once

#include <vector>

struct BenchSpread
{
    int count = 0;
    double min = 0;
    double q1 = 0;
    double median = 0;
    double q3 = 0;
    double max = 0;
};

// Quartiles interpolate linearly between the two closest ranks, so that the
// median of an even count is the mean of the middle pair. An empty list
// gives all zeros.
BenchSpread BenchSummarise(std::vector<double> samples);
