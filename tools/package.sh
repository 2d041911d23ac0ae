#!/usr/bin/env bash
# Makes the Debian package of Brackwater Link from the default build (the tree tools/test.sh and
# tools/run.sh build): build/default/packages/brackwater-link_<version>_<arch>.deb. CPack strips
# the executables as it packs them, so the package carries no debugging information although the
# tree is built with it. Check the result with tools/check-package.sh.
#   bash tools/package.sh
set -euo pipefail
cd "$(dirname "$0")/.."

bash tools/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default -j "${JOBS:-$(nproc)}"
rm -f build/default/packages/*.deb
cpack --config build/default/CPackConfig.cmake -G DEB
ls build/default/packages/*.deb
