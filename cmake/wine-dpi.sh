#!/usr/bin/env bash
# Runs a Windows program of the build (through wine-run.sh) with the screen at
# <dpi> logical pixels per inch, and HY_EXPECT_DPI telling the program so.
# Wine reads the per-user LogPixels value when a process starts; the value is
# the prefix's, so a program started meanwhile would see it too: register
# tests that use this RUN_SERIAL. The default is restored however it ends.
set -euo pipefail
dpi=$1; prog=$2; shift 2
here=$(cd "$(dirname "$0")" && pwd)
bindir=$(cd "$(dirname "$prog")" && pwd)
export HY_WINEPREFIX=${HY_WINEPREFIX:-$(dirname "$bindir")/wineprefix}
export WINEPREFIX=$HY_WINEPREFIX WINEDEBUG=${WINEDEBUG:--all}
[ -f "$WINEPREFIX/.hy-ready" ] || "$here/wine-run.sh" "$prog" --gtest_list_tests >/dev/null
key='HKCU\Control Panel\Desktop'
restore() { wine reg delete "$key" /v LogPixels /f >/dev/null 2>&1 || true; }
trap restore EXIT
wine reg add "$key" /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null 2>&1
HY_EXPECT_DPI=$dpi "$here/wine-run.sh" "$prog" "$@"
