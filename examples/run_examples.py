#!/usr/bin/env python3
"""Runs every example host on the same formula and compares what they made."""
import argparse
import os
import pathlib
import struct
import subprocess
import sys
import tempfile

FORMULA = "(a+b)/sqr(x)=sum(i,i=1,n)"
EXAMPLES = pathlib.Path(__file__).parent


def run(*command, env=None):
    done = subprocess.run(command, check=True, capture_output=True, text=True, env=env)
    return done.stdout.strip()


def size_of_frame(path):
    """Width and height of a metafile's frame, in hundredths of a millimetre."""
    head = pathlib.Path(path).read_bytes()[:44]
    assert head[40:44] == b" EMF", path
    left, top, right, bottom = struct.unpack("<4i", head[24:40])
    assert (left, top) == (0, 0), path
    return right, bottom


def python_environment(sanitized):
    """A library with the address checks in it has to find them loaded first."""
    if not sanitized:
        return None
    runtime = run("g++", "-print-file-name=libasan.so")
    # Leaks of the interpreter itself are none of ours.
    return dict(os.environ, LD_PRELOAD=runtime, ASAN_OPTIONS="detect_leaks=0")


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--bin", type=pathlib.Path, required=True)
    options.add_argument("--library", required=True)
    options.add_argument("--sanitized", action="store_true")
    options = options.parse_args()

    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        sizes = {
            "cpp": run(options.bin / "cpp_host", FORMULA, folder / "cpp.wmf"),
            "c": run(options.bin / "c_host", FORMULA, folder / "c.wmf"),
            "python": run("/usr/bin/python3", EXAMPLES / "python_host/render.py", options.library,
                          FORMULA, folder / "python.wmf",
                          env=python_environment(options.sanitized)),
        }
        assert len(set(sizes.values())) == 1, sizes
        files = [(folder / f"{name}.wmf").read_bytes() for name in sizes]
        assert files[0] == files[1] == files[2], "the three hosts wrote different metafiles"

        width, height = (float(n) for n in sizes["cpp"].split(" pixels")[0].split(" x "))
        frame = size_of_frame(folder / "cpp.wmf")
        # 508 mm of the screen are 1920 pixels.
        assert frame == (int(width * 50800 / 1920 + 0.5), int(height * 28600 / 1080 + 0.5)), frame

        large = run(options.bin / "cairo_host", FORMULA, folder / "cairo.png")
        large_width, large_height = (float(n) for n in large.split(" pixels")[0].split(" x "))
        png = (folder / "cairo.png").read_bytes()
        assert png[:8] == b"\x89PNG\r\n\x1a\n"
        assert struct.unpack(">2I", png[16:24]) == (2 * large_width + 40, 2 * large_height + 40)
        # 20 points against 12: the signs grow, the gaps between them stay what they are.
        assert 1.2 < large_width / width < 1.67 and 1.2 < large_height / height < 1.67, large
    print("4 hosts agree")


if __name__ == "__main__":
    sys.exit(main())
