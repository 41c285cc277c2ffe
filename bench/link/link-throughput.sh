#!/usr/bin/env bash
# link-throughput.sh BUILD_DIR [SECONDS]
#
# What the test network's link carries on this machine, as root:
#   jumbo-cameras   3 emulators at full rate, MTU 9000, Aravis receiving
#   1500-cameras    the same with MTU 1500
#   jumbo-udp       a UDP source offering 150 MB/s of 9000-byte datagrams in
#                   small paced batches (3 emulators idle beside it)
#   1500-udp        a batched UDP source flat out in the camera namespace
#                   (3 emulators idle beside it), received on the host
# One line per scenario: frames and MB/s the link delivered to the host, its
# drops, the MB/s the measured program reported (Aravis received, or UDP sent),
# the link program's CPU in cores and the load average.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$(cd "$1" && pwd)
seconds=${2:-8}
[ "$seconds" -ge 5 ] || { echo "link-throughput: at least 5 seconds" >&2; exit 2; }
export window=$((seconds - 3))
bin=$build/bin
for b in bwm-link bwm-stream-probe bwm-udp-blast gige-emulator; do
  [ -x "$bin/$b" ] || { echo "link-throughput: $bin/$b missing" >&2; exit 1; }
done
[ "$(id -u)" -eq 0 ] || { echo "link-throughput: needs root" >&2; exit 77; }

# Runs inside the network: measures over the window only, from the link's
# counter file, and prints one result line.
measure() {
  local name=$1; shift
  field() { tr ' ' '\n' <"$2" | sed -n "s/^$1=//p"; }
  cpu() { awk '{print $14 + $15}' "/proc/$BWM_NET_LINK_PID/stat"; }
  local out=/tmp/link-measure.$$
  "$@" >"$out" &
  local pid=$!
  # The window leaves out opening the cameras and the last second.
  sleep 2
  cp "$BWM_NET_STATS" "$out.before"
  local c0 t0 c1 t1
  c0=$(cpu); t0=$(date +%s.%N)
  sleep "$window"
  c1=$(cpu); t1=$(date +%s.%N)
  cp "$BWM_NET_STATS" "$out.after"
  wait "$pid"
  local dt frames bytes drops
  calc() { awk "BEGIN { print $1 }"; }
  dt=$(calc "($(field at_ns "$out.after") - $(field at_ns "$out.before")) / 1e9")
  frames=$(( $(field to_host "$out.after") - $(field to_host "$out.before") ))
  bytes=$(( $(field to_host_bytes "$out.after") - $(field to_host_bytes "$out.before") ))
  drops=$(( $(field dropped "$out.after") - $(field dropped "$out.before") ))
  printf 'scenario=%s link_fps=%.0f link_mbytes_per_s=%.1f link_dropped_per_s=%.0f reported_mbytes_per_s=%s link_cpu=%.2f load=%s\n' \
    "$name" "$(calc "$frames / $dt")" "$(calc "$bytes / $dt / 1000000")" \
    "$(calc "$drops / $dt")" \
    "$(sed -n 's/.*mbytes_per_s=\([0-9.]*\).*/\1/p' "$out" | tail -1)" \
    "$(calc "($c1 - $c0) / 100 / ($t1 - $t0)")" "$(cut -d' ' -f1 /proc/loadavg)"
  rm -f "$out" "$out.before" "$out.after"
}
export -f measure

net() {
  local mtu=$1 packet=$2; shift 2
  "$root/scripts/test-network.sh" --build "$build" --emulator "$bin/gige-emulator" \
    --cameras 3 --mtu "$mtu" --camera-args "--packet-size $packet --fps 200" -- "$@" 2>/dev/null
}

net 9000 9000 bash -c "measure jumbo-cameras $bin/bwm-stream-probe --no-resend --seconds $seconds \$BWM_NET_CAMERAS"
net 1500 1500 bash -c "measure 1500-cameras $bin/bwm-stream-probe --no-resend --seconds $seconds \$BWM_NET_CAMERAS"
# The sink runs a little longer than the source so it sees the queue drain.
net 9000 9000 bash -c "
  $bin/bwm-udp-blast recv \$BWM_NET_HOST 5000 --seconds $((seconds + 2)) & sink=\$!
  measure jumbo-udp ip netns exec \$BWM_NET_NS $bin/bwm-udp-blast send \$BWM_NET_HOST 5000 \
    --seconds $seconds --size 8972 --rate-mbps 1200 --batch 4
  wait \$sink"
net 1500 1500 bash -c "
  $bin/bwm-udp-blast recv \$BWM_NET_HOST 5000 --seconds $((seconds + 2)) & sink=\$!
  measure 1500-udp ip netns exec \$BWM_NET_NS $bin/bwm-udp-blast send \$BWM_NET_HOST 5000 \
    --seconds $seconds --size 1472
  wait \$sink"
