#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs a programme of the Windows build under Wine, in a Wine prefix of the build's own.
#   wine.sh <programme.exe> [arguments...]   runs it; its exit status is the programme's
#   wine.sh --qtest <test.exe> [arguments...] runs a Qt Test executable and prints its log (under
#                                             Wine its standard output is lost on a pipe), on an X
#                                             screen of KELVORA_WINE_SCREEN (xrandr's "WxH") if set
#   wine.sh --boot                            creates (or brings up to date) the prefix
#   wine.sh --stop                            stops the prefix's Wine server and its processes
# Environment: WINEPREFIX (required); KELVORA_WINE_DLLS, folders separated by ':' whose DLLs the
# programme loads (Qt's bin folder, the MinGW-w64 runtime). Exit status 77: no Wine here.
set -eu
: "${WINEPREFIX:?WINEPREFIX must name the Wine prefix}"
wine=$(command -v wine64 || command -v wine || echo /usr/lib/wine/wine64)
wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver)
if [ ! -x "$wine" ]; then
    echo "skipped: Wine not found (package wine64)"
    exit 77
fi
export WINEPREFIX
export WINEDEBUG="${WINEDEBUG:--all}"
# No Mono or Gecko: the programmes need neither, and Wine would offer to download them.
export WINEDLLOVERRIDES="mscoree,mshtml="

case "${1:?programme}" in
--boot)
    mkdir -p "$WINEPREFIX"
    DISPLAY='' "$wine" wineboot --init >/dev/null 2>&1
    # Every Windows has Arial, Times New Roman and Courier New, and Qt falls back to Arial; Wine
    # has none of them, so the Liberation fonts with their metrics stand in, as on Linux.
    for font in "Arial=Liberation Sans" "Times New Roman=Liberation Serif" \
        "Courier New=Liberation Mono"; do
        DISPLAY='' "$wine" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "${font%%=*}" \
            /d "${font#*=}" /f >/dev/null 2>&1
    done
    "$wineserver" --wait
    ;;
--stop)
    "$wineserver" --kill 2>/dev/null || true
    ;;
--qtest)
    shift
    # The screen size the test expects (the offscreen platform's on Linux). Wine reads the size
    # when its server starts, so a change waits for the last programme's server to end.
    if [ -n "${KELVORA_WINE_SCREEN:-}" ] &&
        ! xrandr --query | grep -q "current ${KELVORA_WINE_SCREEN%x*} x ${KELVORA_WINE_SCREEN#*x},"; then
        "$wineserver" --wait
        xrandr --size "$KELVORA_WINE_SCREEN"
    fi
    log=$(mktemp "${TMPDIR:-/tmp}/kelvora-qtest.XXXXXX")
    status=0
    "$0" "$@" -o "Z:$(printf '%s' "$log" | tr / '\\'),txt" || status=$?
    cat "$log"
    rm -f "$log"
    exit "$status"
    ;;
*)
    path=''
    old_ifs=$IFS
    IFS=:
    for folder in ${KELVORA_WINE_DLLS:-}; do
        path="$path${path:+;}Z:$(printf '%s' "$folder" | tr / '\\')"
    done
    IFS=$old_ifs
    export WINEPATH="$path"
    exec "$wine" "$@"
    ;;
esac
