#!/bin/sh
# Fails if a source file is not formatted as .clang-format requires, or if a line of a source,
# script or CMake file is longer than 100 columns. With --fix, formats the sources.
cd "$(dirname "$0")/.." || exit 1
mode="--dry-run --Werror"
[ "${1-}" != --fix ] || mode=-i

folders="src include tools tests examples bench"
sources() { find $folders -name '*.cpp' -o -name '*.h' -o -name '*.c'; }
other_files() {
  find Makefile CMakeLists.txt cmake scripts $folders -type f \
    '(' -name '*.sh' -o -name '*.py' -o -name '*.cmake' \
    -o -name CMakeLists.txt -o -name Makefile ')'
}

status=0
sources | xargs clang-format $mode || status=1
{ sources; other_files; } | xargs awk '
  length > 100 { print FILENAME ":" FNR ": longer than 100 columns"; found = 1 }
  END { exit found }' || status=1
exit $status
