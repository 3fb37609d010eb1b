#!/bin/sh
# Runs each host bin/by-*.exe of an unpacked package under Wine, with a carousel whose application
# makes the engine print something. Fails unless the output is the expected one and the host ends
# with 0 after its window is closed.
# Usage, in the project's folder: run_hosts.sh PACKAGE CAROUSEL EXPECTED_OUTPUT
set -eu
project=$PWD
package=$1
carousel=$2
expected=$3
. scripts/wine-server.sh
[ -z "${ROOT_WINEPREFIX-}" ] || WINEPREFIX=$ROOT_WINEPREFIX
trap stop_wine EXIT
start_wine || { echo "Wine does not start"; exit 1; }
wine=$project/cmake/wine-run.sh

# close_window PROGRAM: closes its window, as a viewer does. Fails if it has none within 30 seconds.
close_window() {
  for _ in $(seq 60); do
    KORVEL_WINE_LIMIT=30 "$wine" taskkill /im "$1" >/dev/null 2>&1 && return
    sleep 0.5
  done
  return 1
}

# run_host HOST: runs the host and closes its window. The engine's output arrives only when the host
# ends, so it is unknown until then whether the application has started. If there is no output, the
# window was closed too early, and the next run leaves it open for longer.
run_host() {
  for seconds in 1 5 20; do
    (cd "$carousel" && KORVEL_WINE_LIMIT=60 exec "$wine" "$1") >"$package/output" &
    running=$!
    sleep "$seconds"
    close_window "${1##*/}" || { kill "$running"; return 1; }
    wait "$running" || return 1
    [ ! -s "$package/output" ] || break
  done
  tr -d '\r' <"$package/output" | cmp -s - "$expected"
}

count=0
for host in "$package"/bin/by-*.exe; do
  run_host "$host" || {
    echo "${host##*/} failed, or the engine printed something else:"
    cat "$package/output"
    exit 1
  }
  echo "${host##*/} runs"
  count=$((count + 1))
done
[ "$count" -eq 3 ]
