#!/usr/bin/env bash
# Installs the Debian packages that are missing: deps.sh [build|test|fuzz|windows] ...
# Without a word: what building needs.
set -euo pipefail

packages_build=(
    g++ cmake ninja-build pkg-config
    libcairo2-dev libfreetype-dev libfontconfig-dev libgsf-1-dev
    libdeflate-dev zlib1g-dev
    nlohmann-json3-dev
    fonts-liberation fonts-wine fonts-dejavu-core fonts-urw-base35
    python3 python3-fonttools
)
packages_test=(
    libgtest-dev libbenchmark-dev
    emf2svg file groff-base locales binutils
    poppler-utils qpdf pngcheck libxml2-utils librsvg2-bin python3-pil
    python3-olefile python3-pylatexenc libgsf-bin p7zip-full gfortran rustc
    python3-venv python3-setuptools python3-wheel mypy
    python3-nbconvert python3-ipykernel python3-dask python3-distributed
)
# Wine loads the X libraries where they are: for cursors, mouse input, changes of the screen.
packages_windows=(
    g++-mingw-w64-x86-64-posix gfortran-mingw-w64-x86-64-posix libz-mingw-w64-dev newlib-source
    googletest python3-pefile
    wine wine64 xvfb util-linux
    libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2
)
packages_fuzz=(clang llvm libclang-rt-14-dev)

packages=()
for group in "${@:-build}"; do
    case $group in
        build) packages+=("${packages_build[@]}") ;;
        test) packages+=("${packages_test[@]}") ;;
        fuzz) packages+=("${packages_fuzz[@]}") ;;
        windows) packages+=("${packages_windows[@]}") ;;
        *) echo "deps.sh: unknown group '$group'" >&2; exit 2 ;;
    esac
done

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
