#!/bin/sh
# Fails unless the symbols of the library, before it is stripped, contain all of these functions,
# so that a developer can call them from a debugger.
# Usage: check_symbols.sh OBJDUMP LIBRARY FUNCTION ...
set -eu
listing=$(mktemp)
trap 'rm -f "$listing"' EXIT
"$1" --syms --demangle "$2" >"$listing"
shift 2

for function; do
  grep -qF " $function(" "$listing" || {
    echo "missing: $function"
    missing=1
  }
done
[ -z "${missing-}" ]
