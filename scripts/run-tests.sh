#!/bin/sh
# Builds presets and runs all their tests, natively and under Wine. The last line is
# "N passed, N failed", also written to build/summary. A preset that cannot be built counts as one
# failure.
# Usage: run-tests.sh PRESET ...
set -u
cd "$(dirname "$0")/.." || exit 1
. scripts/wine-server.sh

passed=0
failed=0

fail() {
  echo "$1" >&2
  failed=$((failed + 1))
}

count_tests() {
  log=build/$1/tests.log
  ctest --preset "$1" | tee "$log"
  counts=$(sed -n 's/.* \([0-9]*\) tests failed out of \([0-9]*\)$/\1 \2/p' "$log")
  [ -n "$counts" ] || { fail "$1: the tests did not run"; return; }
  awk '/ Test +#/ { shows = /\*\*\*/ } /^( +Start |[0-9]+% tests)/ { shows = 0 } shows' "$log" \
    >>build/failures
  failed=$((failed + ${counts% *}))
  passed=$((passed + ${counts#* } - ${counts% *}))
}

mkdir -p build
: >build/failures
trap stop_wine EXIT
start_wine || fail "Wine does not start"
for preset; do
  # One native and one Windows build check that every header compiles alone. The preset `native` is
  # optimised; its only test counts the instructions of the benchmarks.
  tests=KORVEL_TESTS headers=all_verify_interface_header_sets
  case $preset in
  native) tests=KORVEL_BENCH headers= ;;
  win32) headers= ;;
  esac
  if cmake --preset "$preset" -D$tests=ON >"build/$preset.log" 2>&1 &&
    cmake --build --preset "$preset" --target all $headers; then
    count_tests "$preset"
  else
    fail "$preset: the build failed; build/$preset.log has the output of the configuration"
  fi
done

# Repeats the output of failed tests, which is hard to find among the passed ones.
cat build/failures
echo "$passed passed, $failed failed" | tee build/summary
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
