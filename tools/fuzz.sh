#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs every fuzz target of the sanitizer tree for a while: tools/fuzz.sh <build-dir> <seconds>.
# Each starts from its committed seed corpus (fuzz/corpus/<name>) and the inputs it found in
# earlier runs (<build-dir>/fuzz/corpus/<name>). A crash, a hang, a broken property or any
# sanitizer report is a finding: the input is kept in <build-dir>/fuzz/findings and the script
# fails once every target has run.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?build directory}
seconds=${2:?seconds per target}

export ASAN_OPTIONS=detect_leaks=1:check_initialization_order=1:detect_stack_use_after_return=1
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

findings=$build/fuzz/findings
mkdir -p "$findings"
failed=()
for seeds in fuzz/corpus/*/; do
    name=$(basename "$seeds")
    target=$build/fuzz/fuzz_$name
    [[ -x "$target" ]] || { echo "fuzz: no $target (configure with: cmake --preset asan)" >&2; exit 1; }
    corpus=$build/fuzz/corpus/$name
    mkdir -p "$corpus"
    log=$build/fuzz/$name.log
    # A single input that takes 10 s is a hang.
    if "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="$findings/$name-" "$corpus" "$seeds" >"$log" 2>&1; then
        echo "fuzz_$name: $(grep -o 'Done [0-9]* runs in [0-9]* second(s)' "$log" | tail -n 1), no finding"
    else
        echo "fuzz_$name: FINDING"
        grep -E "ERROR|property broken|runtime error|Test unit written|SUMMARY" "$log" | head -n 20
        failed+=("$name")
    fi
done
if [[ ${#failed[@]} -gt 0 ]]; then
    echo "fuzz: findings in ${failed[*]}; the logs are in $build/fuzz, the inputs in $findings" >&2
    exit 1
fi
