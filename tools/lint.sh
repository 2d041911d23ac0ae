#!/usr/bin/env bash
# The lint stage: clang-format, clang-tidy and qmllint over the project's sources. Fails on the
# first stage with a finding. Needs a configured and built default preset (clang-tidy reads its
# compile database and the generated headers; qmllint reads the built QML modules).
#   bash tools/lint.sh [build-dir]
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR="${1:-build/default}"
JOBS="${JOBS:-$(nproc)}"

echo "lint: clang-format"
git ls-files -- '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

echo "lint: clang-tidy (the application, the protocol library and the tools)"
# Findings are errors (.clang-tidy sets WarningsAsErrors); run-clang-tidy exits non-zero on any.
run-clang-tidy -p "$BUILD_DIR" -j "$JOBS" -quiet "^$(pwd)/(Common|QtApps|tools)/.*\.cpp$" \
    > "$BUILD_DIR/clang-tidy.log" 2>&1 || {
    grep -E "(error|warning):" "$BUILD_DIR/clang-tidy.log" | sort -u
    echo "lint: clang-tidy found the above (full output in $BUILD_DIR/clang-tidy.log)"
    exit 1
}

echo "lint: qmllint (every QML module)"
cmake --build "$BUILD_DIR" --target bwl_qml_lint

echo "lint: clean"
