#!/usr/bin/env bash
# Installs what is missing, builds everything with the sanitizers and runs every test; then the
# same for the Windows side, whose tests run under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."

usage="usage: test.sh [--linux-only]
  --linux-only  leaves the Windows side out"
windows=1
for argument in "$@"; do
    case $argument in
        --linux-only) windows= ;;
        --help) echo "$usage"; exit 0 ;;
        *) echo "$usage" >&2; exit 2 ;;
    esac
done

# Failures of one side do not hide those of the other.
status=0
scripts/deps.sh build test ${windows:+windows}
cmake --preset linux-debug >/dev/null
cmake --build --preset linux-debug
ctest --preset linux-debug -j "$(nproc)" || status=1
cmake --preset linux-thread >/dev/null
cmake --build --preset linux-thread
build/linux-thread/bin/threads_tests || status=1

if [ -n "$windows" ]; then
    cmake --preset windows-release >/dev/null
    cmake --build --preset windows-release
    scripts/wine/session.sh build/windows-release \
        ctest --preset windows-release -j "$(nproc)" || status=1
fi
exit "$status"
