#!/bin/sh
# Plays a carousel (the demo unless another folder is given): in a window where there is a display,
# else on a virtual one, leaving screenshots. Wine's prefix for it is apart from the tests' one.
set -eu
cd "$(dirname "$0")/.."

carousel=${1:-build/native/examples/welcome}
player=build/win64/bin/korvel-player.exe
export WINEPREFIX="$PWD/build/wine-play" KORVEL_WINE_DISPLAY=1 KORVEL_WINE_LIMIT=0
trap 'wineserver -k >/dev/null 2>&1' EXIT

if [ -n "${DISPLAY-}" ]; then
  echo "Keys: arrows, Enter, Escape, digits, R G Y B, T. Close the window to end."
  cmake/wine-run.sh $player "$carousel"
else
  pictures=build/play
  mkdir -p $pictures
  echo "There is no display: the demo plays on a virtual one."
  xvfb-run -a -s '-screen 0 1024x768x24' \
    cmake/wine-run.sh $player "$carousel" --script examples/welcome/play.script
  echo "Screenshots: $PWD/$pictures"
  ls $pictures
fi
