#!/usr/bin/env bash
# The whole test suite, from a fresh Debian 12 machine: installs dependencies, builds with
# warnings as errors, lints (clang-format, clang-tidy, qmllint), runs every test, makes the Debian
# package and checks it from its installed paths, runs the protocol library's tests again built
# with clang under the address and undefined-behaviour sanitizers, then runs each fuzz target
# (from that build) for a bounded time.
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

section "the protocol library and the fuzz targets under address and undefined-behaviour sanitizers"
# The sanitize-all preset instruments everything; the test command builds the protocol library's
# tests and the fuzz targets there (the whole suite under the sanitizers is
# `cmake --build --preset sanitize-all && ctest --preset sanitize-all`, see docs/reliability.md).
# The sanitizers' options (and their commented suppressions) come with the test preset.
cmake --preset sanitize-all
cmake --build --preset sanitize-all -j "$JOBS" --target protocol_tests fuzz_all
ctest --preset sanitize-all -j "$JOBS" --timeout 300 -R '^[A-Z][A-Za-z]*\.'

section "fuzzing (${FUZZ_SECONDS_PER_TARGET} s per target)"
bash tools/run-fuzz.sh "$FUZZ_SECONDS_PER_TARGET"

section "all passed"
