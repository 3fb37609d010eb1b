#!/bin/sh
# Fails unless the player returns the right status (2 for wrong use, 1 if no engine starts or a
# picture does not become final in time) and takes a picture of the window without a script.
# Usage: check_player.sh WINE korvel-player.exe mheg
set -eu
wine=$1
player=$2
mheg=$3
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

# The key takes two seconds: half a second for each missing application.
mkdir slow
cat >slow.mheg <<'END'
{:Application ("~/a" 0)
  :Items (
    {:Link 1 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (
        :Spawn(("~/nowhere" 0)) :Spawn(("~/nowhere" 0))
        :Spawn(("~/nowhere" 0)) :Spawn(("~/nowhere" 0))
      )
    }
  )
}
END
"$mheg" compile slow.mheg -o slow/a
printf 'key Red\nshot slow.png\nexit\n' >slow_script
lines=1
expect 1 "$player" slow --script slow_script --limit 1
grep -q '^korvel-player: no final picture for slow.png within the limit' err || { cat err; exit 1; }
[ -f slow.png ] || { echo "what was seen at the limit is not kept"; exit 1; }
lines=0
expect 0 "$player" slow --script slow_script

# Without a script it takes one picture after the wait and closes.
"$wine" "$player" carousel --screenshot shot.png --wait 200 --verbose >out 2>err
grep -q '^read a: no such file' err || { echo "the log does not tell of a read"; exit 1; }
size=$(od -An -t u1 -j 16 -N 8 shot.png | tr -s ' ')
[ "$size" = " 0 0 2 208 0 0 2 64" ] || { echo "the picture is not 720 x 576"; exit 1; }
