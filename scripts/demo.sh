#!/usr/bin/env bash
# Builds the library and renders formulas: demo.sh [TEXT ...]
# Each formula becomes out/NAME.wmf and out/NAME.png; what was made is printed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh build
cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DMIVORA_TESTS=OFF -DMIVORA_BENCH=OFF >/dev/null
cmake --build build/demo

formulas=("$@")
if [ ${#formulas[@]} -eq 0 ]; then
    formulas=(
        'x=(-b+sqr(b^2-4*a*c))/(2*a)'
        'f(x)=1/((greek s)*sqr(2*greek p))*exp((-((x-greek m)^2))/(2*(greek s)^2))'
        'sum(mark(x,i,2),i=1,n)=(n*(n+1))/2'
        'int(exp((-(x~2))/2)*dx,0,greek p)'
        'nsqr((a+b)/(a-b),3)+sqr(1+sqr(1+x))'
        'brace([,],a/b)+brace({,},a+b-c)'
    )
fi

mkdir -p out
number=0
for formula in "${formulas[@]}"; do
    number=$((number + 1))
    name=$(printf 'out/formula-%02d' "$number")
    size=$(build/demo/bin/mivora render -o "$name.wmf" -- "$formula")
    build/demo/bin/mivora render -o "$name.png" --dpi 192 -- "$formula" >/dev/null
    # The library tells 22 times the size in pixels of the screen.
    read -r width height <<<"$size"
    printf '%s.wmf %s.png  %s x %s pixels  %s\n' \
        "$name" "$name" "$((width / 22))" "$((height / 22))" "$formula"
done
