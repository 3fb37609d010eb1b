#!/bin/sh
# Fails when a source file is not laid out as .clang-format says, or when a line of any file that we
# write by hand is longer than 100 columns. With --fix, lays the sources out.
cd "$(dirname "$0")/.." || exit 1
mode="--dry-run --Werror"
[ "${1-}" != --fix ] || mode=-i

sources() { find src include tools tests examples -name '*.cpp' -o -name '*.h' -o -name '*.c'; }
other_files() {
  find Makefile CMakeLists.txt cmake scripts src tools tests examples -type f \
    '(' -name '*.sh' -o -name '*.py' -o -name '*.cmake' \
    -o -name CMakeLists.txt -o -name Makefile ')'
}

status=0
sources | xargs clang-format $mode || status=1
{ sources; other_files; } | xargs awk '
  length > 100 { print FILENAME ":" FNR ": longer than 100 columns"; found = 1 }
  END { exit found }' || status=1
exit $status
