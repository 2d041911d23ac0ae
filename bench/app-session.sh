#!/usr/bin/env bash
# Measures the application against the pump simulator on a pseudo-terminal, offscreen:
#   - time from process start to the session being connected ("Connected.");
#   - time from process start to the main screen shown;
#   - CPU of the whole process over a window (default 30 s) with the main screen up and the
#     status panel streaming its readings;
#   - resident memory then.
# Usage: bench/app-session.sh [build-dir] [seconds]
# Needs brackwater-link and pump-simulator built in <build-dir>/bin (Linux: reads /proc).
set -euo pipefail

window=${2:-30}
# shellcheck source=bench/app-bench.sh
source "$(dirname "$0")/app-bench.sh"
bench_setup app-session "${1:-build}"
bench_start_simulator

started=$(bench_now_ms)
bench_start_app
# "Connected." is emitted with the session-started log line.
bench_wait_for "protocolObject_SessionStarted" 10000
connected=$(bench_now_ms)
bench_wait_for "Main screen shown" 10000
main_screen=$(bench_now_ms)

# Let the subscriptions settle before measuring the streaming state.
sleep 3
hz=$(getconf CLK_TCK)
before=$(bench_ticks)
sleep "$window"
after=$(bench_ticks)
rss_kb=$(bench_rss_kb)
threads=$(awk '/^Threads:/ {print $2}' "/proc/$app_pid/status")
pings=$(grep -c "keepAliveTimeout" "$log" || true)

echo "start to Connected.:        $((connected - started)) ms"
echo "start to main screen shown: $((main_screen - started)) ms (target below 2500 ms)"
awk -v t=$((after - before)) -v hz="$hz" -v w="$window" \
  'BEGIN { printf "CPU, main screen streaming: %.2f %% of one core over %d s (target below 3 %%)\n", 100 * t / hz / w, w }'
echo "resident memory:            $((rss_kb / 1024)) MiB ($rss_kb kB), $threads threads (target below 150 MB)"
echo "keep-alive time-outs seen:  $pings"
