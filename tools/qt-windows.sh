#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds Qt 6.4.2 for 64-bit Windows with MinGW-w64 (Core, Gui, Widgets, PrintSupport, Svg, Test,
# shared libraries) into a cache folder outside the build tree, and prints that folder. A cache
# that is already there is reused as it is; with --check, only tells whether it is there.
#
#   KELVORA_QT_WINDOWS  the cache folder (default ~/.cache/kelvora/qt-6.4.2-mingw64)
#   KELVORA_QT_SVG      the Qt SVG source archive (default: shared/third_party/ beside the
#                       checkout or beside its parent folder)
#   KELVORA_QT_JOBS     parallel compile jobs (default 2); the build runs under nice
#
# The qtbase source comes from Debian's source archive (apt-get source qt6-base), in the very
# version of the host's Qt, whose tools (moc, rcc, uic) the cross build uses. Debian's source
# has no src/3rdparty/wintab, so the Windows platform plugin gets the small declaration of the
# Wintab interface in tools/windows/wintab/.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
prefix=${KELVORA_QT_WINDOWS:-$HOME/.cache/kelvora/qt-6.4.2-mingw64}
svg_archive=${KELVORA_QT_SVG:-}
if [[ -z $svg_archive ]]; then
    for shared in "$here/../shared" "$here/../../shared"; do
        svg_archive=$shared/third_party/qtsvg-everywhere-src-6.4.2.tar.xz
        [[ -f $svg_archive ]] && break
    done
fi
jobs=${KELVORA_QT_JOBS:-2}
export KELVORA_QT_WINDOWS=$prefix
modules=(Core Gui Widgets PrintSupport Svg Test)

cached() {
    local m
    for m in "${modules[@]}"; do
        [[ -f $prefix/lib/cmake/Qt6$m/Qt6${m}Config.cmake ]] || return 1
    done
}
if cached; then
    echo "$prefix"
    exit 0
fi
# --check: only whether the cache is there (exit status 0) or not (1).
[[ ${1:-} == --check ]] && exit 1

log() { echo "qt-windows: $*" >&2; }
qt_version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev)
[[ $qt_version == 6.4.2+* ]] || { log "the host's Qt is $qt_version, not 6.4.2"; exit 1; }
[[ -f $svg_archive ]] || { log "no Qt SVG source at $svg_archive"; exit 1; }

# A deb-src entry beside the archive the machine installs from, once.
if ! apt-cache showsrc qt6-base 2>/dev/null | grep -qx "Version: $qt_version"; then
    [[ $(id -u) -eq 0 ]] || { log "needs a deb-src entry for Debian; run as root once"; exit 1; }
    "$here/tools/windows/deb-src.sh"
    apt-get update -qq
fi

# The work folder stays until the install is complete, so that a stopped build goes on where it
# stopped.
work=$prefix.work
mkdir -p "$work"
cd "$work"
qtbase=$work/qt6-base-${qt_version%%-*}
if [[ ! -d $qtbase ]]; then
    log "fetching the qtbase $qt_version source"
    rm -rf qtbase-download
    mkdir qtbase-download
    (cd qtbase-download && apt-get source -qq --only-source "qt6-base=$qt_version" >&2)
    mv qtbase-download/"$(basename "$qtbase")" "$qtbase"
    rm -rf qtbase-download
fi
if [[ ! -d qtsvg ]]; then
    mkdir -p qtsvg.tmp
    tar -xJf "$svg_archive" -C qtsvg.tmp --strip-components=1
    mv qtsvg.tmp qtsvg
fi
mkdir -p "$qtbase/src/3rdparty/wintab"
cp "$here"/tools/windows/wintab/*.h "$qtbase/src/3rdparty/wintab/"
# Qt GUI makes its DirectWrite font engines and font database only together with Direct2D, which
# this build leaves out; Qt's Windows print engine and platform plugin then must not expect them.
sed -i -E 's/^#if QT_CONFIG\((directwrite3?)\)$/#if QT_CONFIG(\1) \&\& QT_CONFIG(direct2d)/' \
    "$qtbase/src/printsupport/platform/windows/qprintengine_win.cpp" \
    "$qtbase/src/plugins/platforms/windows/qwindowsintegration.cpp"
cp "$here/tools/windows/toolchain.cmake" toolchain.cmake

# Only what the programme and its tests use: no SQL, network, OpenGL, D-Bus, XML or concurrency
# modules, no second (Direct2D) platform plugin, no examples, tests or target tools; the third
# party libraries built in.
common=(-G Ninja -Wno-dev -DCMAKE_TOOLCHAIN_FILE="$work/toolchain.cmake"
    -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_BENCHMARKS=OFF
    -DQT_BUILD_TOOLS_WHEN_CROSSCOMPILING=OFF)
log "configuring qtbase"
cmake -S "$qtbase" -B build-qtbase "${common[@]}" -DBUILD_SHARED_LIBS=ON \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
    -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_dbus=OFF -DFEATURE_opengl=OFF \
    -DINPUT_opengl=no -DFEATURE_xml=OFF -DFEATURE_concurrent=OFF -DFEATURE_direct2d=OFF \
    -DFEATURE_vulkan=OFF \
    -DFEATURE_system_zlib=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_png=OFF \
    -DFEATURE_system_jpeg=OFF -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_freetype=OFF \
    -DFEATURE_system_doubleconversion=OFF -DFEATURE_freetype=ON > configure-qtbase.log ||
    { tail -n 30 configure-qtbase.log >&2; exit 1; }
log "building qtbase with $jobs jobs (log: $work/build-qtbase.log)"
nice cmake --build build-qtbase --parallel "$jobs" > build-qtbase.log ||
    { tail -n 30 build-qtbase.log >&2; exit 1; }
cmake --install build-qtbase > /dev/null

log "configuring and building Qt SVG"
cmake -S qtsvg -B build-qtsvg "${common[@]}" > configure-qtsvg.log ||
    { tail -n 30 configure-qtsvg.log >&2; exit 1; }
nice cmake --build build-qtsvg --parallel "$jobs" > build-qtsvg.log ||
    { tail -n 30 build-qtsvg.log >&2; exit 1; }
cmake --install build-qtsvg > /dev/null

cached || { log "the build left no Qt modules in $prefix"; exit 1; }
cd /
rm -rf "$work"
echo "$prefix"
