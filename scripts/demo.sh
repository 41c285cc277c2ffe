#!/usr/bin/env bash
# demo.sh BUILD_DIR: starts the viewer from BUILD_DIR with the Bandwidth Manager open.
set -euo pipefail
build=$1; shift
viewer="$build/bin/zenta-viewer"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display: running the viewer under xvfb-run." >&2
  exec xvfb-run -a -s "-screen 0 1600x1000x24" "$viewer" --open-bandwidth-manager "$@"
fi
exec "$viewer" --open-bandwidth-manager "$@"
