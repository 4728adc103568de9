#!/usr/bin/env bash
# Builds the benchmarks and runs them, or those whose name fits the pattern that is given.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/build.sh benchmark
for program in build/benchmark/benchmarks/*_benchmark; do
  "$program" --benchmark_filter="${1:-.}" --benchmark_min_time=0.2
done
