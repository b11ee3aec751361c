#!/usr/bin/env bash
# Installs the Debian packages that building (and, with "test", testing; with "sanitize", the
# sanitizer build and fuzzing; with "windows", the Windows build) Kelvora needs. As root it
# installs what is missing with apt-get; otherwise it prints the one command that would.
set -euo pipefail

build_packages=(cmake ninja-build g++ qt6-base-dev qt6-svg-dev libgl-dev
    qt6-translations-l10n fonts-liberation fonts-dejavu-core libx11-dev libxrandr-dev librsvg2-bin)
test_packages=(xvfb xauth poppler-utils g++-mingw-w64-x86-64 xserver-xorg-core
    xserver-xorg-video-dummy x11-xserver-utils cups cups-client printer-driver-cups-pdf
    dpkg-dev file fakeroot lintian desktop-file-utils appstream clang-format clang-tidy
    python3 python3-pyatspi at-spi2-core dbus dbus-x11 xdotool openbox x11-utils orca)
# The sanitizer build and the fuzz targets: clang with its sanitizer and libFuzzer runtimes.
sanitize_packages=(clang libclang-rt-dev)

# The Windows build: MinGW-w64 builds Qt and the programme (dpkg-dev unpacks Qt's source), NSIS
# makes the installer, Wine runs the tests on the tests' X server, driven by xdotool, with the
# fonts every Windows has (Wine's own, and the Liberation fonts in place of Arial and the like).
windows_packages=(g++-mingw-w64-x86-64-posix dpkg-dev nsis wine64 fonts-wine xserver-xorg-core
    xserver-xorg-video-dummy x11-xserver-utils xdotool python3)

# The benchmark runs on the tests' X server, with a window manager that maximises windows.
bench_packages=(xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils openbox)

packages=("${build_packages[@]}")
case "${1:-}" in
test) packages+=("${test_packages[@]}") ;;
sanitize) packages+=("${sanitize_packages[@]}") ;;
bench) packages+=("${bench_packages[@]}") ;;
windows) packages+=("${windows_packages[@]}") ;;
esac

missing=()
for p in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
    [[ "$status" == "install ok installed" ]] || missing+=("$p")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

if [[ $(id -u) -eq 0 ]]; then
    echo "Installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
else
    echo "Kelvora needs these packages. Install them with:"
    echo "  sudo apt-get install ${missing[*]}"
    exit 1
fi
