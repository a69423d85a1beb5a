#!/usr/bin/env bash
# Makes the pictures of docs/pictures.md anew, as a browser shows them: page_pictures.sh BIN
# BIN is the folder of programs of a build. Needs chromium.
set -euo pipefail
cd "$(dirname "$0")/.."
bin=${1:?usage: page_pictures.sh BIN}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

formula() { "$bin/mivora" render -o - --format svg --transparent --color currentColor -- "$1"; }
text() {
    echo "<p>The root $(formula 'sqr(x+1)') of $(formula 'x+1') grows like $(formula 'x^(1/2)'), and"
    echo "for $(formula 'a<=b') the mean $(formula '(a+b)/2') lies between them. The function"
    echo "$(formula 'f(x,y)') has the integral $(formula 'int(f(x,y)*dx,0,greek p)'), which is no"
    echo "more than $(formula 'sum(mark(x,i,2),i=1,n)'); its angle is $(formula 'greek q').</p>"
}
page() { # COLOUR BACKGROUND
    echo '<!DOCTYPE html><meta charset="utf-8"><style>body { margin: 0 16px; width: 568px;'
    echo "font: 16px/1.6 \"Liberation Serif\", serif; color: $1; background: $2 }</style>"
    text
}
shot() { # NAME
    chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --window-size=600,210 \
        --force-device-scale-factor=2 --screenshot="docs/images/pictures/$1.png" \
        "$work/$1.html" >/dev/null 2>&1
}
mkdir -p docs/images/pictures
page '#111' '#fff' >"$work/light.html"
page '#ddd' '#181818' >"$work/dark.html"
shot light
shot dark
