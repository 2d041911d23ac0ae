#!/usr/bin/env bash
# The whole test suite, from a fresh Debian 12 machine: installs dependencies, builds with
# warnings as errors, lints (clang-format, clang-tidy, qmllint), runs every test, makes the Debian
# package and checks it from its installed paths, builds everything again with clang under the
# address and undefined-behaviour sanitizers and runs every test there too, then runs each fuzz
# target (from that build) for a bounded time.
set -euo pipefail
cd "$(dirname "$0")/.."

FUZZ_SECONDS_PER_TARGET="${FUZZ_SECONDS_PER_TARGET:-20}"
JOBS="${JOBS:-$(nproc)}"

section() { printf '\n==== %s (%s)\n' "$1" "$(date -u +%H:%M:%S)"; }

section "dependencies"
bash tools/install-deps.sh

# Tests run headless.
export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
chmod 700 "$XDG_RUNTIME_DIR"

section "build"
cmake --preset default
cmake --build --preset default -j "$JOBS"

section "lint"
bash tools/lint.sh build/default

section "tests"
ctest --preset default -j "$JOBS" --timeout 300

section "package"
bash tools/package.sh
bash tools/check-package.sh

section "everything under address and undefined-behaviour sanitizers"
cmake --preset sanitize-all
cmake --build --preset sanitize-all -j "$JOBS"
# The sanitizers' options (and what they leave out, each with its reason) come with the test
# preset and tools/sanitizers/.
ctest --preset sanitize-all -j "$JOBS" --timeout 900

section "fuzzing (${FUZZ_SECONDS_PER_TARGET} s per target)"
bash tools/run-fuzz.sh "$FUZZ_SECONDS_PER_TARGET"

section "all passed"
