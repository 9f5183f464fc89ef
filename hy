#!/usr/bin/env bash
# HyUI driver. Usage:
#   ./hy test      install what is missing, build both builds, run every suite
#   ./hy gallery   install what is missing, build, run the gallery
#                  (interactive with DISPLAY set, else it writes PNG pages)
#   ./hy setup     only install what is missing
#   ./hy build     setup + build both builds
#   ./hy bench     setup, build the benchmarks, run them: the native ones
#                  (Google Benchmark, callgrind) and, under Wine, the date
#                  picker against the month calendar and the card view
#                  against the list view, at 1024 x 768 on the null driver
#                  and at 1280 x 800 on Xvfb (docs/benchmarks.md); further
#                  arguments go to bench_datepicker.exe
#   ./hy fuzz [s]  setup, build the libFuzzer targets (tests/fuzz/) and fuzz
#                  each for s seconds (default 60); new inputs are kept in
#                  build/native/fuzz-corpus/, findings in build/native/fuzz-findings/
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)
build=${HY_BUILD_DIR:-$root/build}
jobs=${HY_JOBS:-$(nproc)}

packages=(cmake ninja-build g++ clang libclang-rt-14-dev libmd-dev
          libbenchmark-dev googletest valgrind
          g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64 fonts-wine
          xvfb x11-apps x11-utils imagemagick python3)

as_root() { if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi; }

setup() {
  local missing=()
  for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  if [ ${#missing[@]} -gt 0 ]; then
    echo "hy: installing ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
  fi
}

configure_and_build() {
  cmake -S "$root" -B "$build/native" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang >/dev/null
  cmake --build "$build/native" -j "$jobs"
  cmake -S "$root" -B "$build/win" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" >/dev/null
  cmake --build "$build/win" -j "$jobs"
}

# Only what the benchmarks need, in the same two trees.
build_bench() {
  cmake -S "$root" -B "$build/native" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang >/dev/null
  cmake --build "$build/native" -j "$jobs" --target bench_calmonth calmonth_driver
  cmake -S "$root" -B "$build/win" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" >/dev/null
  cmake --build "$build/win" -j "$jobs" --target bench_datepicker bench_cards bench_editlist bench_timefield bench_images bench_tabs bench_categories bench_records
}

# One wineserver for the whole run, so each suite starts in about a second.
# A wineserver keeps the display driver its desktop began with, so the X11
# driver gets a prefix (and so a wineserver) of its own: wineprefix-x11.
start_wineserver() {
  local prefix=$build/win/wineprefix
  if [ "${HY_WINE_DRIVER:-null}" = x11 ]; then prefix=$build/win/wineprefix-x11; fi
  export HY_WINEPREFIX=$prefix WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
  "$root/cmake/wine-run.sh" cmd /c exit >/dev/null 2>&1 || true   # creates the prefix once
  # The server of that run lingers; let it end first. A persistent server
  # left by an earlier, interrupted run never ends by itself: stop it.
  timeout 10 wineserver -w || wineserver -k
  wineserver -p
  # The first program under a new server starts the prefix's background
  # services, which inherit its output and live as long as the server:
  # start them here, detached from any test's output pipe.
  "$root/cmake/wine-run.sh" cmd /c exit </dev/null >/dev/null 2>&1 || true
  trap 'wineserver -k 2>/dev/null || true' EXIT
}

cmd=${1:-test}
case "$cmd" in
  setup) setup ;;
  build) setup; configure_and_build ;;
  test)
    setup; configure_and_build
    start_wineserver
    echo "== native suites (sanitizers) =="
    ctest --test-dir "$build/native" --output-on-failure -j "$jobs"
    echo "== Windows suites (Wine) =="
    ctest --test-dir "$build/win" --output-on-failure -j "$jobs"
    ;;
  gallery)
    setup; configure_and_build
    if [ -n "${DISPLAY:-}" ]; then export HY_WINE_DRIVER=x11; fi
    start_wineserver
    "$root/cmake/wine-run.sh" "$build/win/bin/HyGallery.exe" --out "$build/gallery" "${@:2}"
    ;;
  bench)
    setup; build_bench
    start_wineserver
    echo "== native benchmarks =="
    "$build/native/bench/native/bench_calmonth" --benchmark_repetitions=10 \
        --benchmark_report_aggregates_only=true
    sh "$root/bench/native/callgrind_calmonth.sh" "$build/native"
    echo "== date picker against the month calendar (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_datepicker.exe" "${@:2}"
    echo "== card view against the list view, 1024 x 768, null driver (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_cards.exe" --size 1024x768
    echo "== edit list against the list view's report mode (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_editlist.exe"
    echo "== time spin field against the date and time picker (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_timefield.exe"
    echo "== a photo fitted by HYDrawRectImage against the static control (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_images.exe"
    echo "== the tab control against the system's tab control (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_tabs.exe"
    echo "== the swatch list against the system's list view (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_categories.exe"
    echo "== the host's record table moving a category's records (Wine) =="
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_records.exe"
    # 1280 x 800 does not fit the null driver's screen: the X11 driver on a
    # virtual X server of its own, with the X11 prefix and its own wineserver.
    wineserver -k 2>/dev/null || true
    echo "== card view against the list view, 1280 x 800, X11 driver on Xvfb (Wine) =="
    xvfb-run -a -s "-screen 0 1280x800x24 -nolisten tcp" "$root/hy" bench-cards-x11
    ;;
  bench-cards-x11)
    # Inside ./hy bench's virtual X server (DISPLAY set by xvfb-run).
    export HY_WINE_DRIVER=x11
    start_wineserver
    "$root/cmake/wine-run.sh" "$build/win/bin/bench_cards.exe" --size 1280x800 "${@:2}"
    ;;
  fuzz)
    setup
    cmake -S "$root" -B "$build/native" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
          -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang >/dev/null
    for src in "$root"/tests/fuzz/fuzz_*.cpp; do
      target=$(basename "$src" .cpp); name=${target#fuzz_}
      cmake --build "$build/native" -j "$jobs" --target "$target"
      work=$build/native/fuzz-corpus/$name findings=$build/native/fuzz-findings/$name
      mkdir -p "$work" "$findings"
      echo "== $target for ${2:-60} s =="
      "$build/native/tests/fuzz/$target" -max_total_time="${2:-60}" -print_final_stats=1 \
          -artifact_prefix="$findings/" "$work" "$root/tests/fuzz/corpus/$name"
    done
    ;;
  *) echo "usage: ./hy [test|gallery|setup|build|bench|fuzz]" >&2; exit 2 ;;
esac
