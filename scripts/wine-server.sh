# To be sourced, in the project's folder: starts Wine for the tests, with a prefix in the build
# folder and without a display. The server keeps running and has already run one program, so that
# test programs start quickly.
unset DISPLAY
export WINEPREFIX="$PWD/build/wine"

start_wine() {
  cmake/wine-prefix.sh || return
  timeout 30 wineserver -p || :  # fails if a server already runs, which is fine
  cmake/wine-run.sh cmd /c exit
} >/dev/null 2>&1
stop_wine() {
  timeout 30 wineserver -k || :  # fails if no server runs, which is fine
} >/dev/null 2>&1
