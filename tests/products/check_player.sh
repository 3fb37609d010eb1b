#!/bin/sh
# Fails unless the player tells its mistakes apart (2 for wrong use, 1 where no engine starts) and
# takes a picture of the window on its own.
# Usage: check_player.sh WINE korvel-player.exe
set -eu
wine=$1
player=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir carousel
printf 'press Red\n' >wrong_script
cp "$player" player_alone.exe

expect() {
  status=$1
  shift
  "$wine" "$@" >out 2>err && seen=0 || seen=$?
  [ "$seen" -eq "$status" ] && [ "$(wc -l <err)" -eq "$lines" ] && return
  echo "status $seen instead of $status, or not $lines line(s) on standard error: $*"
  cat err
  exit 1
}

lines=1
expect 2 "$player"
expect 2 "$player" missing
expect 2 "$player" carousel --wait soon
expect 2 "$player" carousel --script wrong_script
expect 1 player_alone.exe carousel
lines=0
expect 0 "$player" --help

# Without a script it takes one picture after the wait and closes.
"$wine" "$player" carousel --screenshot shot.png --wait 200 --verbose >out 2>err
grep -q '^read a: no such file' err || { echo "the log does not tell of a read"; exit 1; }
size=$(od -An -t u1 -j 16 -N 8 shot.png | tr -s ' ')
[ "$size" = " 0 0 2 208 0 0 2 64" ] || { echo "the picture is not 720 x 576"; exit 1; }
