#!/bin/sh
# Fails if clang-tidy reports an error in a source file. Usage: check-tidy.sh BUILD_FOLDER
# Tests are not checked: that takes longer than running them, and the compiler's warnings suffice.
# For a Windows build only the Windows sources are checked, because the native build checks the
# others.
set -eu
build=$1
cd "$(dirname "$0")/.."

folders='src|tools|examples'
portable=none
native=build/native-asan/compile_commands.json
set --
if grep -q mingw32 "$build/compile_commands.json"; then
  # clang does not know where the cross compiler keeps its C++ headers.
  triple=x86_64-w64-mingw32
  headers=$(dirname "$($triple-g++-posix -print-libgcc-file-name)")/include/c++
  for argument in --target=$triple -nostdinc++ -isystem "$headers" -isystem "$headers/$triple" \
    -isystem "$headers/backward"; do
    set -- "$@" "-extra-arg-before=$argument"
  done
  folders='src/host|src/presentation|tools/player|tools/menuapi|examples'
  [ ! -f "$native" ] || portable=$(sed -n 's/.*"file": "\(.*\)".*/\1/p' "$native" | paste -s -d '|')
fi

log=$build/tidy.log
files="^(?!($portable)\$)$PWD/($folders)/"
run-clang-tidy -quiet -p "$build" -j "$(nproc)" "$@" "$files" >"$log" 2>&1 && exit 0
sed 's/\x1b\[[0-9;]*m//g' "$log" | grep -E '(error|warning):' | sort -u
echo "More in $log"
exit 1
