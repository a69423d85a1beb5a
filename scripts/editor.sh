#!/usr/bin/env bash
# Builds the editor and starts it under Wine on the display at hand: editor.sh [FILE.fml]
set -euo pipefail
file=${1:+$(realpath "$1")}
cd "$(dirname "$0")/.."

no_display() { echo "editor.sh: there is no display (DISPLAY='${DISPLAY-}')" >&2; exit 1; }
[ -n "${DISPLAY-}" ] || no_display
scripts/deps.sh build windows
/usr/bin/python3 -c 'import ctypes, sys
open_display = ctypes.CDLL("libX11.so.6").XOpenDisplay
open_display.restype = ctypes.c_void_p
sys.exit(open_display(None) is None)' || no_display

build=$PWD/build/windows-release
cmake --preset windows-release >/dev/null
cmake --build --preset windows-release --target mivora-editor

wine_dir=$build/wine
scripts/wine/make_prefix.sh "$wine_dir" "$build/share/mivora/fonts"
# A prefix of its own, which keeps what the user does there; that of the tests stays as it is.
export WINEPREFIX=$wine_dir/editor
. scripts/wine/environment.sh
if ! cmp -s "$wine_dir/stamp" "$WINEPREFIX/stamp"; then
    rm -rf "$WINEPREFIX"
    cp -a --reflink=auto "$wine_dir/prefix" "$WINEPREFIX"
    # The window manager's frame and keys, which tests have to do without.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d Y /f </dev/null >/dev/null 2>&1
    cp "$wine_dir/stamp" "$WINEPREFIX/stamp"
fi
exec wine "$build/bin/mivora-editor.exe" ${file:+"$(winepath -w "$file")"}
