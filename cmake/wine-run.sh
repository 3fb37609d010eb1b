#!/bin/sh
# Runs a Windows program under Wine with the prefix of this build folder, which the first call
# creates. CTest calls it as the toolchain's emulator. The null graphics driver draws the pictures,
# so no display is needed. KORVEL_WINE_DISPLAY=1 uses the display, for interactive programs.
: "${WINEPREFIX:=$(dirname "$(readlink -f "$0")")/../build/wine}"
WINEPREFIX=$(readlink -m "$WINEPREFIX")
export WINEPREFIX
[ -n "${KORVEL_WINE_DISPLAY-}" ] || unset DISPLAY
"$(dirname "$(readlink -f "$0")")/wine-prefix.sh" || exit 1
export WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml="
exec timeout --foreground --kill-after=5 "${KORVEL_WINE_LIMIT:-300}" wine "$@"
