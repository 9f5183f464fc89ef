#!/usr/bin/env bash
# Runs a Windows program of the build under Wine. The prefix lives in the
# build tree (HY_WINEPREFIX, default: <dir of the program>/../wineprefix) and
# is created on first use with the null display driver, so tests need no X
# server. HY_WINE_DRIVER=x11 selects the X11 driver for this process only.
set -euo pipefail
prog=$1; shift
bindir=$(cd "$(dirname "$prog")" && pwd)
export WINEPREFIX=${HY_WINEPREFIX:-$(dirname "$bindir")/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
# No mono/gecko installers: nothing is fetched from outside.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
if [ ! -f "$WINEPREFIX/.hy-ready" ]; then
  mkdir -p "$WINEPREFIX"
  exec 9>"$WINEPREFIX.lock"
  flock 9
  if [ ! -f "$WINEPREFIX/.hy-ready" ]; then
    wineboot -i >/dev/null 2>&1 || true
    wineserver -w
    touch "$WINEPREFIX/.hy-ready"
  fi
  flock -u 9
fi
driver=${HY_WINE_DRIVER:-null}
# The driver is a per-user registry value; set it when it differs.
if [ "$(cat "$WINEPREFIX/.hy-driver" 2>/dev/null)" != "$driver" ]; then
  wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d "$driver" /f >/dev/null 2>&1
  echo "$driver" > "$WINEPREFIX/.hy-driver"
fi
# The program writes into files that are shown as they grow, never straight
# into the caller's pipe: the services a wineserver starts with its first
# program inherit that program's output and outlive it (after a server
# crash, for ever), and would keep a caller such as CTest waiting on the pipe.
out=$(mktemp "${TMPDIR:-/tmp}/hy-wine-run.XXXXXX")
err=$out.err
: >"$err"
wine "$prog" "$@" <&0 >"$out" 2>"$err" &
pid=$!
trap 'kill "$pid" 2>/dev/null' TERM INT HUP
tail -s 0.1 -n +1 -f --pid="$pid" "$out" &
tail_out=$!
tail -s 0.1 -n +1 -f --pid="$pid" "$err" >&2 &
tail_err=$!
rc=0
wait "$pid" || rc=$?
wait "$tail_out" "$tail_err" || true
rm -f "$out" "$err"
exit "$rc"
