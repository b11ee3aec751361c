#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# make bench: the benchmark on a real X server (the Xorg dummy of the tests, at 1920 x 1080, with
# openbox where it is installed, so that windows are maximised as on a desktop) and offscreen.
#   bench/run.sh <build-dir> [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/default}
runs=${2:-9}
bench="$build/bench/kelvora_bench"
state="$PWD/$build/bench-xorg"
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}

echo "== on the Xorg dummy server"
if tests/xorg-dummy.sh start "$state" tests/xorg-dummy.conf; then
    trap 'tests/xorg-dummy.sh stop "$state"' EXIT
    tests/xorg-dummy.sh run "$state" xrandr -s 1920x1080
    wm=
    if command -v openbox >/dev/null; then
        tests/xorg-dummy.sh run "$state" openbox >/dev/null 2>&1 &
        wm=$!
        sleep 1
    else
        echo "(no window manager: install openbox to measure maximised windows as on a desktop)"
    fi
    QT_QPA_PLATFORM=xcb tests/xorg-dummy.sh run "$state" "$bench" "$runs" || true
    [[ -n "$wm" ]] && kill "$wm" 2>/dev/null || true
    tests/xorg-dummy.sh stop "$state"
    trap - EXIT
fi

echo "== offscreen"
# The offscreen platform cannot raise a window and says so each time.
QT_QPA_PLATFORM="offscreen:configfile=$PWD/tests/offscreen-1920x1080.json" "$bench" "$runs" \
    2> >(grep -v "does not support raise" >&2)
