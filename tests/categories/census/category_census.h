// A component's categories and records as one line: "index:name:live/deleted "
// for every index that has a name or records ("-" for a record's category
// that no longer exists). The census program prints it from the files; the
// dialog tests compare it with their own manager and table.
#pragma once
#include <HyBaseTable.h>
#include <HyCategoryMgr.h>
#include <string>

inline std::string CategoryCensus(CCategoryMgr& manager, const CBaseTable& table)
{
    std::string out;
    for (WORD i = 0; i < HYCAT_MAX_COUNT; ++i)
    {
        CCategory category;
        const bool named = manager.FindIndex(i, &category) == HYCAT_OK;
        const int live = table.CountInCategory(i, FALSE), deleted = table.CountInCategory(i, TRUE);
        if (named || live + deleted > 0)
            out += std::to_string(i) + ":" + (named ? (LPCTSTR)category.GetName() : "-") + ":" + std::to_string(live) +
                   "/" + std::to_string(deleted) + " ";
    }
    return out;
}
