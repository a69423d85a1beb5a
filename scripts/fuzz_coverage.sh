#!/usr/bin/env bash
# Tells which share of the functions in each folder of src the kept corpora reach.
set -euo pipefail
cd "$(dirname "$0")/.."

targets=(formula metafile archive calculation)
scripts/deps.sh build test fuzz
cmake --preset linux-coverage >/dev/null
cmake --build --preset linux-coverage --target "${targets[@]/%/_replay}"

build=build/linux-coverage
objects=()
for target in "${targets[@]}"; do
    LLVM_PROFILE_FILE=$build/$target.profraw "$build/bin/${target}_replay" "fuzz/corpus/$target"
    objects+=(-object "$build/bin/${target}_replay")
done
llvm-profdata merge -o $build/all.profdata $build/*.profraw

llvm-cov export -summary-only -instr-profile=$build/all.profdata "${objects[@]}" |
    /usr/bin/python3 -c '
import collections, json, sys
folders = collections.defaultdict(lambda: [0, 0])
for file in json.load(sys.stdin)["data"][0]["files"]:
    path = file["filename"].partition("/src/")[2]
    if not path:
        continue
    folder = path.rpartition("/")[0]
    counts = file["summary"]["functions"]
    folders[folder][0] += counts["covered"]
    folders[folder][1] += counts["count"]
for folder, (covered, count) in sorted(folders.items()):
    print(f"{folder:24} {covered:5} of {count:5} functions  {100 * covered / count:5.1f} %")
'
