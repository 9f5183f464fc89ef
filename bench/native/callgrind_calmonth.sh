#!/bin/sh
# Instructions per CHyCalMonth::SetMonth call, counted by callgrind.
# Usage: callgrind_calmonth.sh [native build dir] [calls]
# Runs the driver twice per week start (N and 2N calls) and divides the
# difference, so start-up cost drops out; also reports the instructions
# spent inside SetMonth alone.
set -eu
build=${1:-$(dirname "$0")/../../build/h-native}
n=${2:-20000}
driver=$build/bench/native/calmonth_driver
[ -x "$driver" ] || { echo "no driver at $driver; build target calmonth_driver" >&2; exit 1; }
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# run OUTFILE N MONDAYFIRST [valgrind options...]: prints the total Ir.
run() {
    out=$1 calls=$2 mf=$3
    shift 3
    if ! valgrind --tool=callgrind "$@" --callgrind-out-file="$out" \
            "$driver" "$calls" "$mf" >"$tmp/log" 2>&1; then
        cat "$tmp/log" >&2
        exit 1
    fi
    ir=$(callgrind_annotate "$out" | awk '/PROGRAM TOTALS/ { gsub(",", "", $1); print $1; exit }')
    [ -n "$ir" ] || { echo "no instruction count in $out" >&2; cat "$tmp/log" >&2; exit 1; }
    echo "$ir"
}

for mf in 0 1; do
    a=$(run "$tmp/a.$mf" "$n" "$mf")
    b=$(run "$tmp/b.$mf" $((2 * n)) "$mf")
    c=$(run "$tmp/c.$mf" "$n" "$mf" --toggle-collect='CHyCalMonth::SetMonth*')
    label=$([ "$mf" = 1 ] && echo Monday-first || echo Sunday-first)
    awk -v a="$a" -v b="$b" -v c="$c" -v n="$n" -v l="$label" 'BEGIN {
        printf "%-13s %8.1f instructions per call (loop included), %8.1f inside SetMonth\n",
               l, (b - a) / n, c / n }'
done
