#!/usr/bin/env bash
# Pictures of every page, tab and overlay, at 960x540 and 1920x1080, against the pump simulator,
# offscreen. Look at every one before a change to the screens ships.
#   bash tools/screenshots.sh [OUTPUT_FOLDER]     (default docs/screenshots)
set -euo pipefail
cd "$(dirname "$0")/.."
out="${1:-docs/screenshots}"
cmake --preset default >/dev/null
cmake --build --preset default --target screenshots pump-simulator
export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
chmod 700 "$XDG_RUNTIME_DIR"
build/default/bin/screenshots "$out"
