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

build=${1:-build}
window=${2:-60}
app=$build/bin/brackwater-link
simulator=$build/bin/pump-simulator
for binary in "$app" "$simulator"; do
  [ -x "$binary" ] || { echo "plots-cpu: $binary is not built" >&2; exit 2; }
done

work=$(mktemp -d)
export XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work XDG_CONFIG_HOME=$work QT_QPA_PLATFORM=offscreen
unset BRACKWATER_LINK_PORTS
app_pid=""
cleanup() {
  [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null || true
  [ -n "${SIM_PID:-}" ] && kill -INT "$SIM_PID" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

coproc SIM { exec "$simulator" --pty --no-console --control-input voltage 2>"$work/simulator.log"; }
read -r port <&"${SIM[0]}"

log=$work/app.log
"$app" --port "$port" 2>"$log" &
app_pid=$!

deadline=$(( $(date +%s) + 15 ))
until grep -q "Main screen shown" "$log" 2>/dev/null; do
  if [ "$(date +%s)" -gt "$deadline" ]; then
    echo "plots-cpu: no main screen within 15 s" >&2
    cat "$log" >&2
    exit 1
  fi
  sleep 0.05
done

# The filter data subscribed and both plots filled before measuring.
sleep 5
ticks() { awk '{print $14 + $15}' "/proc/$app_pid/stat"; }
rss_kb() { awk '/^VmRSS:/ {print $2}' "/proc/$app_pid/status"; }
hz=$(getconf CLK_TCK)
rss_start=$(rss_kb)
before=$(ticks)
elapsed=0
while [ "$elapsed" -lt "$window" ]; do
  step=$(( window - elapsed < 60 ? window - elapsed : 60 ))
  sleep "$step"
  elapsed=$(( elapsed + step ))
  if [ "$elapsed" -lt "$window" ]; then
    echo "resident memory after $elapsed s: $(( $(rss_kb) / 1024 )) MiB"
  fi
done
after=$(ticks)
rss_end=$(rss_kb)

awk -v t=$((after - before)) -v hz="$hz" -v w="$window" \
  'BEGIN { printf "CPU, both plots streaming: %.2f %% of one core over %d s (target below 5 %%)\n", 100 * t / hz / w, w }'
echo "resident memory:           $((rss_start / 1024)) MiB at the start, $((rss_end / 1024)) MiB after $window s ($((rss_end - rss_start)) kB more)"
grep -q "keepAliveTimeout" "$log" && echo "keep-alive time-outs seen: $(grep -c keepAliveTimeout "$log")" || true
