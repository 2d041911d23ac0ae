#!/usr/bin/env bash
# Measures the application with both live plots streaming, offscreen, against the pump simulator
# on a pseudo-terminal: the simulator powers up in voltage control, so the control tab shows the
# speed plot and the filter plot with the analog filter data streaming every 30 ms.
#   - CPU of the whole process over a window (default 60 s; target below 5 % of one core);
#   - resident memory at the start of the window, once a minute, and at its end (a long window,
#     say 600 s, shows whether it stays flat).
# Usage: bench/plots-cpu.sh [build-dir] [seconds]
# Needs brackwater-link and pump-simulator built in <build-dir>/bin (Linux: reads /proc).
set -euo pipefail

window=${2:-60}
# shellcheck source=bench/app-bench.sh
source "$(dirname "$0")/app-bench.sh"
bench_setup plots-cpu "${1:-build}"
bench_start_simulator --control-input voltage
bench_start_app
bench_wait_for "Main screen shown" 15000

# The filter data subscribed and both plots filled before measuring.
sleep 5
hz=$(getconf CLK_TCK)
rss_start=$(bench_rss_kb)
before=$(bench_ticks)
elapsed=0
while [ "$elapsed" -lt "$window" ]; do
  step=$(( window - elapsed < 60 ? window - elapsed : 60 ))
  sleep "$step"
  elapsed=$(( elapsed + step ))
  if [ "$elapsed" -lt "$window" ]; then
    echo "resident memory after $elapsed s: $(( $(bench_rss_kb) / 1024 )) MiB"
  fi
done
after=$(bench_ticks)
rss_end=$(bench_rss_kb)

awk -v t=$((after - before)) -v hz="$hz" -v w="$window" \
  'BEGIN { printf "CPU, both plots streaming: %.2f %% of one core over %d s (target below 5 %%)\n", 100 * t / hz / w, w }'
echo "resident memory:           $((rss_start / 1024)) MiB at the start, $((rss_end / 1024)) MiB after $window s ($((rss_end - rss_start)) kB more)"
grep -q "keepAliveTimeout" "$log" && echo "keep-alive time-outs seen: $(grep -c keepAliveTimeout "$log")" || true
