#!/usr/bin/env python3
"""Makes a wheel with the library, its fonts and their licences inside:

    build_wheel.py BUILD OUT [--platform TAG]

BUILD is a build of the library (build/linux-release), OUT the folder that the wheel is put into.
"""
import argparse
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

PYTHON = pathlib.Path(__file__).resolve().parent
PACKAGE_FILES = ("*.py", "py.typed")


def version():
    text = (PYTHON.parent / "CMakeLists.txt").read_text()
    return re.search(r"project\(\w+ VERSION ([\d.]+)", text).group(1)


def lay_out(build, folder):
    """The package as it will be installed, and what builds it."""
    package = folder / "mivora"
    package.mkdir()
    for pattern in PACKAGE_FILES:
        for path in (PYTHON / "mivora").glob(pattern):
            shutil.copy(path, package)
    subprocess.run(["cmake", "--install", build, "--component", "c", "--strip", "--prefix",
                    package / "_native"], check=True, stdout=subprocess.DEVNULL)
    shutil.rmtree(package / "_native/include")
    for path in sorted((package / "_native").rglob("*")):
        if path.is_symlink():  # a wheel has none; the file that they lead to suffices
            path.unlink()
    for name in ("pyproject.toml", "setup.py"):
        shutil.copy(PYTHON / name, folder)
    (folder / "VERSION").write_text(version() + "\n")


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("build", type=pathlib.Path)
    options.add_argument("out", type=pathlib.Path)
    options.add_argument("--platform", help="such as win_amd64; that of this machine without it")
    options = options.parse_args()
    options.out.mkdir(parents=True, exist_ok=True)
    words = ["--plat-name", options.platform] if options.platform else []
    with tempfile.TemporaryDirectory() as folder:
        lay_out(options.build, pathlib.Path(folder))
        done = subprocess.run([sys.executable, "setup.py", "-q", "bdist_wheel", "-d",
                               options.out.resolve(), *words], cwd=folder, capture_output=True,
                              text=True)
    if done.returncode != 0:
        sys.exit(done.stdout + done.stderr)
    print(next(options.out.glob(f"mivora-{version()}-*.whl")))


if __name__ == "__main__":
    main()
