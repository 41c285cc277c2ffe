#!/usr/bin/env bash
# Installs what is missing, builds everything and runs the tests.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/install-deps.sh
build=${BWM_BUILD_DIR:-build}
./scripts/configure.sh "$build" "$@"
cmake --build "$build"
# Tests labelled "stress" load a link to its limit and fail on a busy machine;
# they run on their own with: ctest --test-dir build -L stress
ctest --test-dir "$build" -j2 --output-on-failure -LE stress
# The parsers of untrusted driver values and addresses under libFuzzer.
./scripts/fuzz.sh "${BWM_FUZZ_RUNS:-1000000}"
