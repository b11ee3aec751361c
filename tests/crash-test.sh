#!/usr/bin/env bash
# The crash test (crash_test.py): the real programme, killed at every click of the final test.
# It needs an X server (Xvfb), xdotool for the clicks and AT-SPI with its Python binding to find
# the option buttons, on a private D-Bus session; without them it skips (exit 77).
#   crash-test.sh <kelvora executable>
set -euo pipefail

executable=${1:?kelvora executable}
skip() {
    echo "skipped: $1"
    exit 77
}

for tool in Xvfb:xvfb xdotool:xdotool dbus-run-session:dbus-daemon; do
    command -v "${tool%%:*}" >/dev/null || skip "no ${tool%%:*} (package ${tool##*:})"
done
[[ -f /usr/share/dbus-1/services/org.a11y.Bus.service ]] ||
    skip "no AT-SPI bus for the session (package at-spi2-core)"
# The distribution's Python, which the AT-SPI binding belongs to.
python=
for candidate in /usr/bin/python3 "$(command -v python3 || true)"; do
    if [[ -x "$candidate" ]] && "$candidate" -c "import pyatspi" 2>/dev/null; then
        python=$candidate
        break
    fi
done
[[ -n "$python" ]] || skip "no Python with the AT-SPI binding (package python3-pyatspi)"

# The session bus reports each service it starts, and its file limit when not started by root.
exec dbus-run-session -- "$python" "$(dirname "$0")/crash_test.py" "$executable" \
    2> >(grep -v -e "^dbus-daemon\[" -e "^SpiRegistry daemon is running" >&2)
