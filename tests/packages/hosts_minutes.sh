#!/bin/sh
# Runs the commands of hosts_minutes.txt in the current folder and prints each, with its output, as
# a terminal shows it. taskkill plays the viewer who closes the host's window.
# Usage: hosts_minutes.sh VERSION
set -u
export VERSION="$1"
commands=$(dirname "$(readlink -f "$0")")/hosts_minutes.txt
output=$PWD/output

(
  for _ in $(seq 200); do
    timeout 30 wine taskkill /im host.exe >"$output.closer" 2>&1 && exit
    sleep 0.5
  done
) &
closer=$!

while read -r command <&3; do
  printf '$ %s\n' "$command" | sed "s/\$VERSION/$VERSION/g"
  eval "$command" >"$output" 2>&1 3<&-
  tr -d '\r' <"$output"
done 3<"$commands"
wait "$closer"
