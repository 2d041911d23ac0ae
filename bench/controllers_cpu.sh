#!/bin/sh
# CPU of the controllers and the values below them, as the main screen subscribes them, with the
# current filter's data every 30 ms, against the pump simulator.
# Usage: bench/controllers_cpu.sh [BUILD_DIR] [SECONDS]   (defaults: build/default, 30)
set -eu
build_dir=${1:-build/default}
seconds=${2:-30}
cmake --build "$build_dir" --target controllers_cpu_bench pump-simulator
exec "$build_dir/bin/controllers_cpu_bench" "$seconds"
