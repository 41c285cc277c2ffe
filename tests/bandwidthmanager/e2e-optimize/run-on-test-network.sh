#!/usr/bin/env bash
# run-on-test-network.sh BUILD MTU LINK_MBPS COMMAND [ARGS...]
#
# Runs COMMAND on scripts/test-network.sh inside a network namespace of its
# own: an optimisation that accepts the GigE offer serves every GigE camera it
# sees, and must see none but its own. BWM_E2E_SCENARIO picks the cameras:
#   three     three equal cameras that together overload the link (default)
#   mixed     one slow camera far below an equal share and three fast ones,
#             together well over the link; the last is the fastest, so that it
#             is served last. Control answers take 0.5 ms, as on real cameras.
#   twolinks  link A as in "three", and a second link B under its capacity with
#             two cameras; B's values come as BWM_NET_B_*.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../../.." && pwd)
build=$1 mtu=$2 mbps=$3
shift 3
scenario=${BWM_E2E_SCENARIO:-three}

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

net=("$root/scripts/test-network.sh" --build "$build" --mtu "$mtu" --link-mbps "$mbps" --camera-mbps "$mbps"
     --camera-nice -5)
# The host's adapter smaller than the cameras' links: BWM_E2E_HOST_MTU.
[ -n "${BWM_E2E_HOST_MTU:-}" ] && net+=(--host-mtu "$BWM_E2E_HOST_MTU")
case $scenario in
  three) net+=(--cameras 3 --camera-args "$frame") ;;
  # 1024x768 at 2 fps is 1.6 MB/s (an equal share of 90 % of 100 Mbit/s is
  # 2.8); with three cameras of 4.7 to 5.0 MB/s the link is offered 16 MB/s.
  mixed) net+=(--cameras 4 --camera-args "--width 640 --height 480 --fps 15 --no-resend --gvcp-latency-us 500"
               --camera-args-for 1 "--width 1024 --height 768 --fps 2"
               --camera-args-for 4 "--fps 16") ;;
  twolinks) ;;
  *) echo "unknown BWM_E2E_SCENARIO $scenario" >&2; exit 2 ;;
esac

export BWM_E2E_MTU=$mtu BWM_E2E_LINK_MBPS=$mbps
if [ "$scenario" = twolinks ]; then
  # Link B is made inside link A's run: A's values are kept as A_*, then B's
  # move to BWM_NET_B_* and A's come back to BWM_NET_*.
  under="--width 640 --height 480 --fps 5 --no-resend"
  inner=("$root/scripts/test-network.sh" --build "$build" --mtu "$mtu" --link-mbps "$mbps" --camera-mbps "$mbps"
         --camera-nice -5 --cameras 2 --serial-prefix NTB --camera-args "$under" --
         bash -c 'for v in HOST CAMERAS CAMERA_PIDS STATS TAP; do
                    a=A_$v b=BWM_NET_$v; export "BWM_NET_B_$v=${!b}" "BWM_NET_$v=${!a}"
                  done; exec "$@"' bash "$@")
  exec unshare --net -- bash -c 'ip link set lo up && exec "$@"' bash \
    "${net[@]}" --cameras 3 --camera-args "$frame" -- \
    bash -c 'for v in HOST CAMERAS CAMERA_PIDS STATS TAP; do b=BWM_NET_$v; export "A_$v=${!b}"; done
             exec "$@"' bash "${inner[@]}"
fi
exec unshare --net -- bash -c 'ip link set lo up && exec "$@"' bash "${net[@]}" -- "$@"
