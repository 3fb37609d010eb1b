#!/bin/sh
# Builds and runs the benchmarks, and prints their results as one table. The results and the curves
# are in build/bench/. The optional argument is a pattern that selects native benchmarks; those
# under Wine are then skipped.
# Usage: [DOCS=1] bench.sh [PATTERN]
#   DOCS=1   copies the curves to docs/curves/
set -eu
cd "$(dirname "$0")/.."
. scripts/wine-server.sh

results=build/bench
rm -rf "$results"
mkdir -p "$results"
cmake --preset native -DKORVEL_BENCH=ON >/dev/null
cmake --build --preset native --target bench_native mheg
[ -n "${1-}" ] || bench/mheg_times.py build/native/bin/mheg "$results/mheg.json"
build/native/bench/bench_native --benchmark_filter="${1:-.}" \
  --benchmark_out="$results/native.json" --benchmark_out_format=json >"$results/native.log" 2>&1 ||
  { cat "$results/native.log" >&2; exit 1; }

# The library, its decoder and these programs find each other in the library's folder.
run_under_wine() (
  cd build/win64/bin
  KORVEL_WINE_LIMIT=900 ../../../cmake/wine-run.sh "../bench/bench_$1.exe" \
    "../../../$results/$1.json" >"../../../$results/$1.log" 2>&1
)
if [ -z "${1-}" ]; then
  cmake --preset win64 -DKORVEL_BENCH=ON >/dev/null
  cmake --build --preset win64 --target bench_redraw bench_library
  start_wine
  for program in redraw library; do
    run_under_wine "$program" || { cat "$results/$program.log" >&2; exit 1; }
  done
fi

scripts/bench_table.py --curves "$results/curves" bench/goals.txt "$results"/*.json
[ -z "${DOCS-}" ] || { mkdir -p docs/curves && cp "$results"/curves/*.svg docs/curves/; }
