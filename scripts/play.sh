#!/bin/sh
# Plays a demo, or the carousel in a folder: in a window if there is a display, otherwise on a
# virtual one with the screenshots of its play.script. It uses a Wine prefix of its own, not that of
# the tests.
set -eu
cd "$(dirname "$0")/.."

demo=${1:-welcome}
case $demo in
*/*) carousel=$demo script=$demo/play.script ;;
*) carousel=build/native/examples/$demo script=examples/$demo/play.script ;;
esac
if [ ! -d "$carousel" ]; then
  echo "There is no demo '$demo'. Demos: $(ls build/native/examples | grep -v -i cmake | xargs)" >&2
  exit 2
fi
player=build/win64/bin/korvel-player.exe
export WINEPREFIX="$PWD/build/wine-play" KORVEL_WINE_DISPLAY=1 KORVEL_WINE_LIMIT=0
trap 'wineserver -k >/dev/null 2>&1' EXIT

if [ -n "${DISPLAY-}" ]; then
  cmake/wine-run.sh $player "$carousel"
else
  pictures=build/play/$(basename "$demo")
  mkdir -p "$pictures"
  echo "There is no display: the demo plays on a virtual one."
  xvfb-run -a -s '-screen 0 1024x768x24' \
    cmake/wine-run.sh $player "$carousel" --script "$script"
  echo "Screenshots: $PWD/$pictures"
  ls "$pictures"
fi
