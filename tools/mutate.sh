#!/usr/bin/env bash
# Changes one small thing after another in the sources (a comparison, a constant, a condition, a deleted statement, swapped
# arguments), builds what it touches, runs the folder's tests, and lists the changes that no test noticed.
#   tools/mutate.sh [FOLDER…]      folders of those below; all of them when none is named
#     --sample N                   at most N mutants a folder, chosen by the seed; else all
#     --seed N                     another choice
# It works on a copy in build/mutants, so the sources may be edited meanwhile; it says how far it is, and goes on where it
# was interrupted as long as the sources are the same. build/mutants/results.jsonl has every outcome.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/setup.sh

installPackages build run test
installResources
step "Copying and building what the mutants grow from"
copy=build/mutants/source
mkdir -p "$copy"
# Only what differs is written: what is built already stays built.
git ls-files -co --exclude-standard | while read -r file; do
    [ ! -f "$file" ] || cmp -s "$file" "$copy/$file" || cp --parents "$file" "$copy"
done
ln -sfn "$PWD/resources/node_modules" "$copy/resources/node_modules"
cmake -S "$copy" -B build/mutants/build -G Ninja -DBUILD_TESTING=ON -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-O0 -w" -DCMAKE_PROJECT_INCLUDE="$PWD/tools/mutation/headers.cmake" >build/mutants/configure.log 2>&1 || { cat build/mutants/configure.log; fail "cmake could not configure"; }
runtime=$(find -L resources/node_modules/@oven -name bun -type f | head -n 1)
exec "$runtime" tools/mutation/run.ts "$copy" build/mutants "$@"
