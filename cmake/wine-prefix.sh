#!/bin/sh
# Makes the Wine prefix named by WINEPREFIX if it does not exist yet. Several processes may call it.
# Its settings give the engine window a client area of exactly 720 x 576, let windows be made
# without a display, and end a crashed program at once instead of asking a person.
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
if [ -z "${KORVEL_WINE_DISPLAY-}" ]; then  # without a window manager, a managed close takes 2 s
  set_value 'HKCU\Software\Wine\X11 Driver' Managed REG_SZ N || exit 1
fi
set_value 'HKCU\Software\Wine\Drivers' Graphics REG_SZ x11,null || exit 1
set_value 'HKCU\Software\Wine\WineDbg' ShowCrashDialog REG_DWORD 0 || exit 1
set_value 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' Debugger REG_SZ "" || exit 1
timeout 30 wineserver -k 9>&-
timeout 30 wineserver -w 9>&-
: >"$ready"
