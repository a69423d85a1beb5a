#!/usr/bin/env bash
# Installs what is missing, builds everything with the sanitizers, runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh build test
cmake --preset linux-debug >/dev/null
cmake --build --preset linux-debug
ctest --preset linux-debug -j "$(nproc)"
