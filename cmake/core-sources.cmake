# The platform-free sources, relative to the repository root. Each file here
# must build without windows.h.
set(HY_CORE_SOURCES
  hyui/frame/HyCalMonth.cpp
  hyui/frame/HyOleDate.cpp
  hyui/dates/HyDateRules.cpp
  hyui/dates/HyPickerLayout.cpp
)
set(HY_CORE_INCLUDE_DIRS
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/frame
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/dates
)
list(TRANSFORM HY_CORE_SOURCES PREPEND ${CMAKE_CURRENT_LIST_DIR}/../)
