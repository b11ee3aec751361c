#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# House rules on every source file: clang-format must leave it unchanged and clang-tidy must find
# nothing (the checks are in .clang-tidy). Needs a configured and built tree for clang-tidy's
# compile commands and generated files: tools/lint.sh [build-dir]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/default}

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
echo "clang-format: ${#sources[@]} files"
clang-format --dry-run --Werror "${sources[@]}"

[[ -f "$build/compile_commands.json" ]] || { echo "lint: no $build/compile_commands.json" >&2; exit 1; }
tidy=$(command -v run-clang-tidy || command -v run-clang-tidy-14)
echo "clang-tidy: every file of $build/compile_commands.json"
"$tidy" -p "$build" -j "$(nproc)" -quiet "$PWD/(core|shell|pages|finaltest|display|app|bench|tests)/" \
    >"$build/clang-tidy.log" 2>&1 || { sed "s/\x1b\[[0-9;]*m//g" "$build/clang-tidy.log" | grep -E "warning:|error:" | sort -u; exit 1; }
# The fuzz targets are built in the sanitizer tree only (clang).
if [[ -f build/asan/compile_commands.json ]]; then
    echo "clang-tidy: the fuzz targets of build/asan"
    "$tidy" -p build/asan -j "$(nproc)" -quiet "$PWD/fuzz/" >build/asan/clang-tidy.log 2>&1 ||
        { sed "s/\x1b\[[0-9;]*m//g" build/asan/clang-tidy.log | grep -E "warning:|error:" | sort -u; exit 1; }
fi
echo "clang-tidy: clean"
