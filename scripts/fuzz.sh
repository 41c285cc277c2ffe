#!/usr/bin/env bash
# fuzz.sh [RUNS]: builds the libFuzzer targets with clang in build-fuzz and runs
# each for RUNS inputs (default 1000000) from an empty corpus.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
runs=${1:-1000000}
build="$root/build-fuzz"
"$root/scripts/configure.sh" "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DBWM_FUZZ=ON
cmake --build "$build" --target cfgapi_fuzz
corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
start=$(date +%s)
status=0
"$build/bin/cfgapi_fuzz" -runs="$runs" -max_len=256 -print_final_stats=1 "$corpus" >"$corpus.log" 2>&1 || status=$?
grep -E '^(Done|stat::number_of_executed_units)|ERROR|deadly|crash' "$corpus.log" || true
[ "$status" -eq 0 ] || tail -n 40 "$corpus.log"
rm -f "$corpus.log"
echo "cfgapi_fuzz: $runs inputs in $(( $(date +%s) - start )) s, exit $status"
exit "$status"
