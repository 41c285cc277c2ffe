#!/usr/bin/env bash
# configure-win.sh BUILD_DIR [NATIVE_BUILD_DIR] [cmake args...]: the network layer
# cross-built for Windows with mingw-w64; its tests run under Wine.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
dir=$1; shift
native=${1:-build}; [ $# -gt 0 ] && shift
case $native in /*) ;; *) native=$root/$native ;; esac
cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="${BWM_BUILD_TYPE:-RelWithDebInfo}" \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-mingw64.cmake" \
  -DBWM_NATIVE_NETCFG="$native/bin/bwm-netcfg" "$@" >/dev/null
