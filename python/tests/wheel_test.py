#!/usr/bin/env python3
"""The wheel, installed by one command into a fresh environment, without the build at hand:

    wheel_test.py BUILD
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import zipfile

PYTHON = pathlib.Path(__file__).resolve().parents[1]
# Signs of the library's own faces, a stored formula by its module, and where the library lies.
USE = """
import pathlib, sys, mivora
from mivora import _library
formula = mivora.Formula("sqr(x)+greek p+planck")
assert mivora.read(formula.fml()).latex() == formula.latex()
"""
PLACE = """
package = pathlib.Path(mivora.__file__).parent
assert package.is_relative_to(sys.prefix), package
assert pathlib.Path(_library.LIBRARY._name).is_relative_to(package), _library.LIBRARY._name
"""
SHOW = 'print(formula.svg(), end="")'


def run(*words, **more):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, **more)
    if done.returncode != 0:
        sys.exit(f"{words}\n{done.stdout}\n{done.stderr}")
    return done.stdout


def environment_without(*names):
    return {name: value for name, value in os.environ.items() if name not in names}


def main():
    build = pathlib.Path(sys.argv[1])
    clean = environment_without("LD_PRELOAD", "PYTHONPATH", "MIVORA_LIBRARY")
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        wheel = run("/usr/bin/python3", PYTHON / "build_wheel.py", build, folder, env=clean).strip()
        assert "-py3-none-" in wheel and "any" not in wheel, wheel
        names = zipfile.ZipFile(wheel).namelist()
        for part in ("mivora/py.typed", "/fonts/symbol.ttf", "/fonts/mtextra.ttf",
                     "/LiberationSerif-Italic.ttf", "/licences/fonts-liberation.txt",
                     "/mivora-compound.so"):
            assert any(name.endswith(part) for name in names), (part, names)
        run("/usr/bin/python3", "-m", "venv", folder / "venv", env=clean)
        python = folder / "venv/bin/python"
        run(python, "-m", "pip", "install", "--no-index", "-q", wheel, env=clean)
        made = run(python, "-c", USE + PLACE + SHOW, cwd="/",
                   env=environment_without("PYTHONPATH", "MIVORA_LIBRARY"))
        told = run("/usr/bin/python3", "-c", USE + SHOW)
        assert made == told and made.count("<path") + made.count("<use") > 3, made
    print(pathlib.Path(wheel).name)


if __name__ == "__main__":
    main()
