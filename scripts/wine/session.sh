#!/usr/bin/env bash
# Runs a command with Wine and a screen at hand: session.sh BUILD COMMAND [ARGUMENT ...]
# BUILD is a Windows build tree. The command sees a screen of 1920 x 1080 at 96 dpi and a copy of
# the tree's prefix; neither is left afterwards, nor any process. Ends with the command's status.
set -euo pipefail
usage="usage: session.sh BUILD COMMAND [ARGUMENT ...]"
scripts=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:?$usage}" && pwd)
: "${2:?$usage}"
shift
holder=$build/bin/wine-hold.exe
[ -e "$holder" ] || { echo "session.sh: $holder is not built" >&2; exit 1; }

wine_dir=$build/wine
"$scripts/make_prefix.sh" "$wine_dir" "$build/share/mivora/fonts"
# Beside the prefix: some 700 MB, too much for a /tmp in memory. Those of killed sessions go.
for old in "$wine_dir"/session.*; do
    [ -d "/proc/${old##*.}" ] || rm -rf "$old"
done
work=$wine_dir/session.$$
mkdir "$work"
export WINEPREFIX=$work/prefix MIVORA_WINE_SESSION=1
. "$scripts/environment.sh"

command_id='' screen_id=''
cleanup() {
    trap '' INT TERM HUP
    [ -z "$command_id" ] || kill -- -"$command_id" || true
    [ ! -d "$WINEPREFIX" ] || stop_wine
    [ -z "$screen_id" ] || kill "$screen_id" || true
    wait || true
    rm -rf "$work"
} 2>/dev/null
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# In the background, with an end of its own should this shell be killed.
start() { exec setpriv --pdeathsig TERM "$@"; }

mkfifo "$work/display"
exec 3<>"$work/display"
start Xvfb -displayfd 3 -screen 0 1920x1080x24 -dpi 96 -nolisten tcp -noreset \
    </dev/null >/dev/null 2>&1 &
screen_id=$!
read -r -t 30 -u 3 display || { echo "session.sh: Xvfb does not start" >&2; exit 1; }
exec 3>&-
export DISPLAY=:$display

# The holder keeps Wine's services and its desktop: a test that had to start them would also have
# to wait for their end, as they inherit its output.
cp -a --reflink=auto "$wine_dir/prefix" "$WINEPREFIX"
start wine "$holder" "$work/ready" </dev/null >/dev/null 2>&1 &
for ((tries = 0; tries < 300; ++tries)); do
    [ ! -e "$work/ready" ] || break
    sleep 0.1
done
[ -e "$work/ready" ] || { echo "session.sh: Wine does not start" >&2; exit 1; }

# A process group of its own, so that all of it can be ended.
start setsid "$@" <&0 &
command_id=$!
status=0
wait "$command_id" || status=$?
command_id=''
exit "$status"
