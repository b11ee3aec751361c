#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs the end-to-end test of Kelvora through the accessibility interface and the keyboard.
#   tests/e2e/run.sh [path/to/kelvora] [--keep] [--verbose]
# The test needs Debian's python3 (python3-pyatspi lives in its dist-packages, which a python3
# from pyenv or a virtual environment earlier on PATH does not see), xdotool, dbus, at-spi2-core
# and an X server (Xorg with the dummy driver as root, else Xvfb); openbox if present.
# Exit status 77 means this machine cannot run it.
here=$(cd "$(dirname "$0")" && pwd)
python=/usr/bin/python3
if [ ! -x "$python" ]; then
    echo "SKIP: $python not found"
    exit 77
fi
exec "$python" "$here/kelvora_e2e.py" "$@"
