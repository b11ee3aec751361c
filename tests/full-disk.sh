#!/usr/bin/env bash
# A file system of 64 KiB in memory for the full-disk test.
#   full-disk.sh mount <folder>     mounts it there (root only; exit 77 elsewhere)
#   full-disk.sh unmount <folder>   unmounts it
set -euo pipefail

action=${1:?action}
folder=${2:?folder}

case "$action" in
mount)
    if [[ $(id -u) -ne 0 ]]; then
        echo "skipped: mounting a small file system needs root"
        exit 77
    fi
    mkdir -p "$folder"
    if mountpoint -q "$folder"; then
        umount "$folder"
    fi
    mount -t tmpfs -o size=64k,mode=0755 kelvora-full-disk "$folder"
    echo "full-disk: $(df -h --output=size "$folder" | tail -n 1 | tr -d ' ') at $folder"
    ;;
unmount)
    if mountpoint -q "$folder" 2>/dev/null; then
        umount "$folder"
    fi
    rmdir "$folder" 2>/dev/null || true
    ;;
*)
    echo "usage: $0 mount|unmount <folder>" >&2
    exit 2
    ;;
esac
