#!/usr/bin/env bash
# run-on-test-network.sh BUILD MTU LINK_MBPS COMMAND [ARGS...]
#
# Runs COMMAND on scripts/test-network.sh with three cameras, inside a network
# namespace of its own: an optimisation that accepts the GigE offer serves
# every GigE camera it sees, and must see none but its own.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../../.." && pwd)
build=$1 mtu=$2 mbps=$3
shift 3

if [ "$(id -u)" -ne 0 ]; then
  echo "skipped: the test network needs root to make namespaces" >&2
  exit 77
fi
if ! unshare --net true 2>/dev/null; then
  echo "skipped: no network namespace can be made here" >&2
  exit 77
fi

# Frames of 640x480 at 15 fps (1500) or 1024x768 at 6 fps (9000): about 4.6 or
# 4.7 MB/s per camera, so that three offer 10 to 15 % more than 100 Mbit/s carries.
# Without resends: a camera that resends what the full queue dropped adds to the
# overload until the link carries mostly resends and the cameras' control
# answers are lost with them.
# At 1000 Mbit/s with jumbo frames, 1920x1200 at 20 fps: 46 MB/s per camera.
if [ "$mtu" -le 1500 ]; then frame="--width 640 --height 480 --fps 15 --no-resend"
elif [ "$mbps" -ge 1000 ]; then frame="--width 1920 --height 1200 --fps 20 --no-resend"
else frame="--width 1024 --height 768 --fps 6 --no-resend"; fi

export BWM_E2E_MTU=$mtu BWM_E2E_LINK_MBPS=$mbps
exec unshare --net -- bash -c 'ip link set lo up && exec "$@"' bash \
  "$root/scripts/test-network.sh" --build "$build" --cameras 3 --mtu "$mtu" \
  --link-mbps "$mbps" --camera-mbps "$mbps" --camera-nice -5 --camera-args "$frame" -- "$@"
