// Calls CHyCalMonth::SetMonth N times over a spread of months, for counting
// instructions under callgrind. Usage: calmonth_driver N mondayFirst
#include "HyCalMonth.h"
#include "calmonth_months.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    const long n = argc > 1 ? std::atol(argv[1]) : 100000;
    const short mondayFirst = static_cast<short>(argc > 2 ? std::atoi(argv[2]) : 0);
    const auto cases = MakeCalMonthCases();
    CHyCalMonth cal(mondayFirst);
    long checksum = 0;
    for (long i = 0; i < n; ++i) {
        const CalMonthCase& c = cases[static_cast<size_t>(i) % cases.size()];
        cal.SetMonth(c.month, c.year);
        checksum += cal.cellDay[i % CHyCalMonth::CellCount];
    }
    std::printf("%ld\n", checksum);
    return 0;
}
