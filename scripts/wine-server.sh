# To be sourced, in the project's folder: Wine for the tests, with the prefix of the build folder
# and without a display. Its server stays, and one program runs before the others: each of them then
# starts in a moment.
unset DISPLAY
export WINEPREFIX="$PWD/build/wine"

start_wine() {
  cmake/wine-prefix.sh && timeout 30 wineserver -p && cmake/wine-run.sh cmd /c exit
} >/dev/null 2>&1
stop_wine() { timeout 30 wineserver -k; } >/dev/null 2>&1
