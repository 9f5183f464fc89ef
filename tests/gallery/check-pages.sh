#!/usr/bin/env bash
# Checks the gallery's PNG pages: every page the gallery lists (HyGallery
# --list), in every language the build made, is a PNG of more than one
# colour, and each page differs between its languages (every page has text).
# The extra images a page adds (dialog pictures) must be PNGs of more than
# one colour too; they may look alike in two languages ("OK" is "OK").
# Usage: check-pages.sh DIR WINE_RUN GALLERY_EXE
set -euo pipefail
dir=$1 run=$2 exe=$3
fail() { echo "check-pages: $*" >&2; status=1; }
status=0

mapfile -t slugs < <("$run" "$exe" --list | tr -d '\r')
[ ${#slugs[@]} -gt 0 ] || { echo "check-pages: the gallery lists no page" >&2; exit 1; }
langs=()
for d in "$(dirname "$exe")"/lang/*/; do
  [ -f "$d/HyLangUI.dll" ] && langs+=("$(basename "$d")")
done
[ ${#langs[@]} -gt 0 ] || langs=("")

colours() { identify -format '%k' "$1" 2>/dev/null || echo 0; }
pixels() { identify -format '%#' "$1" 2>/dev/null || echo "unreadable:$1"; }

for slug in "${slugs[@]}"; do
  declare -A seen=()
  for lang in "${langs[@]}"; do
    page=$dir/gallery-$slug${lang:+-$lang}.png
    if [ ! -f "$page" ]; then fail "missing page: $page"; continue; fi
    [ "$(colours "$page")" -gt 1 ] || fail "one colour (or not an image): $page"
    sig=$(pixels "$page")
    [ -z "${seen[$sig]:-}" ] || fail "$page looks exactly like ${seen[$sig]}"
    seen[$sig]=$page
  done
  unset seen
done

count=0
for image in "$dir"/*.png; do
  [ -e "$image" ] || break
  count=$((count + 1))
  [ "$(head -c 8 "$image" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] || fail "not a PNG: $image"
  [ "$(colours "$image")" -gt 1 ] || fail "one colour: $image"
done
echo "check-pages: ${#slugs[@]} pages x ${#langs[@]} languages, $count PNG files"
exit $status
