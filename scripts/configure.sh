#!/usr/bin/env bash
# configure.sh BUILD_DIR [cmake args...]: configures a Ninja build with ccache.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
dir=$1; shift
cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="${BWM_BUILD_TYPE:-RelWithDebInfo}" "$@" >/dev/null
