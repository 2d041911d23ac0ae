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

build=${1:-build}
window=${2:-30}
app=$build/bin/brackwater-link
simulator=$build/bin/pump-simulator
for binary in "$app" "$simulator"; do
  [ -x "$binary" ] || { echo "app-session: $binary is not built" >&2; exit 2; }
done

work=$(mktemp -d)
export XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work QT_QPA_PLATFORM=offscreen
unset BRACKWATER_LINK_PORTS
app_pid=""
cleanup() {
  [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null || true
  [ -n "${SIM_PID:-}" ] && kill -INT "$SIM_PID" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

coproc SIM { exec "$simulator" --pty --no-console 2>"$work/simulator.log"; }
read -r port <&"${SIM[0]}"

now_ms() { date +%s%3N; }
log=$work/app.log
started=$(now_ms)
"$app" --port "$port" 2>"$log" &
app_pid=$!

# "Connected." is emitted with the session-started log line.
deadline=$((started + 10000))
until grep -q "protocolObject_SessionStarted" "$log" 2>/dev/null; do
  if [ "$(now_ms)" -gt "$deadline" ]; then
    echo "app-session: no session within 10 s" >&2
    cat "$log" >&2
    exit 1
  fi
  sleep 0.005
done
connected=$(now_ms)
until grep -q "Main screen shown" "$log" 2>/dev/null; do
  if [ "$(now_ms)" -gt "$deadline" ]; then
    echo "app-session: no main screen within 10 s" >&2
    exit 1
  fi
  sleep 0.005
done
main_screen=$(now_ms)

# Let the subscriptions settle before measuring the streaming state.
sleep 3
ticks() { awk '{print $14 + $15}' "/proc/$app_pid/stat"; }
hz=$(getconf CLK_TCK)
before=$(ticks)
sleep "$window"
after=$(ticks)
rss_kb=$(awk '/^VmRSS:/ {print $2}' "/proc/$app_pid/status")
threads=$(awk '/^Threads:/ {print $2}' "/proc/$app_pid/status")
pings=$(grep -c "keepAliveTimeout" "$log" || true)

echo "start to Connected.:        $((connected - started)) ms"
echo "start to main screen shown: $((main_screen - started)) ms (target below 2500 ms)"
awk -v t=$((after - before)) -v hz="$hz" -v w="$window" \
  'BEGIN { printf "CPU, main screen streaming: %.2f %% of one core over %d s (target below 3 %%)\n", 100 * t / hz / w, w }'
echo "resident memory:            $((rss_kb / 1024)) MiB ($rss_kb kB), $threads threads (target below 150 MB)"
echo "keep-alive time-outs seen:  $pings"
