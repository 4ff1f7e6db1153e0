#!/usr/bin/env bash
# Fuzzes one target: scripts/fuzz.sh TARGET [SECONDS]. What it finds lies in build/fuzz/found/TARGET.
set -euo pipefail
cd "$(dirname "$0")/.."
target=$1 seconds=${2:-300}
scripts/setup.sh fuzz
cmake --preset fuzz && cmake --build --preset fuzz --target "fuzz_$target"
work=build/fuzz/work/$target found=build/fuzz/found/$target seeds=build/fuzz/seeds
mkdir -p "$work" "$found"
[ -d "$seeds" ] || python3 fuzz/make_seeds.py . "$seeds"
words=(); [ -f "fuzz/dict/$target.dict" ] && words=(-dict="fuzz/dict/$target.dict")
ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1 UBSAN_OPTIONS=print_stacktrace=1 \
  exec build/fuzz/fuzz_"$target" -fork=1 -ignore_crashes=1 -timeout=8 -rss_limit_mb=3000 -max_len=9000 "${words[@]}" \
  -max_total_time="$seconds" -artifact_prefix="$found/" "$work" "$seeds/$target"
