// Date-entry rules shared by the date field: year range and calendar checks,
// two-digit years. Platform-free.
#pragma once
