#!/usr/bin/env bash
# Checks the layers and the format, builds everything with warnings as errors under
# AddressSanitizer and UBSan, then runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/check-layers.py
scripts/check-format.sh
build=${BUILD_DIR:-build-test}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTV_WERROR=ON -DTV_SANITIZE=ON
cmake --build "$build" -j2
export TZ=UTC ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --test-dir "$build" -j2 --output-on-failure --timeout 300
