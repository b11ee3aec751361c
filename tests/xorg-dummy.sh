#!/usr/bin/env bash
# A private X server with the dummy video driver for the display-mode tests.
#   xorg-dummy.sh start <state-dir> <config>   starts it on a free display number
#   xorg-dummy.sh run <state-dir> <command...>  runs the command with DISPLAY set to it (exit 77
#                                               when there is no server: the start was skipped)
#   xorg-dummy.sh stop <state-dir>              stops it
# The server runs as the calling user; the dummy driver needs no hardware, but Xorg accepts a
# configuration file outside its own folders only from root.
set -euo pipefail

action=${1:?action}
state=${2:?state directory}

xorg_binary() {
    for candidate in /usr/lib/xorg/Xorg /usr/libexec/Xorg /usr/bin/Xorg; do
        [[ -x "$candidate" ]] && { echo "$candidate"; return 0; }
    done
    echo "xorg-dummy: no Xorg server found (package xserver-xorg-core)" >&2
    return 1
}

case "$action" in
start)
    config=${3:?configuration file}
    if [[ $(id -u) -ne 0 ]]; then
        echo "skipped: Xorg takes a configuration file from outside its own folders only from root"
        exit 77
    fi
    "$0" stop "$state" || true
    mkdir -p "$state/conf.d"
    xorg=$(xorg_binary)
    for number in $(seq 71 199); do
        [[ -e /tmp/.X$number-lock || -e /tmp/.X11-unix/X$number ]] && continue
        "$xorg" ":$number" -config "$config" -configdir "$state/conf.d" -noreset -nolisten tcp \
            -novtswitch -sharevts -logfile "$state/Xorg.log" >"$state/Xorg.out" 2>&1 &
        pid=$!
        for _ in $(seq 1 100); do
            if ! kill -0 "$pid" 2>/dev/null; then
                break
            fi
            if DISPLAY=":$number" xrandr --query >/dev/null 2>&1; then
                echo "$pid" >"$state/pid"
                echo ":$number" >"$state/display"
                echo "xorg-dummy: display :$number (pid $pid)"
                exit 0
            fi
            sleep 0.1
        done
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
        # Another server may have taken the number in the meantime; a failing server fails again.
        if ! grep -q "Server is already active" "$state/Xorg.out" 2>/dev/null; then
            echo "xorg-dummy: the X server did not start:" >&2
            tail -n 20 "$state/Xorg.out" >&2 || true
            exit 1
        fi
    done
    echo "xorg-dummy: no free display number" >&2
    exit 1
    ;;
run)
    shift 2
    [[ -f "$state/display" ]] || { echo "skipped: the dummy X server was not started"; exit 77; }
    DISPLAY=$(cat "$state/display") exec "$@"
    ;;
stop)
    if [[ -f "$state/pid" ]]; then
        pid=$(cat "$state/pid")
        kill "$pid" 2>/dev/null || true
        for _ in $(seq 1 50); do
            kill -0 "$pid" 2>/dev/null || break
            sleep 0.1
        done
        kill -9 "$pid" 2>/dev/null || true
        rm -f "$state/pid" "$state/display"
    fi
    ;;
*)
    echo "usage: $0 start|run|stop <state-dir> ..." >&2
    exit 2
    ;;
esac
