// Reads a component's category and record files the way a fresh process
// does and prints, per category index, the name and the live and deleted
// record counts: "index live deleted name". The category suite runs it to
// prove that what it saw in memory is what reached the files.
#include <HyBaseTable.h>
#include <HyCategoryMgr.h>
#include <HyDataFolder.h>
#include <stdio.h>

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    HySetDataFolder(argv[1]);
    CCategoryMgr manager;
    CBaseTable table;
    if (manager.Open(argv[2]) != HYCAT_OK || !table.Open(argv[2])) return 1;
    for (WORD index = 0; index < HYCAT_MAX_COUNT; ++index)
    {
        CCategory category;
        const bool named = manager.FindIndex(index, &category) == HYCAT_OK;
        const int live = table.CountInCategory(index, FALSE), deleted = table.CountInCategory(index, TRUE);
        if (named || live + deleted > 0)
            printf("%u %d %d %s\n", index, live, deleted, named ? (LPCTSTR)category.GetName() : "-");
    }
    return 0;
}
