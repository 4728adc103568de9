#!/usr/bin/env bash
# Builds the benchmarks and runs them all, then prints the table of ratios, each of two times that were
# taken in turns; or runs those of the file that is named (such as windows), or those whose name fits the
# pattern that is given; with "module", the Python module beside a loop and C++.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '[^-].*' "$@"
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/build.sh benchmark
programs=(build/benchmark/benchmarks/*_benchmark)
module=(/usr/bin/python3 -B benchmarks/module.py build/benchmark)

if [[ $# -eq 0 ]]; then
  told=build/benchmark/told
  mkdir -p "$told"
  for program in "${programs[@]}"; do
    "$program" --benchmark_min_time=0.05 --benchmark_repetitions=3 --benchmark_enable_random_interleaving=true \
      --benchmark_display_aggregates_only=true --benchmark_out_format=json \
      --benchmark_out="$told/$(basename "$program").json"
  done
  "${module[@]}" | tee "$told/module.txt"
  scripts/compare-gnuplot.sh | tee "$told/gnuplot.txt"
  exec python3 -B benchmarks/ratios.py "$told"
fi

[[ $1 == module ]] && exec "${module[@]}"
filter=$1
if [[ -x build/benchmark/benchmarks/$1_benchmark ]]; then
  programs=("build/benchmark/benchmarks/$1_benchmark")
  filter=.
fi
for program in "${programs[@]}"; do
  "$program" --benchmark_filter="$filter" --benchmark_min_time=0.2
done
