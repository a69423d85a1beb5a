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


class Hosts:
    """The programs of one build, and how they are started."""

    def __init__(self, options):
        self.options = options
        self.windows = options.runner is not None

    def run(self, *command, env=None):
        words = [str(word) for word in command]
        if self.windows:
            words.insert(0, self.options.runner)
        done = subprocess.run(words, capture_output=True, text=True, env=env)
        if done.returncode != 0:
            sys.exit(f"{words}: {done.returncode}\n{done.stdout}\n{done.stderr}")
        return done.stdout.strip()

    def host(self, name, *arguments, env=None):
        suffix = ".exe" if self.windows else ""
        return self.run(self.options.bin / (name + suffix), *arguments, env=env)

    def foreign_environment(self):
        """A library with the address checks in it has to find them loaded first."""
        if not self.options.sanitized:
            return None
        runtime = subprocess.run(["g++", "-print-file-name=libasan.so"], check=True,
                                 capture_output=True, text=True).stdout.strip()
        # Leaks of the interpreter itself are none of ours.
        return dict(os.environ, LD_PRELOAD=runtime, ASAN_OPTIONS="detect_leaks=0")

    def build_fortran(self, folder):
        """Beside the other hosts on Windows, where a program finds its DLLs."""
        source = EXAMPLES / "fortran_host/main.f90"
        link = self.options.link
        program = (self.options.bin / "fortran_host.exe" if self.windows
                   else folder / "fortran_host")
        how = ["-static"] if self.windows else [f"-Wl,-rpath,{link.parent}",
                                                "-Wl,--allow-shlib-undefined"]
        subprocess.run([self.options.fortran, "-std=f2008", "-Wall", "-Wextra", "-Werror",
                        "-J", folder, source, link, *how, "-o", program], check=True)
        return program


    def build_rust(self, folder):
        library = self.options.c_library.parent
        program = folder / "rust_api"
        subprocess.run([self.options.rust, "--edition", "2021", "-Dwarnings", "-L", library,
                        "-C", f"link-args=-Wl,-rpath,{library} -Wl,--allow-shlib-undefined",
                        EXAMPLES / "rust_api/main.rs", "-o", program], check=True)
        return program


def numbers(text):
    """Width and height in what a host prints."""
    width, height = text.splitlines()[0].split(" pixels")[0].split(" x ")
    return float(width), float(height)


def frame_of(path):
    """Width and height of a metafile's frame, in hundredths of a millimetre."""
    head = path.read_bytes()[:44]
    assert head[40:44] == b" EMF", path
    left, top, right, bottom = struct.unpack("<4i", head[24:40])
    assert (left, top) == (0, 0), path
    return right, bottom


def check_same_metafiles(hosts, folder):
    """Hosts of every language write the same file. Returns the size in pixels."""
    env = hosts.foreign_environment()
    fortran = hosts.build_fortran(folder)
    printed = {
        "cpp": hosts.host("cpp_host", FORMULA, folder / "cpp.wmf"),
        "c": hosts.host("c_host", FORMULA, folder / "c.wmf"),
        "fortran": hosts.run(fortran, FORMULA, folder / "fortran.wmf", env=env),
    }
    if not hosts.windows:
        printed["python"] = hosts.run("/usr/bin/python3", EXAMPLES / "python_host/render.py",
                                      hosts.options.library, FORMULA, folder / "python.wmf",
                                      env=env)
    assert len(set(printed.values())) == 1, printed
    files = {name: (folder / f"{name}.wmf").read_bytes() for name in printed}
    assert len(set(files.values())) == 1, "the hosts wrote different metafiles"

    width, height = numbers(printed["cpp"])
    # 508 mm of the screen are 1920 pixels.
    frame = frame_of(folder / "cpp.wmf")
    assert frame == (int(width * 50800 / 1920 + 0.5), int(height * 28600 / 1080 + 0.5)), frame
    return width, height


def check_archive_host(hosts, folder, width, height):
    printed = hosts.host("archive_host", FORMULA, folder / "archive.bin")
    large_width, large_height = numbers(printed)
    # 20 points against 12: the signs grow, the gaps between them stay what they are.
    assert 1.2 < large_width / width < 1.67 and 1.2 < large_height / height < 1.67, printed
    stored = (folder / "archive.bin").read_bytes()
    assert b"\x05Arial" in stored and struct.pack("<i", -20) in stored
    assert f"{len(stored)} damaged files refused" in printed, printed
    return large_width, large_height


def check_cairo_host(hosts, folder, large_size):
    """Its format is the archive host's, its picture twice as large."""
    printed = hosts.host("cairo_host", FORMULA, folder / "cairo.png")
    width, height = numbers(printed)
    assert (width, height) == large_size, (printed, large_size)
    png = (folder / "cairo.png").read_bytes()
    assert png[:8] == b"\x89PNG\r\n\x1a\n"
    assert struct.unpack(">2I", png[16:24]) == (2 * width + 40, 2 * height + 40)


def check_c_interface(hosts, folder):
    """Every language gets the same picture; a text that is read in part is told."""
    printed = hosts.host("c_api", FORMULA, folder / "c.svg")
    assert "sum" in (folder / "c.svg").read_text(), "no words in the picture"
    told = hosts.host("c_api", "2x", folder / "half.png")
    assert "Error at Position 2\n  2x\n   ^" in told.replace("\r", ""), told
    if hosts.options.rust:
        spoken = hosts.run(hosts.build_rust(folder), FORMULA, folder / "rust.svg",
                           env=hosts.foreign_environment()).splitlines()
        assert spoken[0] == printed and "the square root of x" in spoken[1], spoken
        assert spoken[2].startswith("no value: "), spoken
        words = hosts.run(hosts.build_rust(folder), "(2+3)/4", folder / "rust.svg",
                          env=hosts.foreign_environment())
        assert words.endswith("= 1.25"), words
        hosts.host("c_api", "(2+3)/4", folder / "c.svg")
        # Behind their first line, which tells of a background.
        c, rust = ((folder / f"{name}.svg").read_text() for name in ("c", "rust"))
        assert c.split("<g", 1)[1] == rust.split("<g", 1)[1]


def rows_with_ink(path):
    """The rows of a picture of 32 bits a pixel, from the top: whether one is not all white."""
    data = path.read_bytes()
    offset, = struct.unpack_from("<I", data, 10)
    width, height = struct.unpack_from("<2i", data, 18)
    rows = [data[offset + row * width * 4:offset + (row + 1) * width * 4]
            for row in range(height)]
    ink = [any(row[i:i + 3] != b"\xff\xff\xff" for i in range(0, len(row), 4)) for row in rows]
    return width, ink[::-1]


def check_gdi_host(hosts, folder, width, height):
    """The formula above, the host's own line of text below."""
    printed = hosts.host("gdi_host", FORMULA, folder / "gdi.bmp")
    assert numbers(printed) == (width, height), printed
    picture_width, ink = rows_with_ink(folder / "gdi.bmp")
    margin, bottom = 10, int(height) + 10
    assert (picture_width, len(ink)) == (width + 20, height + 40)
    assert sum(ink[margin:bottom]) > height * 0.8, ink
    assert not any(ink[:margin]) and not any(ink[bottom + 1:bottom + margin]), ink
    assert any(ink[bottom + margin:]), "no line of text"


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--bin", type=pathlib.Path, required=True)
    options.add_argument("--library", required=True)
    options.add_argument("--link", type=pathlib.Path, required=True, help="what a linker is given")
    options.add_argument("--fortran", required=True, help="compiler")
    options.add_argument("--rust", help="compiler")
    options.add_argument("--c-library", type=pathlib.Path, help="the C interface")
    options.add_argument("--runner", help="starts Windows programs")
    options.add_argument("--sanitized", action="store_true")
    hosts = Hosts(options.parse_args())

    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        size = check_same_metafiles(hosts, folder)
        large_size = check_archive_host(hosts, folder, *size)
        check_c_interface(hosts, folder)
        if hosts.windows:
            check_gdi_host(hosts, folder, *size)
        else:
            check_cairo_host(hosts, folder, large_size)
    print("the hosts agree")


if __name__ == "__main__":
    sys.exit(main())
