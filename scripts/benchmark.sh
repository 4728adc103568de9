#!/usr/bin/env bash
# Builds the benchmarks and runs them, or those of the file that is named (such as range), or those
# whose name fits the pattern that is given; with "module", the Python module beside a loop and C++.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/build.sh benchmark
[[ ${1:-} == module ]] && exec /usr/bin/python3 -B benchmarks/module.py build/benchmark
programs=(build/benchmark/benchmarks/*_benchmark)
filter=${1:-.}
if [[ -x build/benchmark/benchmarks/${1:-}_benchmark ]]; then
  programs=("build/benchmark/benchmarks/${1}_benchmark")
  filter=.
fi
for program in "${programs[@]}"; do
  "$program" --benchmark_filter="$filter" --benchmark_min_time=0.2
done
