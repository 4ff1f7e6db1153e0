#!/usr/bin/env bash
# Runs clang-tidy over the sources of the program and its tests (the benchmarks need a release build) that changed since a commit (default: the commit before the last), or over the files named.
# Usage: scripts/lint.sh [COMMIT | FILE...]
set -euo pipefail
cd "$(dirname "$0")/.."

files=()
if [ $# -gt 0 ] && [ -f "$1" ]; then
  files=("$@")
else
  base="${1:-HEAD~1}"
  git rev-parse -q --verify "$base" >/dev/null || { echo "lint: no commit $base; nothing to compare with"; exit 0; }
  mapfile -t files < <(git diff --name-only --diff-filter=d "$base" -- 'src/*.cpp' 'tests/*.cpp')
fi
[ ${#files[@]} -eq 0 ] && { echo "lint: no source changed"; exit 0; }

scripts/setup.sh lint
# clang-tidy reads clang's precompiled headers, not those of the other compiler; generated sources must exist as well.
cmake --preset clang >/dev/null
cmake --build --preset clang --target vorel_pch_core vorel_pch_widgets vorel_pch_test vorel_pch_test_widgets >/dev/null
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/clang --quiet 2>/dev/null
echo "lint: ${#files[@]} files, no findings"
