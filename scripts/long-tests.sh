#!/bin/sh
# The long versions of tests that `make test` runs for seconds: a million cases of each reference
# model, and ten thousand start and close cycles with random delays under Wine. CASES and CYCLES set
# other numbers.
cd "$(dirname "$0")/.." || exit 1
. scripts/wine-server.sh
trap stop_wine EXIT
start_wine || exit 1

status=0
KORVEL_REFERENCE_CASES=${CASES:-1000000} build/native/tests/unit_reference || status=1
cd build/win64/bin || exit 1
KORVEL_CYCLES=${CYCLES:-10000} KORVEL_WINE_LIMIT=20000 ../../../cmake/wine-run.sh \
  ../tests/windows_library.exe --gtest_filter='DelayedCycles.*' || status=1
exit $status
