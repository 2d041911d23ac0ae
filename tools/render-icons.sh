#!/usr/bin/env bash
# Renders the application icon (packaging/icons/brackwater-link.svg) to the PNG sizes the
# desktop's icon theme uses and to the Windows icon the window and the executable carry. The
# results are committed, so a build needs neither tool; run this after changing the drawing.
# Needs rsvg-convert (apt-get install librsvg2-bin) and ImageMagick.
set -euo pipefail
cd "$(dirname "$0")/.."

svg=packaging/icons/brackwater-link.svg
ico=QtApps/Common/Instantiation/Brackwater.ico
sizes=(16 24 32 48 64 128 256)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

for size in "${sizes[@]}"; do
    folder="packaging/icons/hicolor/${size}x${size}/apps"
    mkdir -p "$folder"
    rsvg-convert -w "$size" -h "$size" "$svg" -o "$scratch/$size.png"
    # Without metadata (dates, text chunks) the PNGs come out the same on every run.
    /usr/bin/convert "$scratch/$size.png" -strip "$folder/brackwater-link.png"
done
# The sizes Windows picks from for the title bar, the taskbar, Explorer and the installer.
/usr/bin/convert "$scratch/16.png" "$scratch/24.png" "$scratch/32.png" "$scratch/48.png" \
    "$scratch/64.png" "$scratch/256.png" "$ico"
echo "render-icons: ${#sizes[@]} PNG sizes and $ico"
