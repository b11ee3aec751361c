#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Gives the printing test a real printer: a running CUPS scheduler and a cups-pdf queue
# "KelvoraPDF". The test is given the queue through the environment (PRINTER); the machine's own
# default printer is left alone. Installs nothing; tools/packages.sh brings the packages.
# Exits 77 with a reason when the queue cannot be set up here.
set -euo pipefail

skip() { echo "skipped: $*"; exit 77; }

running() { lpstat -r 2>/dev/null | grep -q 'scheduler is running'; }

command -v lpadmin >/dev/null || skip "no CUPS (packages cups, cups-client, printer-driver-cups-pdf)"
if ! running; then
    [[ $(id -u) -eq 0 ]] || skip "the CUPS scheduler is not running and only root can start it"
    cupsd
    for _ in $(seq 1 100); do
        running && break
        sleep 0.1
    done
fi
running || { echo "The CUPS scheduler did not start." >&2; exit 1; }

model=$(lpinfo -m 2>/dev/null | awk '/CUPS-PDF_opt\.ppd/ { print $1; exit }')
[[ -n "$model" ]] || skip "no cups-pdf printer model (package printer-driver-cups-pdf)"
# The queue is set up afresh every time, so that an older set-up cannot linger.
lpadmin -p KelvoraPDF -v cups-pdf:/ -m "$model" -E 2>/dev/null ||
    skip "no right to add a printer queue (needs root or the lpadmin group)"
cupsenable KelvoraPDF
cupsaccept KelvoraPDF
lpstat -p KelvoraPDF
