#!/usr/bin/env bash
# Soak: the application with its main screen up and the status panel streaming, against the pump
# simulator losing a share of the frames each way, for a given time. Every minute it prints the
# resident memory, the CPU of that minute, and the reconnects, retries and time-outs so far; at
# the end the memory growth after the first minute and every log line at warning level or above
# that a lost frame does not explain.
# Usage: bench/soak.sh [build-dir] [minutes] [drop-rate] [simulator options...]
#   bench/soak.sh build/default 60 0.005
#   bench/soak.sh build/default 60 0.005 --control-input voltage   (both live plots streaming)
# Needs brackwater-link and pump-simulator built in <build-dir>/bin (Linux: reads /proc).
set -euo pipefail

minutes=${2:-60}
drop=${3:-0.005}
# shellcheck source=bench/app-bench.sh
source "$(dirname "$0")/app-bench.sh"
bench_setup soak "${1:-build/default}"
bench_start_simulator --seed 1 --drop-in "$drop" --drop-out "$drop" "${@:4}"
bench_start_app
bench_wait_for "Main screen shown" 10000

hz=$(getconf CLK_TCK)
count() { grep -c -- "$1" "$log" || true; }

echo "soak: ${minutes} min, ${drop} of the frames dropped each way, port $port"
printf '%6s %12s %8s %10s %8s %9s\n' minute "rss kB" "cpu %" reconnects retries timeouts
first_minute_rss=""
for minute in $(seq "$minutes"); do
  before=$(bench_ticks)
  sleep 60
  kill -0 "$app_pid" 2>/dev/null || { echo "soak: the application exited" >&2; exit 1; }
  after=$(bench_ticks)
  rss=$(bench_rss_kb)
  [ -n "$first_minute_rss" ] || first_minute_rss=$rss
  sessions=$(count "protocolObject_SessionStarted -")
  awk -v m="$minute" -v r="$rss" -v t=$((after - before)) -v hz="$hz" \
    -v c=$((sessions - 1)) -v re="$(count "retrying")" -v to="$(count "no response, abort")" \
    'BEGIN { printf "%6d %12d %8.2f %10d %8d %9d\n", m, r, 100 * t / hz / 60, c, re, to }'
done

echo "memory growth after the first minute: $((rss - first_minute_rss)) kB (target below 1024 kB)"
# Expected at warning level: no translation for the system's language (English is the source
# language), and what a lost frame leads to when a request runs out of retries.
expected='translator failed to load|no response'
unexplained=$(grep -E " (WARN|ERROR|FATAL) " "$log" | grep -Ev "$expected" || true)
if [ -n "$unexplained" ]; then
  echo "warnings a lost frame does not explain:"
  echo "$unexplained" | cut -c1-240 | sort | uniq -c | sort -rn | head -40
else
  echo "warnings a lost frame does not explain: none"
fi
echo "warning lines in all: $(grep -cE " (WARN|ERROR|FATAL) " "$log" || true)"
