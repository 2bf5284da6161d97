#!/usr/bin/env bash
# fuzz.sh SECONDS [TARGET…]: runs each fuzz target, or those named, for so long, from its seeds and what it has found before.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=$1
shift

names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for target in build/fuzz/fuzz/*-fuzz; do
        name=$(basename "$target")
        names+=("${name%-fuzz}")
    done
fi
for name in "${names[@]}"; do
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    folders=("$corpus")
    [ -d "fuzz/seeds/$name" ] && folders+=("fuzz/seeds/$name")
    [ -d "tests/fixtures/$name" ] && folders+=("tests/fixtures/$name")
    printf '==> %s, %s s\n' "$name" "$seconds"
    "build/fuzz/fuzz/$name-fuzz" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/$name-" "${folders[@]}" 2>&1 | grep -E '^(stat::number_of_executed_units|SUMMARY|==|artifact_prefix)' ||
        { echo "FAILED: $name" >&2; exit 1; }
    [ -z "$(find build/fuzz -maxdepth 1 -name "$name-crash-*" -o -maxdepth 1 -name "$name-oom-*" -o -maxdepth 1 -name "$name-timeout-*")" ] ||
        { echo "FAILED: $name found something; see build/fuzz/$name-*" >&2; exit 1; }
done
echo "${#names[@]} passed, 0 failed"
