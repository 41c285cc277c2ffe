#!/usr/bin/env bash
# Installs what is missing, builds everything and runs the tests.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/install-deps.sh
build=${BWM_BUILD_DIR:-build}
./scripts/configure.sh "$build" "$@"
cmake --build "$build"
ctest --test-dir "$build" -j2 --output-on-failure -LE "netns|camera"
# Emulated cameras and kernel links on a shared 2-core machine: a test that
# fails is run once more, its first failure printed above the second run.
ctest --test-dir "$build" -j2 --output-on-failure -L "netns|camera" --repeat until-pass:2
# The network layer cross-built for Windows; its tests run under Wine (label wine).
win=${BWM_WIN_BUILD_DIR:-build-win}
./scripts/configure-win.sh "$win" "$build"
cmake --build "$win"
ctest --test-dir "$win" -L wine -j2 --output-on-failure
# The parsers of untrusted driver values and addresses under libFuzzer.
./scripts/fuzz.sh "${BWM_FUZZ_RUNS:-1000000}"
