// A fixed spread of (month, year) pairs over years 1..9999, shared by the
// benchmark and the callgrind driver so that both measure the same work.
#pragma once

#include <array>

struct CalMonthCase
{
    int month;
    int year;
};

inline std::array<CalMonthCase, 1024> MakeCalMonthCases()
{
    std::array<CalMonthCase, 1024> cases{};
    unsigned state = 12345u;
    for (CalMonthCase& c : cases) {
        state = state * 1103515245u + 12345u;
        c.month = static_cast<int>((state >> 16) % 12) + 1;
        state = state * 1103515245u + 12345u;
        c.year = static_cast<int>((state >> 8) % 9999) + 1;
    }
    return cases;
}
