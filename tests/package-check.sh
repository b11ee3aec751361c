#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks a built Debian package of Kelvora: lintian (errors fail), the desktop entry with
# desktop-file-validate, the AppStream metadata with appstreamcli, and that the pieces inside
# the package fit together (icons of the right sizes, launcher, versions, manual pages, the
# share/kelvora folder that marks an installed copy).
#
#   package-check.sh <kelvora_*.deb | folder holding exactly one kelvora_*.deb>
#
# Builds nothing. Exit status: 0 all checks passed, 1 a check failed, 2 wrong use,
# 77 a tool it needs is missing (reason on stderr; CTest reports the test as skipped).
set -uo pipefail

if [[ $# -ne 1 ]]; then
    echo "usage: $0 <kelvora_*.deb | folder with one kelvora_*.deb>" >&2
    exit 2
fi

deb=$1
if [[ -d "$deb" ]]; then
    shopt -s nullglob
    found=("$deb"/kelvora_*.deb)
    shopt -u nullglob
    if [[ ${#found[@]} -ne 1 ]]; then
        echo "expected exactly one kelvora_*.deb in $deb, found ${#found[@]}" \
            "(build the target \"package\" first)" >&2
        exit 1
    fi
    deb=${found[0]}
fi
if [[ ! -f "$deb" ]]; then
    echo "no package at $deb (build the target \"package\" first)" >&2
    exit 1
fi

declare -A tool_package=(
    [dpkg-deb]=dpkg [lintian]=lintian [desktop-file-validate]=desktop-file-utils
    [appstreamcli]=appstream [man]=man-db [gzip]=gzip [od]=coreutils
)
for tool in dpkg-deb lintian desktop-file-validate appstreamcli man gzip od; do
    if ! command -v "$tool" >/dev/null 2>&1; then
        echo "skipped: $tool is missing (Debian package ${tool_package[$tool]})" >&2
        exit 77
    fi
done

scratch=$(mktemp -d "${TMPDIR:-/tmp}/kelvora-package-check.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
root=$scratch/root

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}
pass() {
    echo "ok: $*"
}

echo "Checking $deb"
if ! dpkg-deb -x "$deb" "$root"; then
    echo "FAIL: dpkg-deb cannot unpack $deb"
    exit 1
fi
version=$(dpkg-deb -f "$deb" Version)
upstream_version=${version%-*}

# lintian: errors fail the check; warnings and the tags below them are shown for the reader.
lintian_output=$(lintian --fail-on error --info --pedantic "$deb" 2>&1)
lintian_status=$?
grep -v '^running with root privileges' <<<"$lintian_output"
if [[ $lintian_status -eq 0 ]]; then
    pass "lintian finds no errors"
else
    fail "lintian reports errors (exit status $lintian_status)"
fi

# The desktop entry.
app_id=org.kelvora.Kelvora
desktop=$root/usr/share/applications/$app_id.desktop
if [[ ! -f "$desktop" ]]; then
    fail "no desktop entry usr/share/applications/$app_id.desktop"
else
    if desktop-file-validate "$desktop"; then
        pass "desktop-file-validate"
    else
        fail "desktop-file-validate rejects $app_id.desktop"
    fi
    exec_line=$(sed -n 's/^Exec=//p' "$desktop" | head -n 1)
    command=${exec_line%% *}
    if [[ -n "$command" && -x "$root/usr/bin/$command" ]]; then
        pass "Exec=$exec_line starts usr/bin/$command"
    else
        fail "Exec=$exec_line names no executable in usr/bin"
    fi
    icon=$(sed -n 's/^Icon=//p' "$desktop" | head -n 1)
    if [[ "$icon" != "$app_id" ]]; then
        fail "Icon=$icon, expected $app_id"
    fi
fi

# Icons: the drawing and one PNG per size, each really that many pixels wide and high.
icons=$root/usr/share/icons/hicolor
if [[ -s "$icons/scalable/apps/$app_id.svg" ]]; then
    pass "scalable icon"
else
    fail "no scalable icon $app_id.svg"
fi
for size in 16 24 32 48 64 128 256; do
    png=$icons/${size}x${size}/apps/$app_id.png
    if [[ ! -f "$png" ]]; then
        fail "no ${size}x${size} icon"
        continue
    fi
    # PNG: 8-byte signature, then the IHDR chunk whose data starts with width and height as
    # big-endian 32-bit numbers at bytes 16 and 20.
    signature=$(od -An -tx1 -N8 "$png" | tr -d ' \n')
    read -r -a wh < <(od -An -tu1 -j16 -N8 "$png")
    width=$(((wh[0] << 24) | (wh[1] << 16) | (wh[2] << 8) | wh[3]))
    height=$(((wh[4] << 24) | (wh[5] << 16) | (wh[6] << 8) | wh[7]))
    if [[ "$signature" == 89504e470d0a1a0a && $width -eq $size && $height -eq $size ]]; then
        pass "${size}x${size} icon is a ${width}x${height} PNG"
    else
        fail "${size}x${size} icon is not a ${size}x${size} PNG (${width}x${height})"
    fi
done

# AppStream metadata: valid, launching this desktop entry, and its newest release is the
# version of the package.
metainfo=$root/usr/share/metainfo/$app_id.metainfo.xml
if [[ ! -f "$metainfo" ]]; then
    fail "no AppStream metadata usr/share/metainfo/$app_id.metainfo.xml"
else
    if appstreamcli validate --no-net "$metainfo"; then
        pass "appstreamcli validate --no-net"
    else
        fail "appstreamcli rejects $app_id.metainfo.xml"
    fi
    if grep -q "<launchable type=\"desktop-id\">$app_id.desktop</launchable>" "$metainfo"; then
        pass "metadata launches $app_id.desktop"
    else
        fail "metadata does not launch $app_id.desktop"
    fi
    newest_release=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$metainfo" | head -n 1)
    if [[ "$newest_release" == "$upstream_version" ]]; then
        pass "newest release in the metadata is $newest_release"
    else
        fail "newest release in the metadata is '$newest_release', the package is $version"
    fi
fi

# Manual pages: present in English and German and rendered by man without a warning.
for page in usr/share/man/man6/kelvora.6.gz usr/share/man/de/man6/kelvora.6.gz; do
    if [[ ! -f "$root/$page" ]]; then
        fail "no manual page $page"
        continue
    fi
    warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l "$root/$page" 2>&1 >/dev/null)
    if [[ -z "$warnings" ]]; then
        pass "$page renders without warnings"
    else
        fail "$page: $warnings"
    fi
done

# Debian documentation: the copyright file and a changelog whose top entry is this version.
doc=$root/usr/share/doc/kelvora
if grep -q '^License: GPL-3.0-or-later' "$doc/copyright" 2>/dev/null; then
    pass "copyright names GPL-3.0-or-later"
else
    fail "usr/share/doc/kelvora/copyright missing or without GPL-3.0-or-later"
fi
changelog_version=$(gzip -dc "$doc/changelog.Debian.gz" 2>/dev/null |
    sed -n '1s/^kelvora (\([^)]*\)).*/\1/p')
if [[ "$changelog_version" == "$version" ]]; then
    pass "changelog.Debian.gz starts with $version"
else
    fail "changelog.Debian.gz starts with '$changelog_version', the package is $version"
fi

# The folder share/kelvora beside bin/ is how the programme knows it is installed.
if [[ -x "$root/usr/bin/kelvora" && -d "$root/usr/share/kelvora" &&
    -s "$root/usr/share/kelvora/COPYING" ]]; then
    pass "usr/share/kelvora/COPYING marks the installed copy"
else
    fail "usr/bin/kelvora with usr/share/kelvora/COPYING beside it is missing"
fi

if [[ $failures -ne 0 ]]; then
    echo "$failures check(s) failed"
    exit 1
fi
echo "all checks passed"
