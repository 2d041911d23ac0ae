#!/usr/bin/env bash
# Builds and starts Brackwater Link. With no pump attached (no USB serial port present) or with
# --simulator, it first starts the pump simulator on a pseudo-terminal and connects to it.
#
#   bash tools/run.sh                 # a real pump if one is attached, else the simulator
#   bash tools/run.sh --simulator     # always the simulator
#   bash tools/run.sh --port /dev/ttyUSB0
#
# Other arguments go to the application.
set -euo pipefail
cd "$(dirname "$0")/.."

use_simulator=auto
app_args=()
for arg in "$@"; do
    case "$arg" in
        --simulator) use_simulator=yes ;;
        --port|--port=*) use_simulator=no; app_args+=("$arg") ;;
        *) app_args+=("$arg") ;;
    esac
done
if [ -n "${BRACKWATER_LINK_PORTS:-}" ] && [ "$use_simulator" = auto ]; then
    use_simulator=no
fi

bash tools/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default --target brackwater-link pump-simulator

bin=build/default/bin

if [ "$use_simulator" = auto ]; then
    if compgen -G "/dev/ttyUSB*" >/dev/null || compgen -G "/dev/ttyACM*" >/dev/null; then
        use_simulator=no
    else
        use_simulator=yes
    fi
fi

if [ "$use_simulator" = yes ]; then
    simulator_out=$(mktemp)
    "$bin/pump-simulator" --pty --no-console >"$simulator_out" &
    simulator_pid=$!
    stop_simulator() { kill "$simulator_pid" 2>/dev/null || true; rm -f "$simulator_out"; }
    trap stop_simulator EXIT
    trap 'stop_simulator; exit 130' INT TERM
    for _ in $(seq 50); do
        [ -s "$simulator_out" ] && break
        sleep 0.1
    done
    port=$(head -n 1 "$simulator_out")
    if [ -z "$port" ]; then
        echo "run: the pump simulator did not start" >&2
        exit 1
    fi
    echo "run: no pump attached, using the pump simulator on $port"
    app_args+=(--port "$port")
fi

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "run: no display found, starting the window on a virtual X server (xvfb-run)"
    xvfb-run -a -s "-screen 0 1280x800x24" "$bin/brackwater-link" "${app_args[@]}"
    exit $?
fi
"$bin/brackwater-link" "${app_args[@]}"
