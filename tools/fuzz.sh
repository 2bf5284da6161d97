#!/usr/bin/env bash
# fuzz.sh SECONDS [TARGET…]: runs each fuzz target, or those named, for so long, from its seeds and what it has found before.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=$1
shift

names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for list in build/fuzz/fuzz/*-fuzz.seeds; do
        name=$(basename "$list")
        names+=("${name%-fuzz.seeds}")
    done
fi
failed=()
for name in "${names[@]}"; do
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    mapfile -t seeds <"build/fuzz/fuzz/$name-fuzz.seeds"
    log=build/fuzz/$name.log
    printf '==> %s, %s s: ' "$name" "$seconds"
    if "build/fuzz/fuzz/$name-fuzz" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/$name-" "$corpus" "${seeds[@]}" >"$log" 2>&1; then
        awk '/^stat::number_of_executed_units/ { print $2 " inputs" }' "$log"
    else
        failed+=("$name")
        echo "found something, see $log"
        grep -aE '^(SUMMARY|artifact_prefix|Test unit written)' "$log" || tail -n 5 "$log"
    fi
done
echo "$((${#names[@]} - ${#failed[@]})) passed, ${#failed[@]} failed"
[ ${#failed[@]} -eq 0 ]
