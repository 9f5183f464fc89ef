# HyUI's own platform-free sources (no windows.h), relative to the repository
# root: compiled into HyUI.dll and, separately, into the native build, where
# they are tested under sanitizers. Rules that more than one layer needs live
# in core/ instead (the HyCore static library).
set(HY_PLATFORM_FREE_SOURCES
  hyui/frame/HyCalMonth.cpp
  hyui/dates/HyDateRules.cpp
  hyui/dates/HyPickerLayout.cpp
  hyui/dates/HyPickerDecisions.cpp
  hyui/cards/HyCardMarkup.cpp
  hyui/cards/HyCardGrid.cpp
  hyui/edits/HyEditGeometry.cpp
  hyui/edits/HyTimeText.cpp
  hyui/privacy/HyPasswordCheck.cpp
  hyui/images/HyImageRules.cpp
  hyui/tabs/HyTabLayout.cpp
)
set(HY_PLATFORM_FREE_INCLUDE_DIRS
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/frame
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/dates
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/cards
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/edits
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/privacy
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/images
  ${CMAKE_CURRENT_LIST_DIR}/../hyui/tabs
)
list(TRANSFORM HY_PLATFORM_FREE_SOURCES PREPEND ${CMAKE_CURRENT_LIST_DIR}/../)
# The native build's stand-ins for what the DLL takes from the platform: MD5
# from libmd instead of advapi32. Never compiled into HyUI.dll.
get_filename_component(HY_NATIVE_ONLY_SOURCES ${CMAKE_CURRENT_LIST_DIR}/../hyui/privacy/HyMd5Libmd.cpp ABSOLUTE)
set(HY_NATIVE_ONLY_LIBRARIES md)
