#!/bin/sh
# Runs the Windows tests and the scenarios on systems that `make test` does not use: the 32-bit
# products under a 32-bit Wine, and the 64-bit ones under a newer Wine. Each Wine is in a Debian
# system of its own in build/elsewhere, installed once; the programs are built on this machine. The
# last lines count the tests of both. Needs root.
set -u
cd "$(dirname "$0")/.." || exit 1
[ "$(id -u)" -eq 0 ] || { echo "$0: needs root, to run tests in other systems" >&2; exit 1; }
scripts/install-packages.sh native windows gallery test fresh || exit 1
. scripts/root.sh

# run_tests BUILD_FOLDER ROOT: CTest needs a module of the CMake that configured the folder, and the
# system has another version, so the module is copied. Tests that only examine files are excluded:
# they need the cross compiler's tools, and `make test` runs them.
run_tests() {
  modules=$(sed -n 's/^CMAKE_ROOT:INTERNAL=//p' "$1/CMakeCache.txt")
  mkdir -p "$2$modules" && cp -r "$modules/." "$2$modules" &&
    run_in_root "$2" "$PWD" sh -c '
      . scripts/wine-server.sh
      WINEPREFIX=/wine
      start_wine || { echo "Wine does not start"; exit 1; }
      ctest --test-dir "$0" -j 2 --output-on-failure \
        -E "^(check|product\.(library|menuapi|symbols))"
      stop_wine' "$1"
}

# count_tests NAME LOG
count_tests() {
  counts=$(sed -n 's/.* \([0-9]*\) tests failed out of \([0-9]*\)$/\1 \2/p' "$2")
  [ -n "$counts" ] || { tail -n 20 "$2"; counts="1 1"; }
  skipped=$(grep -c '(Skipped)$' "$2")
  failed=${counts% *}
  passed=$((${counts#* } - failed - skipped))
  echo "$1: $passed passed, $failed failed, $skipped skipped ($2)" | tee -a build/elsewhere/summary
}

test_32_bits() {
  install_system bookworm "$1" wine wine64 wine32:i386 &&
    cmake --preset win32 -B build/elsewhere/win32 -DKORVEL_TESTS=ON -DKORVEL_32_BIT_TESTS=ON &&
    cmake --build build/elsewhere/win32 && run_tests build/elsewhere/win32 "$1"
}

test_newer_wine() {
  install_system trixie "$1" wine wine64 && cmake --preset win64 -DKORVEL_TESTS=ON &&
    cmake --build --preset win64 && run_tests build/win64 "$1"
}

mkdir -p build/elsewhere
: >build/elsewhere/summary
cmake --preset native-asan >/dev/null && cmake --build --preset native-asan --target mheg || exit 1
test_32_bits build/elsewhere/bookworm-i386 >build/elsewhere/32-bits.log 2>&1
count_tests "32 bits, Wine 8" build/elsewhere/32-bits.log
test_newer_wine build/elsewhere/trixie >build/elsewhere/wine-10.log 2>&1
count_tests "64 bits, Wine 10" build/elsewhere/wine-10.log
! grep -qv ', 0 failed,' build/elsewhere/summary
