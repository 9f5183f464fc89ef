// The test harness of the Wine-run suites (namespace hytest).
#pragma once

#include "hytest_messages.h"
#include "hytest_input.h"
#include "hytest_render.h"
#include "hytest_intercept.h"
#include "hytest_objects.h"
#include "hytest_env.h"
#include "hytest_http.h"
