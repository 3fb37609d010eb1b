#!/bin/sh
# Fails when a source file is not laid out as .clang-format says. With --fix, lays it out so.
cd "$(dirname "$0")/.." || exit 1
mode="--dry-run --Werror"
[ "${1-}" != --fix ] || mode=-i
find src include tools tests examples -name '*.cpp' -o -name '*.h' -o -name '*.c' |
  xargs clang-format $mode
