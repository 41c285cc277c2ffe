#!/bin/sh
# listing-netns.sh NATIVE_NETCFG NETCFG_EXE PREFIX LOADER SERVER
# A veth with a known MAC, address, prefix and MTU in a network namespace of
# its own, listed by the Windows build under Wine (IP Helper) and by the Linux
# build (rtnetlink), compared field by field. Wine and its server start inside
# the namespace with a prefix of their own, so they see its links only.
set -u
native=$1 exe=$2 prefix=$3 loader=$4 server=$5

if [ -z "${BWM_IN_NETNS:-}" ]; then
  [ -x "$native" ] || { echo "SKIP: no native bwm-netcfg at $native (build the native tree first)"; exit 77; }
  unshare --net --mount true 2>/dev/null || { echo "SKIP: no network namespace can be made here"; exit 77; }
  BWM_IN_NETNS=1 unshare --net --mount "$0" "$@"
  exit $?
fi

mount -t sysfs sysfs /sys || { echo "SKIP: sysfs can't be mounted in the namespace"; exit 77; }
ip link set lo up
ip link add bwwin0 type veth peer name bwwin1 &&
  ip link set bwwin0 address 02:5a:7e:0b:0c:0d mtu 4000 &&
  ip addr add 10.215.7.1/23 dev bwwin0 &&
  ip link set bwwin0 up && ip link set bwwin1 up || { echo "FAIL: the veth couldn't be set up"; exit 1; }
for _ in $(seq 50); do
  [ "$(cat /sys/class/net/bwwin0/operstate)" = up ] && break
  sleep 0.1
done
ifindex=$(cat /sys/class/net/bwwin0/ifindex)

linux=$("$native" list | grep '^name=bwwin0 ')
rm -rf "$prefix"
windows=$(WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= "$loader" "$exe" list 2>/dev/null |
          tr -d '\r' | grep '^name=bwwin0 ')
WINEPREFIX=$prefix "$server" -k 2>/dev/null
rm -rf "$prefix"
echo "Linux:   $linux"
echo "Windows: $windows"

field() { printf '%s\n' "$1" | tr ' ' '\n' | sed -n "s/^$2=//p"; }
failures=0
expect() {   # expect FIELD LINUX_VALUE WINDOWS_VALUE
  if [ "$2" != "$3" ]; then
    echo "FAIL: $1: Linux $2, Windows $3"
    failures=$((failures + 1))
  fi
}
for f in name mac ipv4 mtu; do
  expect "$f" "$(field "$linux" $f)" "$(field "$windows" $f)"
done
expect "known values" "bwwin0 02:5A:7E:0B:0C:0D 10.215.7.1/23 4000" \
  "$(field "$windows" name) $(field "$windows" mac) $(field "$windows" ipv4) $(field "$windows" mtu)"
# The names differ by platform: the interface name there, the {GUID} that Wine makes of its index here.
expect "internal name" "bwwin0 $(printf '{%08X-0000-0000-0000-4E6574446576}' "$ifindex")" \
  "$(field "$linux" internal) $(field "$windows" internal)"
[ "$failures" -eq 0 ] && echo "PASS: the same adapter on both sides"
[ "$failures" -eq 0 ]
