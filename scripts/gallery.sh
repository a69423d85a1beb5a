#!/usr/bin/env bash
# Makes the pictures of docs/language.md and docs/gallery.md anew: gallery.sh [BIN]
# BIN is the folder of programs of a build that stands already; without it one is built.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -gt 0 ]; then
    bin=$1
else
    scripts/deps.sh build test
    cmake --preset linux-bench >/dev/null
    cmake --build --preset linux-bench --target mivora-tool gallery
    bin=build/linux-bench/bin
fi

# Resolution of all pictures: twice as fine as the screen.
dpi=192
render() { # FILE TEXT [OPTION ...]
    "$bin/mivora" render -o "$1" --dpi "$dpi" "${@:3}" -- "$2" >/dev/null
}

mkdir -p docs/images/language docs/images/gallery
render docs/images/readme.png 'int(exp((-(x~2))/2)*dx,0,greek p)+nsqr((a+b)/(a-b),3)'
while read -r name text; do
    case $name in '' | '#'*) continue ;; esac
    render "docs/images/language/$name.png" "$text"
done <docs/images/language.list

while read -r name rest; do
    case $name in '' | '#'*) continue ;; esac
    read -ra options <<<"${rest%%-- *}"
    render "docs/images/gallery/$name.png" "${rest#*-- }" "${options[@]}"
done < <(grep -v '^#' docs/images/gallery.list)

"$bin/gallery" docs/images/gallery
ls docs/images/language/*.png docs/images/gallery/*.png | wc -l | sed 's/$/ pictures/'
