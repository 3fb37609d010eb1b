#!/bin/sh
# Creates the Wine prefix at WINEPREFIX unless it exists. Several scripts may call it at once. Its
# settings give the engine window a client area of exactly 720 x 576, allow windows without a
# display, and end a crashed program immediately without a dialogue.
ready="$WINEPREFIX/korvel-ready"
[ -e "$ready" ] && exit 0
mkdir -p "$WINEPREFIX"
exec 9>"$WINEPREFIX.lock"
flock 9
[ -e "$ready" ] && exit 0

export WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
set_value() { timeout 60 wine reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null 2>&1 9>&-; }

timeout 120 wineboot -i >/dev/null 2>&1 9>&- || exit 1
set_value 'HKCU\Control Panel\Desktop\WindowMetrics' CaptionHeight REG_SZ -360 || exit 1
# Without a window manager, closing a managed window takes 2 s.
if [ -z "${KORVEL_WINE_DISPLAY-}" ]; then
  set_value 'HKCU\Software\Wine\X11 Driver' Managed REG_SZ N || exit 1
fi
set_value 'HKCU\Software\Wine\Drivers' Graphics REG_SZ x11,null || exit 1
set_value 'HKCU\Software\Wine\WineDbg' ShowCrashDialog REG_DWORD 0 || exit 1
set_value 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' Debugger REG_SZ "" || exit 1
timeout 30 wineserver -k 9>&-
timeout 30 wineserver -w 9>&-
: >"$ready"
