#!/usr/bin/env bash
# Makes the Wine prefix that test sessions copy: make_prefix.sh DIR FONTS
# FONTS is the folder of font files that a build gathers. The prefix, DIR/prefix, stays as it is
# until a font, the recipe or Wine changes.
set -euo pipefail
usage="usage: make_prefix.sh DIR FONTS"
scripts=$(cd "$(dirname "$0")" && pwd)
mkdir -p "${1:?$usage}"
wine_dir=$(cd "$1" && pwd)
fonts=$(cd "${2:?$usage}" && pwd)
wine_fonts=/usr/share/wine/fonts

exec 9>"$wine_dir/lock"
flock 9

# What windows and menus are drawn with, and the text faces of formulas. "MT Extra" is left out:
# the library brings it to machines that have none.
faces=("$wine_fonts"/{marlett,tahoma,tahomabd,system,ms_sans_serif,small_fonts,fixedsys,courier}.ttf
    "$fonts"/Liberation*.ttf "$fonts/symbol.ttf")
recipe=("$scripts"/{make_prefix.sh,environment.sh,prefix.reg})
stamp=$({
    dpkg-query -W libwine
    sha256sum "${faces[@]}" "${recipe[@]}"
} | sha256sum)
[ "$stamp" != "$(cat "$wine_dir/stamp" 2>/dev/null)" ] || exit 0

export WINEPREFIX=$wine_dir/prefix
. "$scripts/environment.sh"
rm -rf "$WINEPREFIX" "$wine_dir/stamp" "$wine_dir/fontconfig"
mkdir -p "$wine_dir/fontconfig/none" "$WINEPREFIX/drive_c/windows/Fonts"
cat >"$FONTCONFIG_FILE" <<END
<?xml version="1.0"?>
<fontconfig>
    <dir>$wine_dir/fontconfig/none</dir>
    <cachedir>$wine_dir/fontconfig/cache</cachedir>
</fontconfig>
END
cp "${faces[@]}" "$WINEPREFIX/drive_c/windows/Fonts/"

# The first processes leave services behind, which must inherit neither a pipe nor the lock.
quietly() { timeout 120 "$@" </dev/null >/dev/null 2>&1 9>&-; }
trap stop_wine EXIT
# The profile gets links into the home folder where that is there: not into a real one.
HOME=$wine_dir/no-home quietly wineboot -i
quietly wine regedit /S "$scripts/prefix.reg"
trap - EXIT
stop_wine
echo "$stamp" >"$wine_dir/stamp"
