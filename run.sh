#!/usr/bin/env bash
# Installs what is missing, builds, and runs the viewer with the Bandwidth Manager.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/install-deps.sh
build=${BWM_BUILD_DIR:-build}
./scripts/configure.sh "$build"
cmake --build "$build"
exec ./scripts/demo.sh "$build" "$@"
