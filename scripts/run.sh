#!/usr/bin/env bash
# Installs what Glimmora needs, builds it and starts it on the current display.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGLIMMORA_BUILD_TESTS=OFF -DGLIMMORA_BUILD_BENCH=OFF
cmake --build build
exec ./build/src/glimmora
