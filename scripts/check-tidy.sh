#!/bin/sh
# Fails when clang-tidy finds fault with a source file. Usage: check-tidy.sh BUILD_FOLDER
# Tests are left to the compiler's warnings: checking them takes longer than running them.
# Of a Windows build only the Windows sources are looked at; the others are the native build's.
set -eu
build=$1
cd "$(dirname "$0")/.."

folders='src|tools|examples'
portable=none  # parts of the player that the native build has looked at
set --
if grep -q mingw32 "$build/compile_commands.json"; then
  # clang does not know where the cross compiler keeps its C++ headers.
  triple=x86_64-w64-mingw32
  headers=$(dirname "$($triple-g++-posix -print-libgcc-file-name)")/include/c++
  for argument in --target=$triple -nostdinc++ -isystem "$headers" -isystem "$headers/$triple" \
    -isystem "$headers/backward"; do
    set -- "$@" "-extra-arg-before=$argument"
  done
  folders='src/host|src/presentation|tools/player|examples'
  portable='carousel|key_names|options|script|menuapi/(?!exports)[a-z_]+'
fi

log=$build/tidy.log
files="^$PWD/($folders)/(?!($portable)\.cpp)"
run-clang-tidy -quiet -p "$build" -j "$(nproc)" "$@" "$files" >"$log" 2>&1 && exit 0
sed 's/\x1b\[[0-9;]*m//g' "$log" | grep -E '(error|warning):' | sort -u
echo "More in $log"
exit 1
