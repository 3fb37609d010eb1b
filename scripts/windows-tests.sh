#!/bin/sh
# Packs all Windows tests and scenarios for a computer with Windows: build/windows-tests/*.zip. Then
# unpacks the archive on the disk of a new Wine prefix, runs it as a double click does, and checks
# its report.
set -eu
cd "$(dirname "$0")/.."
work=$PWD/build/windows-tests
version=$(sed -n 's/^#define KORVEL_VERSION "\(.*\)"/\1/p' include/korvel.h)
name=korvel-$version-windows-tests

cmake --preset native >/dev/null
cmake --build --preset native --target mheg
cmake --preset win64 -DKORVEL_TESTS=ON >/dev/null
cmake --build --preset win64
rm -rf "$work"
mkdir -p "$work"
. scripts/wine-server.sh
trap stop_wine EXIT
start_wine || { echo "Wine does not start" >&2; exit 1; }
/usr/bin/python3 -B scripts/windows_kit.py "$work/$name"
stop_wine
(cd "$work" && zip -q -r -X "$name.zip" "$name" && rm -r "$name")
ls -l "$work/$name.zip"

WINEPREFIX=$work/wine
export WINEPREFIX
start_wine || { echo "Wine does not start" >&2; exit 1; }
unzip -q "$work/$name.zip" -d "$WINEPREFIX/drive_c"
KORVEL_NO_PAUSE=1 KORVEL_WINE_LIMIT=3600 \
  cmake/wine-run.sh cmd /c "C:\\$name\\run-tests.cmd" | sed -u 's/\r//' | tee "$work/log"
cp -r "$WINEPREFIX/drive_c/$name/report" "$work/report"
/usr/bin/python3 -B scripts/windows_report.py "$work/report"
