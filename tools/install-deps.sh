#!/usr/bin/env bash
# Installs every Debian 12 package needed to build, test, benchmark and fuzz
# Brackwater Link. Safe to run again: packages already present are skipped.
set -euo pipefail

packages=(
  # build
  cmake ninja-build g++ pkg-config clang-14 libclang-rt-14-dev clang-format clang-tidy
  # Qt 6.4 and the QML modules the screens import
  qt6-base-dev qt6-declarative-dev qt6-serialport-dev qt6-svg-dev qt6-tools-dev
  qt6-l10n-tools qt6-qpa-plugins qt6-translations-l10n
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript
  qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtquick-templates
  qml6-module-qtquick-controls qml6-module-qtquick-layouts qml6-module-qtquick-dialogs
  qml6-module-qtquick-shapes qml6-module-qt-labs-folderlistmodel
  qml6-module-qt-labs-settings qml6-module-qtcore qml6-module-qttest
  qml6-module-qtcharts qt6-charts-dev
  libgl1-mesa-dri fonts-dejavu-core
  # logging, firmware bundles
  liblog4cxx-dev libminizip-dev zlib1g-dev
  # tests, benchmarks, headless runs
  libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth x11-apps imagemagick socat procps
  # the Debian package's check
  lintian
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all ${#packages[@]} packages present"
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
