// Reads a component's category and record files as a fresh process does and
// prints their census (category_census.h). The category suite runs it to
// prove that what it saw in memory is what reached the files.
#include <HyDataFolder.h>
#include <stdio.h>
#include "category_census.h"

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    HySetDataFolder(argv[1]);
    CCategoryMgr manager;
    CBaseTable table;
    if (manager.Open(argv[2]) != HYCAT_OK || !table.Open(argv[2])) return 1;
    fputs(CategoryCensus(manager, table).c_str(), stdout);
    return 0;
}
