#!/usr/bin/env bash
# demo.sh BUILD_DIR [--network] [viewer args...]
#
# Starts three emulated GigE cameras and the viewer from BUILD_DIR with the
# Bandwidth Manager open; the cameras stop when the viewer exits.
#   default    cameras on 127.0.0.2, .3 and .4: no privilege needed, nothing
#              on the machine changes
#   --network  (root) cameras in a network namespace behind one emulated
#              1 Gbit/s link (scripts/test-network.sh), together sending more
#              than the link carries; the network is removed afterwards
# BWM_DEMO_MTU sets the MTU of the test network's links (1500).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$1; shift
network=0 viewer_only=0
case ${1:-} in
  --network) network=1; shift ;;
  --viewer-only) viewer_only=1; shift ;;  # inside the test network
esac
build=$(cd "$build" && pwd)
viewer="$build/bin/zenta-viewer"
[ -x "$viewer" ] || { echo "demo: $viewer is missing; build it first" >&2; exit 1; }

if [ -x "$build/bin/gige-emulator" ]; then
  emulator=$build/bin/gige-emulator
else
  emulator=$(command -v arv-fake-gv-camera-0.8) ||
    { echo "demo: no camera emulator in $build/bin and no arv-fake-gv-camera-0.8" >&2; exit 1; }
  echo "demo: $build/bin/gige-emulator not built; using $emulator" >&2
fi

# The viewer runs in a process group of its own, so that stopping the demo
# also stops xvfb-run's server and the viewer under it.
viewer_pid=""
stop_viewer() {
  if [ -n "$viewer_pid" ]; then
    # The second kill covers a viewer stopped before setsid made its group.
    kill -- "-$viewer_pid" 2>/dev/null || kill "$viewer_pid" 2>/dev/null || true
  fi
  viewer_pid=""
  return 0
}
run_viewer() {
  if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "No display: running the viewer under xvfb-run." >&2
    setsid xvfb-run -a -s "-screen 0 1600x1000x24" "$viewer" --open-bandwidth-manager "$@" &
  else
    setsid "$viewer" --open-bandwidth-manager "$@" &
  fi
  viewer_pid=$!
  local rc=0
  wait "$viewer_pid" || rc=$?
  viewer_pid=""
  return "$rc"
}

if [ "$viewer_only" = 1 ]; then
  trap stop_viewer EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
  export BWM_CAMERAS=${BWM_NET_CAMERAS:-}
  run_viewer "$@"
  exit
fi

if [ "$network" = 1 ]; then
  [ "$(id -u)" -eq 0 ] || { echo "demo: --network needs root" >&2; exit 1; }
  # Three cameras at their default 30 fps of 1920x1200 Mono8 offer about
  # 210 MB/s to a link of 125 MB/s.
  exec "$root/scripts/test-network.sh" --build "$build" --emulator "$emulator" \
    --cameras 3 --mtu "${BWM_DEMO_MTU:-1500}" --link-mbps 1000 \
    -- "$root/scripts/demo.sh" "$build" --viewer-only "$@"
fi

pids=() log_dir=""
stop_cameras() {
  local rc=$?
  stop_viewer
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  # The cameras' logs are kept only when something went wrong.
  case $rc in 0|130|143) [ -n "$log_dir" ] && rm -rf "$log_dir" ;; esac
  exit "$rc"
}
trap stop_cameras EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

log_dir=$(mktemp -d /tmp/bwm-demo.XXXXXX)
addresses=(127.0.0.2 127.0.0.3 127.0.0.4)
# Aravis' fake camera binds only to an interface's own address: one camera.
case $(basename "$emulator") in arv-fake-gv-camera*) addresses=(127.0.0.1) ;; esac
models=("1920 1200" "1280 1024" "2448 2048")
for i in "${!addresses[@]}"; do
  addr=${addresses[$i]} serial=$(printf 'EMU%04d' $((i + 1)))
  read -r width height <<<"${models[$i]}"
  case $(basename "$emulator") in
    arv-fake-gv-camera*) cmd=("$emulator" -i "$addr" -s "$serial") ;;
    *) cmd=("$emulator" --address "$addr" --serial "$serial" --user-id "demo$((i + 1))"
            --width "$width" --height "$height") ;;
  esac
  "${cmd[@]}" >"$log_dir/camera$((i + 1)).log" 2>&1 &
  pids+=($!)
done
sleep 0.5
for i in "${!addresses[@]}"; do
  kill -0 "${pids[$i]}" 2>/dev/null || {
    echo "demo: camera on ${addresses[$i]} exited:" >&2
    tail -5 "$log_dir/camera$((i + 1)).log" >&2
    exit 1
  }
done
echo "demo: cameras on ${addresses[*]} (logs in $log_dir)" >&2
export BWM_CAMERAS="${addresses[*]}"
run_viewer "$@"
