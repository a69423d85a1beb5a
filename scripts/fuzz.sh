#!/usr/bin/env bash
# Fuzzes the library: fuzz.sh SECONDS [TARGET ...]
# (targets: formula metafile archive calculation capi control)
# Each target runs SECONDS; what it found beyond the kept corpus is merged into fuzz/corpus/TARGET,
# which the tests replay. A crash leaves its input in build/linux-fuzz/findings and ends non-zero.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:?usage: fuzz.sh SECONDS [TARGET ...]}
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(formula metafile archive calculation capi control)

scripts/deps.sh build test fuzz
cmake --preset linux-fuzz >/dev/null
cmake --build --preset linux-fuzz --target "${targets[@]/%/_fuzz}"

# The file that an input is written to stays in memory.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm

build=build/linux-fuzz
for target in "${targets[@]}"; do
    kept=fuzz/corpus/$target
    work=$build/corpus/$target
    findings=$build/findings/
    mkdir -p "$kept" "$work" "$findings"
    "$build/bin/${target}_fuzz" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
        -max_len=4096 -print_final_stats=1 -use_value_profile=0 \
        -dict="fuzz/$target.dict" -artifact_prefix="$findings$target-" "$work" "$kept" \
        2>&1 | tee "$build/$target.log" | grep -E '^(stat|==|SUMMARY|#.*(DONE|pulse))' || true
    grep -q '^stat::number_of_executed_units' "$build/$target.log"
    ! grep -qE '^(SUMMARY|==[0-9]+== ?ERROR)' "$build/$target.log"

    merged=$build/merged/$target
    rm -rf "$merged"
    mkdir -p "$merged"
    "$build/bin/${target}_fuzz" -merge=1 -max_len=4096 "$merged" "$kept" "$work" >/dev/null 2>&1
    rm -rf "$kept"
    cp -r "$merged" "$kept"
    echo "$target: $(find "$kept" -type f | wc -l) inputs kept"
done
