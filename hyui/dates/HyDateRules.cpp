#include "HyDateRules.h"
