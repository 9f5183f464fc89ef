#!/usr/bin/env bash
# The gallery on a real display: starts an X server of its own (Xvfb), runs
# HyGallery.exe interactively under Wine's X11 driver with a prefix and a
# wineserver of its own, waits for the "HyUI Gallery" window, captures the
# screen with xwd and checks the window is there and drawn (many colours
# inside it, not a blank rectangle). Leaves the screenshot as OUT/screen.png.
# Usage: on-display.sh WINE_RUN GALLERY_EXE PREFIX OUT
set -euo pipefail
run=$1 exe=$2 prefix=$3 out=$4
mkdir -p "$out"
rm -f "$out/screen.png" "$out/screen.xwd"

export HY_WINEPREFIX=$prefix WINEPREFIX=$prefix HY_WINE_DRIVER=x11
exec 3< <(Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp -noreset 2>/dev/null)
xvfb_pid=$!
read -r -t 30 display <&3 || { echo "on-display: Xvfb did not start" >&2; exit 1; }
export DISPLAY=:$display
cleanup() {
  wineserver -k 2>/dev/null || true
  kill "$xvfb_pid" 2>/dev/null || true
}
trap cleanup EXIT

"$run" "$exe" </dev/null >"$out/gallery.log" 2>&1 &

# Wait (bounded) for a condition, checking every tenth of a second.
wait_for() {
  local limit=$1; shift
  local deadline=$((SECONDS + limit))
  until "$@"; do
    [ $SECONDS -lt $deadline ] || return 1
    sleep 0.1
  done
}
gallery_geometry() {
  geometry=$(xwininfo -root -tree 2>/dev/null |
             sed -n 's/.*"HyUI Gallery[^"]*".*  \([0-9]*x[0-9]*+-\?[0-9]*+-\?[0-9]*\)  .*/\1/p' | head -1)
  [ -n "$geometry" ]
}
# Drawn: the window's rectangle of the screen holds more than 16 colours.
gallery_drawn() {
  xwd -root -silent > "$out/screen.xwd" 2>/dev/null || return 1
  convert "xwd:$out/screen.xwd" "png:$out/screen.png" 2>/dev/null || return 1
  local w h x y
  IFS='x+' read -r w h x y <<<"$geometry"
  [ "$w" -ge 200 ] && [ "$h" -ge 150 ] || return 1
  colours=$(convert "$out/screen.png" -crop "${w}x${h}+${x}+${y}" +repage -format '%k' info: 2>/dev/null || echo 0)
  [ "$colours" -gt 16 ]
}

wait_for 240 gallery_geometry || { echo "on-display: no \"HyUI Gallery\" window appeared" >&2; cat "$out/gallery.log" >&2; exit 1; }
echo "on-display: the gallery's window is at $geometry on $DISPLAY"
wait_for 60 gallery_drawn || { echo "on-display: the gallery's window stayed blank (${colours:-0} colours)" >&2; exit 1; }
rm -f "$out/screen.xwd"
echo "on-display: drawn with $colours colours; screenshot $out/screen.png"
