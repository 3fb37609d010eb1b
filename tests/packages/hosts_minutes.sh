#!/bin/sh
# Runs the commands of hosts_minutes.txt in the current folder and prints each, with its output, as
# a terminal shows it. taskkill closes the host's window, as a viewer does.
# Usage: hosts_minutes.sh VERSION
set -u
export VERSION="$1"
commands=$(dirname "$(readlink -f "$0")")/hosts_minutes.txt
output=$PWD/output

# taskkill succeeds even if the host has no window yet, so it is repeated until the host has ended.
close_host() {
  while sleep 5; do timeout 30 wine taskkill /im host.exe; done >"$output.closer" 2>&1
}

while read -r command <&3; do
  case $command in
    *host.exe\;*) close_host & closer=$! ;;
  esac
  printf '$ %s\n' "$command" | sed "s/\$VERSION/$VERSION/g"
  eval "$command" >"$output" 2>&1 3<&-
  tr -d '\r' <"$output"
done 3<"$commands"
kill "$closer"
