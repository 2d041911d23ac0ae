#!/usr/bin/env bash
# Checks the Debian package that tools/package.sh made, from its installed paths:
#   - lintian reports no error (warnings are shown, and allowed);
#   - the package holds the programs, the desktop entry, the icons, the AppStream metadata, the
#     manual pages and the documentation, and depends on the QML modules the screens import;
#   - unpacked into a scratch root (dpkg-deb -x, no root needed), brackwater-link --version and
#     brackwater-cli --help answer, brackwater-cli explains a port that cannot be opened, and
#     the installed application, offscreen, connects to the installed pump simulator on a
#     pseudo-terminal, shows its main screen and keeps the session for a few seconds.
#   bash tools/check-package.sh [PACKAGE.deb]
set -euo pipefail
cd "$(dirname "$0")/.."

deb="${1:-$(ls build/default/packages/brackwater-link_*.deb 2>/dev/null | tail -n 1)}"
[ -f "$deb" ] || { echo "check-package: no package; run tools/package.sh first" >&2; exit 2; }
fail() { echo "check-package: $*" >&2; exit 1; }

work=$(mktemp -d)
app_pid=""
cleanup() {
    [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null || true
    [ -n "${SIM_PID:-}" ] && kill -INT "$SIM_PID" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

echo "check-package: $deb ($(du -k "$deb" | cut -f1) KiB)"

echo "check-package: lintian"
lintian_status=0
lintian --fail-on error --display-info "$deb" >"$work/lintian.txt" 2>&1 || lintian_status=$?
# As root (in CI) lintian first says that it would rather not run as root: no finding.
grep -v "running with root privileges" "$work/lintian.txt" || true
[ "$lintian_status" -eq 0 ] || fail "lintian found errors (above)"

depends=$(dpkg-deb -f "$deb" Depends)
for package in qml6-module-qtquick-controls qml6-module-qtquick-layouts qml6-module-qtquick-dialogs \
               libqt6serialport6 liblog4cxx15; do
    [[ "$depends" == *"$package"* ]] || fail "Depends lacks $package: $depends"
done
dpkg-deb -f "$deb" Description | grep -q "dialout" || fail "the description does not mention dialout"

root=$work/root
dpkg-deb -x "$deb" "$root"
for file in usr/bin/brackwater-link usr/bin/brackwater-cli usr/bin/pump-simulator \
            usr/share/applications/brackwater-link.desktop \
            usr/share/metainfo/com.brackwater.link.metainfo.xml \
            usr/share/icons/hicolor/scalable/apps/brackwater-link.svg \
            usr/share/icons/hicolor/48x48/apps/brackwater-link.png \
            usr/share/icons/hicolor/256x256/apps/brackwater-link.png \
            usr/share/man/man1/brackwater-link.1.gz usr/share/man/man1/brackwater-cli.1.gz \
            usr/share/man/man1/pump-simulator.1.gz \
            usr/share/doc/brackwater-link/copyright usr/share/doc/brackwater-link/changelog.gz \
            usr/share/doc/brackwater-link/user-guide.md; do
    [ -f "$root/$file" ] || fail "the package lacks /$file"
done
bin=$root/usr/bin

# The programs run from the scratch root with the system's Qt and QML modules, as installed.
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work XDG_DATA_HOME=$work/data HOME=$work
chmod 700 "$work"
unset BRACKWATER_LINK_PORTS

version=$("$bin/brackwater-link" --version)
[[ "$version" == *"$(dpkg-deb -f "$deb" Version)"* ]] || fail "brackwater-link --version: $version"
echo "check-package: $version"
"$bin/brackwater-cli" --help | grep -q "update-firmware" || fail "brackwater-cli --help"

status=0
"$bin/brackwater-cli" --port "$work/no-such-port" --timeout 1 info 2>"$work/cli.log" || status=$?
[ "$status" -eq 3 ] || fail "brackwater-cli without a pump ended with $status, not 3"
grep -q "Cannot open $work/no-such-port: there is no such port" "$work/cli.log" ||
    fail "brackwater-cli did not explain the port: $(cat "$work/cli.log")"

coproc SIM { exec "$bin/pump-simulator" --pty --no-console --seed 1 2>"$work/simulator.log"; }
read -r -t 10 port <&"${SIM[0]}" || fail "the installed pump simulator did not start"

"$bin/brackwater-cli" --port "$port" info >"$work/info.txt" || fail "brackwater-cli info failed"
grep -q "appVersion: 1.16.1" "$work/info.txt" || fail "brackwater-cli info: $(cat "$work/info.txt")"

log=$work/app.log
"$bin/brackwater-link" --port "$port" 2>"$log" &
app_pid=$!
waited=0
until grep -q "Main screen shown" "$log"; do
    kill -0 "$app_pid" 2>/dev/null || fail "the application ended: $(cat "$log")"
    [ "$waited" -lt 200 ] || fail "no main screen within 20 s: $(cat "$log")"
    sleep 0.1
    waited=$((waited + 1))
done
grep -q "protocolObject_SessionStarted" "$log" || fail "the main screen showed without a session"
# A few seconds of keep-alives and streamed readings on the installed programs.
sleep 4
kill -0 "$app_pid" 2>/dev/null || fail "the application ended: $(cat "$log")"
if grep -q "keepAliveTimeout, no response, disconnecting" "$log"; then
    fail "the session dropped: $(cat "$log")"
fi
echo "check-package: the installed application connected to the installed pump simulator on $port"
echo "check-package: passed"
