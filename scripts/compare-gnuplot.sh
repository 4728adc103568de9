#!/usr/bin/env bash
# Times a redraw of the loss graph of six series to 300 km, 900 by 600 points, beside gnuplot drawing
# the same points to a PNG. Both on this machine, one after the other, gnuplot's start not counted.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '' "$@"
cd "$(dirname "$0")/.."

scripts/build.sh benchmark > /dev/null
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
benchmark=build/benchmark/benchmarks/graph_benchmark

"$benchmark" --points "$scratch/points"
ours=$("$benchmark" --benchmark_filter=RedrawPlot --benchmark_format=csv 2> /dev/null |
  awk -F, '/RedrawPlot/ { print $3 }')

rounds=20
cat > "$scratch/plot.gp" <<END
set terminal pngcairo size 900,600
set xrange [0:300]
set yrange [50:250]
set grid
start = time(0.0)
do for [round = 1:$rounds] {
  set output "$scratch/graph.png"
  plot for [series = 0:5] "$scratch/points" index series with lines title sprintf("%d", series)
  unset output
}
print (time(0.0) - start) / $rounds * 1000
END
theirs=$(gnuplot "$scratch/plot.gp" 2>&1)
awk -v ours="$ours" -v theirs="$theirs" 'BEGIN {
  printf "Vardel: %.1f ms   gnuplot: %.1f ms   ratio: %.2f\n", ours, theirs, ours / theirs }'
