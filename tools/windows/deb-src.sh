#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Adds deb-src entries for the Debian archive this machine installs from (its release suite, in
# the same archive, components and keyring), so that apt-get source finds the source packages.
# Writes one file of its own; running it again writes the same file.
set -euo pipefail
. /etc/os-release
codename=${VERSION_CODENAME:?no release name in /etc/os-release}
dir=/etc/apt/sources.list.d

# deb822 stanzas (*.sources) whose types include deb and whose suites include the release.
stanzas=$(for f in "$dir"/*.sources; do
    [[ -f $f ]] && cat "$f" && echo
done | awk -v codename="$codename" '
    function flush() {
        if (types ~ /(^| )deb( |$)/ && (" " suites " ") ~ (" " codename " ") && enabled != "no") {
            print "Types: deb-src"
            print "URIs: " uris
            print "Suites: " codename
            print "Components: " components
            if (signed != "") print "Signed-By: " signed
            print ""
        }
        types = uris = suites = components = signed = enabled = ""
    }
    /^[ \t]*$/ { flush(); next }
    /^#/ { next }
    {
        key = tolower($1); sub(/:$/, "", key)
        value = $0; sub(/^[^:]*:[ \t]*/, "", value)
        if (key == "types") types = value
        else if (key == "uris") uris = value
        else if (key == "suites") suites = value
        else if (key == "components") components = value
        else if (key == "signed-by") signed = value
        else if (key == "enabled") enabled = tolower(value)
    }
    END { flush() }')

# One-line entries (sources.list, *.list) for the release.
lines=$(cat /etc/apt/sources.list "$dir"/*.list 2>/dev/null |
    awk -v codename="$codename" '$1 == "deb" {
        n = 2; if ($2 ~ /^\[/) while ($n !~ /\]$/) n++; if ($2 ~ /^\[/) n++
        if ($(n + 1) == codename) { sub(/^deb /, "deb-src "); print }
    }' || true)

if [[ -n $stanzas ]]; then
    printf '%s\n' "$stanzas" > "$dir/kelvora-deb-src.sources"
    echo "deb-src: $dir/kelvora-deb-src.sources"
elif [[ -n $lines ]]; then
    printf '%s\n' "$lines" > "$dir/kelvora-deb-src.list"
    echo "deb-src: $dir/kelvora-deb-src.list"
else
    echo "deb-src: no Debian archive for $codename in /etc/apt" >&2
    exit 1
fi
