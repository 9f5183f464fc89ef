// HyAfx: the framework's core umbrella header (collection templates and OLE
// dates come with afxtempl.h and afxdisp.h, included explicitly).
#pragma once

#include "afxver.h"
#include "afxstr.h"
#include "afxtime.h"
#include "afxcoll.h"
