// bench_records: the host kit's record table moving the records of one
// category to another, as the category dialogs do when a category is deleted
// or merged: 10,000 of 100,000 records, one writing walk and one atomic save
// of the record file, in a data folder of its own. docs/benchmarks.md.
//
//   bench_records [--rounds N] [--total N] [--moved N]
//
// Each round moves the records of category 3 to category 0 and back (two
// timed moves, each a walk and a save), then checks that every record is
// where it belongs. Exit code 0 when every move moved exactly the records it
// should, 1 otherwise, 2 for a setup failure.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <HyBaseTable.h>
#include <HyDataFolder.h>

#include "bench_stats.h"

namespace {

int Arg(int argc, char** argv, const char* name, int fallback)
{
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], name) == 0) return std::atoi(argv[i + 1]);
    return fallback;
}

// Moves every record of `from` to `to` in one writing walk; answers how many moved.
int Move(CBaseTable& table, WORD from, WORD to)
{
    int moved = 0;
    CBaseIterator walk(&table);
    for (CBaseRecord* r = walk.FindFirst(HYREC_WRITE); r != nullptr; r = walk.FindNext(HYREC_WRITE))
        if (r->GetCategoryId() == from) r->SetCategoryId(to), ++moved;
    return moved;
}

void Print(const char* what, const std::vector<double>& ms)
{
    const BenchSpread s = BenchSummarise(ms);
    std::printf("%-34s median %8.2f ms  q1 %8.2f  q3 %8.2f  min %8.2f  max %8.2f  (n=%d)\n", what, s.median, s.q1, s.q3,
                s.min, s.max, s.count);
}

}  // namespace

int main(int argc, char** argv)
{
    const int rounds = Arg(argc, argv, "--rounds", 7), total = Arg(argc, argv, "--total", 100000),
              movedCount = Arg(argc, argv, "--moved", 10000);
    char temp[MAX_PATH];
    ::GetTempPathA(MAX_PATH, temp);
    const std::string dir = std::string(temp) + "hybench-records-" + std::to_string(::GetCurrentProcessId());
    ::CreateDirectoryA(dir.c_str(), nullptr);
    HySetDataFolder(dir.c_str());
    int status = 0;
    {
        CBaseTable table;
        if (!table.Open("bench"))
            return 2;
        // Category 3 gets every tenth record; the others alternate between 1 and 2.
        const auto build0 = std::chrono::steady_clock::now();
        const int stride = total / movedCount;
        for (int i = 0; i < total; ++i)
        {
            const WORD category = i % stride == 0 ? 3 : (WORD)(1 + i % 2);
            if (table.AddRecord(category, "A record of the benchmark", FALSE) == 0) return 2;
        }
        if (!table.Save()) return 2;
        const double buildMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - build0).count();
        std::printf("table: %d records, %d in the moved category, built and saved in %.0f ms\n", total,
                    table.CountInCategory(3, FALSE), buildMs);
        std::vector<double> there, back;
        for (int round = 0; round < rounds; ++round)
        {
            for (int leg = 0; leg < 2; ++leg)
            {
                const auto t0 = std::chrono::steady_clock::now();
                const int moved = leg == 0 ? Move(table, 3, 0) : Move(table, 0, 3);
                const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
                (leg == 0 ? there : back).push_back(ms);
                if (moved != movedCount) status = 1;
            }
        }
        Print("move 10,000 of 100,000 (walk+save)", there);
        Print("move them back", back);
        if (table.CountInCategory(3, FALSE) != movedCount || table.CountInCategory(0, FALSE) != 0) status = 1;
        // A fresh table reads what the last save wrote.
        CBaseTable check;
        if (!check.Open("bench") || check.CountInCategory(3, FALSE) != movedCount) status = 1;
        std::printf("records moved: %s\n", status == 0 ? "all, and only them" : "WRONG");
        std::printf("records: move 10000 of 100000 median %.2f ms\n", BenchSummarise(there).median);
    }
    ::DeleteFileA((dir + "\\bench.rec").c_str());
    ::DeleteFileA((dir + "\\bench.cat").c_str());
    ::RemoveDirectoryA(dir.c_str());
    return status;
}
