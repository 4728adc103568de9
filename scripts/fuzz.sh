#!/usr/bin/env bash
# Builds the fuzz targets and runs each from its corpus for so many seconds (default: 60). What it finds
# is left in build/fuzz/found.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
scripts/setup.sh test
scripts/build.sh fuzz
mkdir -p build/fuzz/found
for target in models rtf measured number coordinates settings ini csv archive; do
  mkdir -p "build/fuzz/new-$target"
  "build/fuzz/fuzz/vardel_${target}_fuzz" -max_total_time="$seconds" -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="build/fuzz/found/$target-" "build/fuzz/new-$target" "fuzz/corpus/$target"
done
