#!/bin/sh
# Fails unless the player returns the right status (2 for wrong use or no application, 1 if no
# engine starts, a source file has an error or a picture does not become final in time), serves the
# files as its options demand, writes pictures and scripts, and reloads a changed folder.
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

# expect STATUS COMMAND ...: also expects $lines lines on standard error.
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
expect 2 "$player" carousel --missing nothing
expect 1 player_alone.exe carousel
lines=3  # the keys are explained first
expect 1 "$player" carousel --record nowhere/recorded
grep -q '^korvel-player: cannot write nowhere' err || { cat err; exit 1; }
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
[ -f slow.png ] || { echo "no picture of the state at the limit"; exit 1; }
lines=0
expect 0 "$player" slow --script slow_script

fail() {
  echo "$1"
  cat err
  exit 1
}
# logged BEGINNING [COUNT]: fails unless the last run printed exactly COUNT lines with this
# beginning (1 by default).
logged() {
  count=$(grep -c "^$1" err) || :
  [ "$count" -eq "${2-1}" ] || fail "logged $count times instead of ${2-1}: $1"
}

# Without a script the player takes one picture after the wait and closes. It fails without an
# application.
lines=3
expect 2 "$player" carousel --screenshot shot.png --wait 200 --verbose
logged 'read a: no such file'
logged 'korvel-player: carousel has no application'
size=$(od -An -t u1 -j 16 -N 8 shot.png | tr -s ' ')
[ "$size" = " 0 0 2 208 0 0 2 64" ] || { echo "the picture is not 720 x 576"; exit 1; }

# A folder of source files. The red key enters a scene of another colour.
mkdir texts
cat >texts/a.mheg <<'END'
{:Application ("~/a" 0)
  :Items (
    {:Link 1 :EventSource 0 :EventType IsRunning :LinkEffect (:TransitionTo(("~/one" 0)))}
  )
}
END
for scene in one:two:=FF=00=00=00 two:one:=00=00=FF=00; do
  name=${scene%%:*} next=${scene#*:}
  cat >"texts/$name.mheg" <<END
{:Scene ("~/$name" 0)
  :Items (
    {:Link 1 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (:TransitionTo(("~/${next%:*}" 0)))}
    {:Rectangle 2 :OrigBoxSize 720 576 :OrigRefFillColour '${next#*:}'}
  )
  :InputEventReg 3 :SceneCS 720 576
}
END
done
echo exit >texts/test.script

# The player serves source files compiled. A script without an exit ends when nothing can happen any
# more.
printf 'until 9 9 #FF0000\nwait 300\nkey Red\nuntil 9 9 #0000FF\nexpect scene ~/two\n' >red_script
lines=4
expect 0 "$player" texts --script red_script --record recorded --series series --verbose
logged 'read two: '
logged 'korvel-player: the script has no exit, and nothing can happen any more'

# Playing the recording has the same effect, and `mheg run` plays it too.
[ "$(grep -c '^key Red$' recorded)" -eq 1 ] && [ "$(tail -n 1 recorded)" = exit ] ||
  { echo "the recording is wrong"; cat recorded; exit 1; }
[ "$(sed -n '1s/wait //p' recorded)" -ge 300 ] ||
  { echo "the recording lacks the time before the key"; cat recorded; exit 1; }
lines=3
expect 0 "$player" texts --script recorded --verbose
logged 'read two: '
{ grep -v exit recorded; echo 'expect scene ~/two'; } >expecting
"$mheg" run texts --script expecting

# Each change of the picture is in the series, from which ffmpeg makes an animation.
ffmpeg -loglevel error -f concat -i series/series.ffconcat series.gif
frames=$(ffprobe -loglevel error -count_frames -show_entries stream=nb_read_frames -of csv=p=0 \
  series.gif)
[ "$frames" -ge 2 ] || { echo "the animation has $frames frames"; exit 1; }

# Names that the ANSI code page of Windows does not have. Wine takes the encoding of files from the
# locale.
LC_ALL=C.UTF-8
export LC_ALL
cp -r texts 'größe日'
sed 's#~/one#~/menü€#' texts/a.mheg >größe日/a.mheg
sed 's#~/one#~/menü€#' texts/one.mheg >größe日/menü€.mheg
printf 'shot bild日.png\nexit\n' >skript日
lines=2
expect 0 "$player" größe日 --script skript日 --verbose
logged 'read menü€: [0-9]* bytes'
[ -f bild日.png ] || { echo "a picture's name is wrong"; ls; exit 1; }

# Missing, late and slow files.
printf 'key Red\nshot missing.png\nexit\n' >short_script
lines=3
expect 0 "$player" texts --script short_script --missing two --verbose
logged 'read two: no such file'
lines=6
printf 'until 9 9 #FF0000\nkey Red\nuntil 9 9 #0000FF\nexit\n' >late_script
expect 0 "$player" texts --script late_script --not-yet 1 --verbose --latency 20
logged 'read two: not yet available'
logged 'read two: [0-9]* bytes'

# With --watch the player reloads a changed folder. If a source file has an error, the old content
# keeps running.
KORVEL_WINE_LIMIT=100 "$wine" "$player" texts --watch --verbose >out 2>err &
running=$!
await() {
  for _ in $(seq 200); do
    [ "$(grep -c "$1" err)" -ge "$2" ] && return
    sleep 0.2
  done
  kill $running
  fail "not logged $2 times within 40 s: $1"
}
await '^read one: ' 1
sed 's/=FF=00=00/=00=FF=00/' texts/one.mheg >new && cat new >texts/one.mheg
await '^read one: ' 2
echo '{:Scene' >texts/two.mheg
await 'two.mheg:' 1
kill -0 $running || fail "an error in a source file ends the player"
kill $running
wait $running || :

# If a source file has an error, it is reported and nothing is played.
"$wine" "$player" texts --screenshot none.png >out 2>err && status=0 || status=$?
[ "$status" -eq 1 ] && [ ! -e none.png ] || fail "status $status after an error in a source file"
grep -q 'two.mheg:' err || fail "the error in a source file is not reported"
