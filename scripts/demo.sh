#!/usr/bin/env bash
# Builds the console and starts it on the embedded demo inventory (made on first run).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
build=${BUILD_DIR:-build}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTV_TESTS=OFF -DTV_BENCH=OFF >/dev/null
cmake --build "$build" -j2 --target trellisview
exec "$build/trellisview" "$@"
