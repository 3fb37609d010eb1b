#!/bin/sh
# Fails unless a demo does the same in the window of the player and in `mheg run`: for each of its
# scripts, the engine must read the same files with the same sizes, in the same order.
# Usage: check_played.sh FOLDER WINE korvel-player.exe mheg
set -eu
demo=$1
wine=$2
player=$3
mheg=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir -p "build/play/$(basename "$demo")"  # for the pictures of play.script

for script in "$demo"/*.script; do
  "$wine" "$player" "$demo" --script "$script" --verbose --limit 60 >out 2>log ||
    { echo "$script: the player fails"; cat log; exit 1; }
  sed -n 's/^read \(.*\): \([0-9]* bytes\|no such file\)$/\1: \2/p' log >played
  # The expectations of the script are a test of their own.
  "$mheg" run "$demo" --script "$script" --trace=json >trace 2>differences || :
  sed -n -e 's/.*"what":"file","path":"\([^"]*\)","found":false}/\1: no such file/p' \
    -e 's/.*"what":"file","path":"\([^"]*\)","found":true,"bytes":\([0-9]*\)}/\1: \2 bytes/p' \
    trace >run
  [ -s run ] || { echo "$script: mheg run reads no file"; cat differences; exit 1; }
  diff run played || { echo "$script: the player reads other files than mheg run"; exit 1; }
done
