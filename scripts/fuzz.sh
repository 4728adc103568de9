#!/usr/bin/env bash
# Builds the fuzz targets and runs them, or those that are named, one after the other from their corpus:
#   scripts/fuzz.sh [--seconds N | --runs N] [TARGET...]
# each for so many seconds (default: 60) or inputs. What was run is told in a line for each. Inputs that
# reach something new are kept in build/fuzz/new-TARGET, what is found in build/fuzz/found, and what the
# fuzzer said in build/fuzz/TARGET.log. Ends with 1 where anything was found.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$(dirname "$0")/.."

limit=(-max_total_time=60)
while [[ ${1:-} == --* ]]; do
  case $1 in
    --seconds) limit=(-max_total_time="${2:?}") ;;
    --runs) limit=(-runs="${2:?}" -seed=1) ;;
    *) takes '' "$1" ;;
  esac
  shift 2
done
for target in "$@"; do
  [[ -d fuzz/corpus/$target ]] || takes '' "$target"
done
scripts/setup.sh test
scripts/build.sh fuzz
targets=("$@")
if [[ $# -eq 0 ]]; then
  for program in build/fuzz/fuzz/vardel_*_fuzz; do
    name=${program##*/vardel_}
    targets+=("${name%_fuzz}")
  done
fi

# Short call stacks of allocations and a small store of freed ones make it a third faster.
export ASAN_OPTIONS=malloc_context_size=2:quarantine_size_mb=32
mkdir -p build/fuzz/found
failed=0
for target in "${targets[@]}"; do
  log=build/fuzz/$target.log
  mkdir -p "build/fuzz/new-$target"
  start=$SECONDS
  result="nothing found"
  "build/fuzz/fuzz/vardel_${target}_fuzz" "${limit[@]}" -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="build/fuzz/found/$target-" "build/fuzz/new-$target" "fuzz/corpus/$target" \
    2> "$log" || { failed=1; result=FOUND; tail -50 "$log" >&2; }
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  echo "$target: ${runs:-?} inputs in $((SECONDS - start)) s, $result"
done
exit $failed
