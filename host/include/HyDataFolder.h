// Where the host kit keeps its files: one data folder for the process, with
// a category file and a record file per component and the handheld
// subscription files below it. Saves are atomic: a temporary file beside the
// target replaces it with MoveFileEx, so a save cut short leaves the old file.
#pragma once
#include <afx.h>
#include "HyHostExport.h"

// Sets the data folder (created when missing); NULL or "" returns to the
// default: the environment variable HYHOST_DATADIR, else "<folder of
// HyHost.dll>\data". Category managers and tables opened afterwards use it.
HYHOST_API void HySetDataFolder(LPCSTR folder);
// The data folder in use, without a trailing backslash. Never fails.
HYHOST_API void HyGetDataFolder(CString& folder);
