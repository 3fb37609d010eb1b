#!/bin/sh
# Plays for a long time: a million keys and timer expiries in the demos natively, and as many keys
# as a viewer presses in eleven hours on the library under Wine. Plots the resources that the
# processes hold to build/endurance/*.svg. STEPS and KEYS set other numbers.
cd "$(dirname "$0")/.." || exit 1
. scripts/wine-server.sh
folder=$PWD/build/endurance
mkdir -p "$folder"
trap stop_wine EXIT
start_wine || exit 1

status=0
KORVEL_STEPS=${STEPS:-1000000} KORVEL_SAMPLES=$folder/demos.csv \
  build/native-asan/tests/unit_demos --gtest_filter='Endurance.*' || status=1
(cd build/win64/bin &&
  KORVEL_KEYS=${KEYS:-20000} KORVEL_SAMPLES=endurance.csv KORVEL_WINE_LIMIT=3600 \
    ../../../cmake/wine-run.sh ../tests/windows_library.exe --gtest_filter='Endurance.*') ||
  status=1
mv build/win64/bin/endurance.csv "$folder/library.csv" 2>/dev/null
/usr/bin/python3 -B scripts/endurance_plot.py "$folder"/*.csv || status=1
exit $status
