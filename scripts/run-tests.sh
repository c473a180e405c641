#!/usr/bin/env bash
# Installs what the tests need, builds, and runs the whole suite headless on a
# private X server with two monitors (scripts/with-test-display.sh).
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh --with-tests

build_dir=${GLIMMORA_BUILD_DIR:-build}
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build_dir"

# Tests write settings and logs into a throw-away home, never the user's.
scratch=$(mktemp -d /tmp/glimmora-tests.XXXXXX)
trap 'rm -rf "$scratch"' EXIT
export XDG_CONFIG_HOME="$scratch/config" XDG_DATA_HOME="$scratch/data" XDG_CACHE_HOME="$scratch/cache"
export XDG_RUNTIME_DIR="$scratch/runtime" && mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"

status=0
ctest --test-dir "$build_dir" -L unit -j 2 --output-on-failure || status=1
bash scripts/with-test-display.sh ctest --test-dir "$build_dir" -L x11 --output-on-failure || status=1
exit $status
