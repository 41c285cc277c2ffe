#!/usr/bin/env bash
# test-network.sh [options] [-- COMMAND [ARGS...]]
#
# Builds N emulated GigE cameras behind one link of a set speed, runs COMMAND
# (or waits for Ctrl+C), and removes everything again, also on failure:
#
#   root namespace: tap <t> = the host adapter, 10.204.S.1/24, speed set
#   bwm-link:       frames between <t> and veth end <h>, drop-tail queue
#                   drained at the link rate towards the host
#   namespace <ns>: veth end <c> with 10.204.S.11, .12, ... one emulator each
#
# Needs root (CAP_NET_ADMIN). COMMAND sees BWM_NET_TAP, BWM_NET_HOST,
# BWM_NET_CAMERAS (space-separated), BWM_NET_NS, BWM_NET_STATS (the link
# program's counters, rewritten every 0.2 s), BWM_NET_LINK_PID and
# BWM_NET_CAMERA_PIDS (space-separated, in the order of BWM_NET_CAMERAS).
#
# Options:
#   --cameras N          cameras (3)
#   --mtu M              MTU of every link: tap and both veth ends (1500)
#   --host-mtu M         MTU of the tap alone, the host's adapter (as --mtu)
#   --link-mbps N        tap speed and link rate (1000)
#   --camera-mbps N      each emulator's own link speed (1000)
#   --queue-bytes N      switch buffer (262144)
#   --build DIR          build folder holding bin/bwm-link (build)
#   --emulator PATH      camera program (DIR/bin/gige-emulator, else
#                        arv-fake-gv-camera-0.8)
#   --camera-args "A"    more options for every emulator (word-split)
#   --camera-args-for I "A"  more options for camera I only (1-based), after
#                        the common ones; repeatable
#   --serial-prefix P    camera serials P0001, P0002, ... (NET); two networks
#                        side by side need different prefixes
#   --env-file PATH      also write the BWM_NET_* values there
#   --log-dir DIR        keep the programs' output there (a temporary folder)
#   --camera-nice N      run the emulators at this niceness (0); negative values
#                        keep other work on the machine from bunching their packets
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cameras=3 mtu=1500 link_mbps=1000 camera_mbps=1000 queue_bytes=262144
build=$root/build emulator="" camera_args="" env_file="" log_dir="" camera_nice=0 serial_prefix=NET
declare -A camera_args_for=()

usage() { sed -n '2,/^set -euo/p' "${BASH_SOURCE[0]}" | sed '$d; s/^# \{0,1\}//'; }
die() { echo "test-network: $*" >&2; exit 2; }

while [ $# -gt 0 ]; do
  case $1 in
    --cameras) cameras=$2; shift 2 ;;
    --mtu) mtu=$2; shift 2 ;;
    --host-mtu) host_mtu=$2; shift 2 ;;
    --link-mbps) link_mbps=$2; shift 2 ;;
    --camera-mbps) camera_mbps=$2; shift 2 ;;
    --queue-bytes) queue_bytes=$2; shift 2 ;;
    --build) build=$2; shift 2 ;;
    --emulator) emulator=$2; shift 2 ;;
    --camera-args) camera_args=$2; shift 2 ;;
    --camera-args-for) camera_args_for[$2]=$3; shift 3 ;;
    --serial-prefix) serial_prefix=$2; shift 2 ;;
    --env-file) env_file=$2; shift 2 ;;
    --log-dir) log_dir=$2; shift 2 ;;
    --camera-nice) camera_nice=$2; shift 2 ;;
    -h|--help) usage; exit 0 ;;
    --) shift; break ;;
    *) die "unknown option $1 (see --help)" ;;
  esac
done
for n in "$cameras" "$mtu" "$link_mbps" "$camera_mbps" "$queue_bytes"; do
  [[ $n =~ ^[1-9][0-9]*$ ]] || die "not a positive number: $n"
done
[ "$cameras" -le 40 ] || die "at most 40 cameras"
[[ $camera_nice =~ ^-?[0-9]+$ ]] || die "not a niceness: $camera_nice"
[ "$(id -u)" -eq 0 ] || die "needs root to create namespaces, veth and tap"

link_bin=$build/bin/bwm-link
[ -x "$link_bin" ] || die "$link_bin is missing: build the target bwm-link"
if [ -z "$emulator" ]; then
  if [ -x "$build/bin/gige-emulator" ]; then emulator=$build/bin/gige-emulator
  else emulator=$(command -v arv-fake-gv-camera-0.8) || die "no camera program"; fi
fi

id=$$
ns=bwmnet$id tap=bwt$id host_end=bwh$id cam_end=bwc$id
own_log_dir=0
if [ -z "$log_dir" ]; then log_dir=$(mktemp -d /tmp/bwm-net.XXXXXX); own_log_dir=1; fi
mkdir -p "$log_dir"
stats=$log_dir/link.stats
link_pid="" command_pid="" camera_pids=()

cleanup() {
  local rc=$?
  trap - EXIT INT TERM
  [ -n "$command_pid" ] && kill "$command_pid" 2>/dev/null && wait "$command_pid" 2>/dev/null
  for pid in "${camera_pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${camera_pids[@]}"; do
    for _ in $(seq 20); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
    kill -KILL "$pid" 2>/dev/null || true
  done
  if [ -n "$link_pid" ] && kill "$link_pid" 2>/dev/null; then
    wait "$link_pid" 2>/dev/null || true
    echo "test-network: link counters: $(cat "$log_dir/link.out" 2>/dev/null)" >&2
  fi
  ip netns del "$ns" 2>/dev/null || true
  ip link del "$host_end" 2>/dev/null || true
  ip link del "$tap" 2>/dev/null || true
  [ "$own_log_dir" = 1 ] && rm -rf "$log_dir"
  exit "$rc"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# A /24 that no interface uses yet, so parallel runs do not share a route.
subnet=""
for i in $(seq 0 249); do
  candidate=10.204.$(( (id + i) % 250 + 1 ))
  if ! ip -4 -o addr show | grep -q " ${candidate//./\\.}\."; then subnet=$candidate; break; fi
done
[ -n "$subnet" ] || die "no free /24 in 10.204.0.0/16"
host_ip=$subnet.1

quiet() { "$@" >/dev/null 2>&1; }

ip netns add "$ns" || { echo "test-network: cannot create a network namespace" >&2; exit 77; }
ip -n "$ns" link set lo up

ip tuntap add dev "$tap" mode tap
ip link set "$tap" mtu "${host_mtu:-$mtu}"
quiet sysctl -w "net.ipv6.conf.$tap.disable_ipv6=1" || true
ethtool -s "$tap" speed "$link_mbps" duplex full autoneg off
ip addr add "$host_ip/24" brd + dev "$tap"
ip link set "$tap" up

ip link add "$host_end" mtu "$mtu" type veth peer name "$cam_end" mtu "$mtu"
ip link set "$cam_end" netns "$ns"
# The host end only feeds the link program: it must not answer ARP for the
# host address, or the cameras would bypass the link.
ip link set "$host_end" arp off
quiet sysctl -w "net.ipv6.conf.$host_end.disable_ipv6=1" || true
# Captured frames may carry an unfinished UDP checksum; the host drops those.
ethtool -K "$host_end" tx off >/dev/null
ip netns exec "$ns" ethtool -K "$cam_end" tx off >/dev/null
ip link set "$host_end" up

camera_ips=()
for i in $(seq 1 "$cameras"); do
  addr=$subnet.$((10 + i))
  camera_ips+=("$addr")
  ip -n "$ns" addr add "$addr/24" brd + dev "$cam_end"
done
quiet ip netns exec "$ns" sysctl -w "net.ipv6.conf.$cam_end.disable_ipv6=1" || true
ip -n "$ns" link set "$cam_end" up

# The link stands for switch hardware: it should not wait behind the cameras.
nice -n -10 "$link_bin" --tap "$tap" --veth "$host_end" --rate-mbps "$link_mbps" \
  --queue-bytes "$queue_bytes" --stats-file "$stats" \
  >"$log_dir/link.out" 2>"$log_dir/link.err" &
link_pid=$!
for _ in $(seq 50); do
  [ "$(cat "/sys/class/net/$tap/carrier" 2>/dev/null)" = 1 ] && [ -s "$stats" ] && break
  kill -0 "$link_pid" 2>/dev/null || die "link program failed: $(cat "$log_dir/link.err")"
  sleep 0.1
done

i=0
for addr in "${camera_ips[@]}"; do
  i=$((i + 1))
  serial=$(printf '%s%04d' "$serial_prefix" "$i")
  # shellcheck disable=SC2086
  case $(basename "$emulator") in
    arv-fake-gv-camera*) cmd=("$emulator" -i "$addr" -s "$serial") ;;
    *) cmd=("$emulator" --address "$addr" --serial "$serial" --user-id "cam$i"
            --link-mbps "$camera_mbps" $camera_args ${camera_args_for[$i]:-}) ;;
  esac
  nice -n "$camera_nice" ip netns exec "$ns" "${cmd[@]}" >"$log_dir/camera$i.log" 2>&1 &
  camera_pids+=($!)
done
# Ready once every camera listens on its control port.
for _ in $(seq 50); do
  listening=$(ip netns exec "$ns" ss -Huln 2>/dev/null | grep -c ':3956 ' || true)
  [ "$listening" -ge "$cameras" ] && break
  sleep 0.1
done
for idx in "${!camera_pids[@]}"; do
  kill -0 "${camera_pids[$idx]}" 2>/dev/null ||
    die "camera $((idx + 1)) exited: $(tail -3 "$log_dir/camera$((idx + 1)).log")"
done

export BWM_NET_TAP=$tap BWM_NET_HOST=$host_ip BWM_NET_CAMERAS="${camera_ips[*]}"
export BWM_NET_NS=$ns BWM_NET_STATS=$stats BWM_NET_LINK_PID=$link_pid BWM_NET_CAMERA_PIDS="${camera_pids[*]}"
if [ -n "$env_file" ]; then
  {
    for v in BWM_NET_TAP BWM_NET_HOST BWM_NET_CAMERAS BWM_NET_NS BWM_NET_STATS BWM_NET_LINK_PID BWM_NET_CAMERA_PIDS; do
      printf '%s=%q\n' "$v" "${!v}"
    done
  } >"$env_file.tmp"
  mv "$env_file.tmp" "$env_file"
fi
echo "test-network: ${cameras} camera(s) ${camera_ips[*]} behind $tap ($host_ip," \
  "${link_mbps} Mb/s, MTU $mtu); counters in $stats" >&2

if [ $# -gt 0 ]; then
  "$@" &
  command_pid=$!
  set +e
  wait "$command_pid"
  rc=$?
  set -e
  command_pid=""
  exit "$rc"
fi
echo "test-network: up; Ctrl+C or SIGTERM removes it" >&2
while :; do sleep 1 & wait $!; done
