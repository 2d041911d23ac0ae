#!/usr/bin/env bash
# Builds the libFuzzer targets (in the `sanitize-all` preset: clang, address and
# undefined-behaviour sanitizers, coverage instrumentation) and runs each fuzz_<name> executable
# for a bounded time, starting from a copy of its seed corpus fuzz/corpus/<name>/ under
# build/sanitize-all/corpus-work/ (the repository is never
# written to). Fails when any target crashes, leaks or breaks one of its checks.
#
# Usage: tools/run-fuzz.sh [seconds-per-target]   (default 30)
set -euo pipefail

seconds="${1:-30}"
if ! [[ "$seconds" =~ ^[0-9]+$ ]] || [ "$seconds" -eq 0 ]; then
  echo "usage: $0 [seconds-per-target]" >&2
  exit 2
fi

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root"
build="$root/build/sanitize-all"

cmake --preset sanitize-all
cmake --build --preset sanitize-all --target fuzz_all

mapfile -t targets < <(find "$build" \( -path "$build/corpus-work" -o -name CMakeFiles \) -prune -o \
  -type f -name 'fuzz_*' -perm -u+x -print | sort)
if [ ${#targets[@]} -eq 0 ]; then
  echo "run-fuzz: no fuzz targets were built" >&2
  exit 1
fi

work="$build/corpus-work"
failed=0
summary=()
for target in "${targets[@]}"; do
  name="$(basename "$target")"
  seeds="$root/fuzz/corpus/${name#fuzz_}"
  corpus="$work/${name#fuzz_}"
  artifacts="$work/artifacts/$name"
  rm -rf "$corpus" "$artifacts"
  mkdir -p "$corpus" "$artifacts"
  if [ -d "$seeds" ]; then
    cp -R "$seeds/." "$corpus/"
  else
    echo "run-fuzz: $name has no seed corpus in fuzz/corpus/${name#fuzz_}/; starting empty"
  fi
  log="$work/$name.log"
  echo "run-fuzz: $name for ${seconds}s (log: $log)"
  status=0
  "$target" -max_total_time="$seconds" -print_final_stats=1 \
    -artifact_prefix="$artifacts/" "$corpus" >"$log" 2>&1 || status=$?
  runs="$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$' || true)"
  units="$(find "$corpus" -type f | wc -l)"
  if [ "$status" -eq 0 ]; then
    summary+=("PASS $name: ${runs:-?} runs in ${seconds}s, corpus $units inputs")
  else
    failed=1
    summary+=("FAIL $name: exit $status, see $log and $artifacts")
    grep -m 5 -E 'ERROR|FUZZ_CHECK|runtime error' "$log" || true
  fi
done

echo
for line in "${summary[@]}"; do
  echo "run-fuzz: $line"
done
exit "$failed"
