# Sourced by the benchmark scripts that measure the application against the pump simulator on a
# pseudo-terminal, offscreen, in a scratch folder removed at exit (Linux: reads /proc).
#   bench_setup NAME BUILD-DIR         checks the executables; sets app, simulator, work
#   bench_start_simulator [ARGS...]    sets port
#   bench_start_app                    sets app_pid and log (the application's log)
#   bench_wait_for TEXT MS             waits for TEXT in the log, or fails after MS
#   bench_ticks, bench_rss_kb          CPU ticks and resident memory of the application

bench_setup() {
  bench_name=$1
  app=$2/bin/brackwater-link
  simulator=$2/bin/pump-simulator
  for binary in "$app" "$simulator"; do
    [ -x "$binary" ] || { echo "$bench_name: $binary is not built" >&2; exit 2; }
  done
  work=$(mktemp -d)
  export XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work XDG_CONFIG_HOME=$work QT_QPA_PLATFORM=offscreen
  unset BRACKWATER_LINK_PORTS
  app_pid=""
  trap bench_cleanup EXIT
}

bench_cleanup() {
  [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null || true
  [ -n "${SIM_PID:-}" ] && kill -INT "$SIM_PID" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$work"
}

bench_start_simulator() {
  coproc SIM { exec "$simulator" --pty --no-console "$@" 2>"$work/simulator.log"; }
  read -r port <&"${SIM[0]}"
}

bench_now_ms() { date +%s%3N; }

bench_start_app() {
  log=$work/app.log
  "$app" --port "$port" 2>"$log" &
  app_pid=$!
}

bench_wait_for() {
  local deadline=$(($(bench_now_ms) + $2))
  until grep -q -- "$1" "$log" 2>/dev/null; do
    if [ "$(bench_now_ms)" -gt "$deadline" ]; then
      echo "$bench_name: no \"$1\" within $2 ms" >&2
      cat "$log" >&2
      exit 1
    fi
    sleep 0.005
  done
}

bench_ticks() { awk '{print $14 + $15}' "/proc/$app_pid/stat"; }
bench_rss_kb() { awk '/^VmRSS:/ {print $2}' "/proc/$app_pid/status"; }
