# Sourced: what every Wine process of the tests has to see, and how it is ended.
# The caller sets wine_dir, the folder of the prefix and its fonts, and WINEPREFIX.

export WINEARCH=win64 WINEDEBUG=-all
# Asks for no further packages, writes no menu entries.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d"
# No fonts but those of the prefix. Wine keeps what it once found: the same file from creation on.
export FONTCONFIG_FILE=$wine_dir/fonts.conf
# Decides the code page, which becomes 1252, and that of file names.
export LC_ALL=C.UTF-8
# Another interpreter of TrueType programs gives other widths.
unset FREETYPE_PROPERTIES

# Ends every Windows process of the prefix and takes the server's folder away, where the prefix
# tells it; a copy of the prefix must not come to the same folder.
stop_wine() {
    # The registry is written before -k returns; -w alone would wait for idle services.
    timeout 20 wineserver -k || true
    timeout 20 wineserver -w || true
    if [ -f "$WINEPREFIX/wineserver" ]; then
        rm -rf "/tmp/$(basename "$(cat "$WINEPREFIX/wineserver")")" "$WINEPREFIX/wineserver"
    fi
} </dev/null >/dev/null 2>&1
