#!/bin/sh
# Fails unless the library exports exactly these functions by undecorated names and imports system
# libraries only. Usage: check_library.sh OBJDUMP LIBRARY FUNCTION ...
set -eu
listing=$(mktemp)
trap 'rm -f "$listing"' EXIT
"$1" -p "$2" >"$listing"
shift 2

exports=$(sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/.*\] //p' "$listing" | grep -v Table |
  sort | tr '\n' ' ')
[ "$exports" = "$* " ] || {
  echo "exports: $exports"
  exit 1
}

imports=$(sed -n 's/.*DLL Name: //p' "$listing" |
  grep -viE '^(kernel32|user32|gdi32|gdiplus|ole32|msvcrt)\.dll$') || exit 0
echo "imports besides system libraries: $imports"
exit 1
