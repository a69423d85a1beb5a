#!/usr/bin/env bash
# Makes the pictures of docs/menu.md anew, from menus that are open: menu_pictures.sh BUILD
# BUILD is a Windows build tree. Needs ImageMagick.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:?usage: menu_pictures.sh BUILD}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

MIVORA_MENU_PICTURES="Z:${work//\//\\}" scripts/wine/session.sh "$build" \
    wine "$build/bin/menu_popup_tests.exe" --gtest_filter='*.EveryStyleShows*'
mkdir -p docs/images/menu
for picture in "$work"/*.rgba; do
    convert -size 300x190 -depth 8 "$picture" -alpha off -strip \
        -define png:exclude-chunks=date,time \
        "docs/images/menu/$(basename "$picture" .rgba).png"
done
