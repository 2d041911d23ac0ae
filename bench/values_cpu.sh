#!/bin/sh
# CPU of the pump values on the link thread and the user-interface thread, every streaming value
# subscribed at its default period (filter data every 30 ms) against the pump simulator.
# Usage: bench/values_cpu.sh [BUILD_DIR] [SECONDS]   (defaults: build/default, 30)
set -eu
build_dir=${1:-build/default}
seconds=${2:-30}
cmake --build "$build_dir" --target values_cpu_bench pump-simulator
exec "$build_dir/bin/values_cpu_bench" "$seconds"
