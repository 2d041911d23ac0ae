#!/bin/sh
# Firmware transfer at the real line rate: image bytes per second delivered, as a share of the
# 11520 bytes/s of 115200 8N1, and the whole update time, against the pump simulator (--pace).
# Usage: bench/firmware_transfer.sh [BUILD_DIR] [IMAGE_KIB]   (defaults: build/default, 256)
set -eu
build_dir=${1:-build/default}
image_kib=${2:-256}
cmake --build "$build_dir" --target firmware_transfer_bench pump-simulator
exec "$build_dir/bin/firmware_transfer_bench" "$image_kib"
