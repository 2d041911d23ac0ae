#!/usr/bin/env bash
# The thread check: builds the application, the pump simulator and the tests under the thread
# sanitizer (the `tsan` preset, clang) and runs the end-to-end and integration tests, where the
# link thread and the user-interface thread meet. Not part of the test command (the build alone
# takes as long as the rest of the suite); run it before a release and after changing anything
# that crosses threads. Fails on the first race report.
#   bash tools/run-tsan.sh [ctest arguments...]
set -euo pipefail
cd "$(dirname "$0")/.."

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
chmod 700 "$XDG_RUNTIME_DIR"

cmake --preset tsan
cmake --build --preset tsan -j "${JOBS:-$(nproc)}"
# A race report makes the test that met it fail (halt_on_error in the preset's TSAN_OPTIONS).
ctest --preset tsan -j "${JOBS:-$(nproc)}" --timeout 600 -L "e2e|integration" "$@"
