#!/bin/sh
# Compares a transcript with the one in a page: the text between the first line with ```console and
# the next ```. ACCEPT=1 stores it in the page instead.
# Usage: transcript.sh PAGE TRANSCRIPT
set -eu
awk -v file="$2" '
  inside && /^```$/ { inside = 0 }
  !inside { print }
  /^```console$/ && !done { inside = done = 1; while ((getline line <file) > 0) print line }
  END { exit !done }
' "$1" >"$2.page"
if [ -n "${ACCEPT-}" ]; then
  cp "$2.page" "$1"
else
  diff -u "$1" "$2.page"
fi
