#!/usr/bin/env bash
# Looks through the code with clang-tidy, by .clang-tidy, and fails on any warning. Takes some minutes.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '--fast' "$@"
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/build.sh test
# The static analyzer takes longer than all the rest.
checks=()
[[ ${1:-} == --fast ]] && checks=(-checks=-clang-analyzer-*)
run-clang-tidy "${checks[@]}" -quiet -p build/test -j "$(nproc)" "^$PWD/(src|cli|elevation|python/src|tools|tests/support)/" > build/test/tidy.log 2>&1 || {
  # A header's warning comes once for each file that includes it.
  sed 's/\x1b\[[0-9;]*m//g' build/test/tidy.log | grep -E ': (warning|error): ' | sort -u >&2
  exit 1
}
