#!/usr/bin/env bash
# The thread check: builds the application, the pump simulator and the tests under the thread
# sanitizer (the `tsan` preset, clang) and runs the end-to-end and integration tests, where the
# link thread and the user-interface thread meet. Not part of the test command: on the 2-core
# machine the build takes about 15 minutes and the tests about 5. Run it before a release and
# after changing anything that crosses threads.
#
# Qt is not built with the sanitizer, so every hand-over through Qt's event queue is reported as
# a race. The reports are written to build/tsan/reports/ and sorted by tools/tsan-reports.py;
# the script fails when a test fails or a report is not one of Qt's hand-overs
# (docs/reliability.md, "The thread check").
#   bash tools/run-tsan.sh [ctest arguments...]
set -euo pipefail
cd "$(dirname "$0")/.."

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
chmod 700 "$XDG_RUNTIME_DIR"

cmake --preset tsan
cmake --build --preset tsan -j "${JOBS:-$(nproc)}"
rm -rf build/tsan/reports
mkdir -p build/tsan/reports
status=0
ctest --preset tsan -j "${JOBS:-$(nproc)}" --timeout 600 -L "e2e|integration" "$@" || status=$?
shopt -s nullglob
reports=(build/tsan/reports/tsan.*)
if ((${#reports[@]})); then
    python3 tools/tsan-reports.py "$PWD" "${reports[@]}" || status=1
else
    echo "No thread sanitizer reports."
fi
exit "$status"
