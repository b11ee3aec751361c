#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Gives the printing test a real printer: a running CUPS scheduler and a cups-pdf queue
# "KelvoraPDF" as the default printer. Installs nothing; tools/packages.sh brings the packages.
set -euo pipefail

running() { lpstat -r 2>/dev/null | grep -q 'scheduler is running'; }

if ! running; then
    cupsd
    for _ in $(seq 1 100); do
        running && break
        sleep 0.1
    done
fi
running || { echo "The CUPS scheduler did not start." >&2; exit 1; }

model=$(lpinfo -m 2>/dev/null | awk '/CUPS-PDF_opt\.ppd/ { print $1; exit }')
if [[ -z "$model" ]]; then
    echo "No cups-pdf printer model; is printer-driver-cups-pdf installed?" >&2
    exit 1
fi
# The queue is set up afresh every time, so that an older set-up cannot linger.
lpadmin -p KelvoraPDF -v cups-pdf:/ -m "$model" -E 2>/dev/null
lpadmin -d KelvoraPDF
cupsenable KelvoraPDF
cupsaccept KelvoraPDF
lpstat -d
