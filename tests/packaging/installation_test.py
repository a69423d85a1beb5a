#!/usr/bin/env python3
"""Installs the build into an empty folder and uses it from there: the command line, the project
of the examples by the CMake package, pkg-config, and every header on its own."""
import argparse
import contextlib
import os
import pathlib
import shutil
import subprocess
import tempfile

import headers

ROOT = pathlib.Path(__file__).parents[2]
PROJECT = ROOT / "examples/project"
SANITIZERS = ("-fsanitize=address,undefined",)
C_PROJECT = """cmake_minimum_required(VERSION 3.25)
project(CApi C)
find_package(Mivora REQUIRED)
add_executable(c_api %s)
target_link_libraries(c_api PRIVATE Mivora::c)
"""
FORMULA = "sqr(x)+greek p"  # signs of the face "Symbol", of which no system has the like by chance


def run(*command, cwd=None, env=None):
    done = subprocess.run([str(word) for word in command], cwd=cwd, env=env,
                          capture_output=True, text=True)
    if done.returncode != 0:
        raise SystemExit(f"{command}\n{done.stdout}\n{done.stderr}")
    return done.stdout.strip()


class Installation:
    """What was installed, and how its programs are started."""

    def __init__(self, options, folder):
        self.options = options
        self.folder = folder
        self.windows = options.runner is not None
        self.prefix = folder / "prefix"
        self.sanitizers = SANITIZERS if options.sanitized else ()
        run("cmake", "--install", options.build, "--prefix", self.prefix)

    def start(self, program, *arguments, **how):
        if self.windows:
            return run(self.options.runner, f"{program}.exe", *arguments, **how)
        return run(program, *arguments, **how)

    @contextlib.contextmanager
    def moved(self):
        """Where the installation is for a time, away from the place that it was made for."""
        elsewhere = self.folder / "elsewhere"
        self.prefix.rename(elsewhere)
        yield elsewhere
        elsewhere.rename(self.prefix)

    def configure(self, source, build, **how):
        words = [f"-DCMAKE_PREFIX_PATH={self.prefix}", "-DCMAKE_BUILD_TYPE=Release"]
        if self.sanitizers:
            words += [f"-DCMAKE_{language}_FLAGS={' '.join(self.sanitizers)}" for language in ("C", "CXX")]
        words.append(f"-DCMAKE_TOOLCHAIN_FILE={ROOT}/cmake/mingw-w64.cmake" if self.windows else
                     f"-DCMAKE_CXX_COMPILER={self.options.compiler}")
        run("cmake", "-S", source, "-B", build, "-G", "Ninja", *words, **how)

    def check_files(self):
        names = ["include/mivora/mivora.h", "include/mivora/mivora_c.h", "include/mivora/service/formula_out.h",
                 "share/mivora/fonts/mtextra.ttf", "share/doc/mivora/third-parties.md"]
        # Nothing of ours stands beside this one name.
        assert os.listdir(self.prefix / "include") == ["mivora"]
        if self.windows:
            names += ["bin/mivora.dll", "bin/mivora-platform.dll", "bin/mivora.exe",
                      "lib/libmivora.dll.a", "lib/libmivora-platform.dll.a", "lib/libmivora-core.a",
                      "lib/cmake/Mivora/MivoraConfig.cmake"]
        missing = [name for name in names if not (self.prefix / name).exists()]
        assert not missing, missing

    def check_tool(self):
        """Away from every folder of the build: fonts are found from the program's own place (Windows
        tells none)."""
        tool = self.prefix / "bin/mivora"
        for kind in "wmf", "fml":
            size = self.start(tool, "render", FORMULA, "-o", self.folder / f"tool.{kind}", cwd="/")
            assert len(size.split()) == 2, size
        faces = dict(line.split("\t") for line in self.start(tool, "fonts").splitlines())
        assert faces["MT Extra"].startswith("-" if self.windows else str(self.prefix)), faces

    def check_project(self):
        build = self.folder / "project"
        self.configure(PROJECT, build)
        run("cmake", "--build", build)
        # Windows programs have what they need beside them: they run where nothing is installed.
        with self.moved() if self.windows else contextlib.nullcontext():
            for program in "formula_size", "formula_size_core":
                self.check_host(build / "bin" / program)
        if not self.windows:
            # The static library knows where it was installed, or is told.
            with self.moved() as elsewhere:
                self.check_host(build / "bin/formula_size_core",
                                env=dict(os.environ, MIVORA_PREFIX=str(elsewhere)))

    def check_host(self, program, **how):
        """A host writes what the command line writes."""
        made = [self.folder / "host.wmf", self.folder / "host.fml"]
        self.start(program, FORMULA, *made, **how)
        for path in made:
            expected = self.folder / f"tool{path.suffix}"
            assert path.read_bytes() == expected.read_bytes(), path
            path.unlink()

    def check_plain_host(self):
        """Without the development files of what the library is made with."""
        if self.windows:
            return
        build = self.folder / "plain"
        self.configure(PROJECT, build, env=dict(os.environ, PKG_CONFIG_LIBDIR="/nowhere", PKG_CONFIG_PATH=""))
        targets = run("ninja", "-C", build, "-t", "targets", "all")
        assert "formula_size:" in targets and "formula_size_core" not in targets, targets

    def check_c_interface(self):
        """By the CMake package, and run from the folder of the component alone, wherever it lies."""
        source = self.folder / "c_source"
        source.mkdir()
        (source / "CMakeLists.txt").write_text(C_PROJECT % (ROOT / "examples/c_api/main.c"))
        self.configure(source, source / "build")
        run("cmake", "--build", source / "build")
        alone = self.folder / "c_alone"
        run("cmake", "--install", self.options.build, "--component", "c", "--prefix", alone)
        libraries = [path for name in ("libmivora-c.so*", "mivora-c.dll") for path in alone.rglob(name)]
        program = source / "build/c_api"
        if self.windows:
            shutil.copy(f"{program}.exe", alone / "bin")
            program = alone / "bin/c_api"
        with self.moved():
            size = self.start(program, FORMULA, self.folder / "c.svg",
                              env=dict(os.environ, LD_LIBRARY_PATH=str(libraries[0].parent)))
        assert " x " in size and (self.folder / "c.svg").stat().st_size > 1000, size
        headers = [path.name for path in (alone / "include").rglob("*.h")]
        assert headers == ["mivora_c.h"], headers

    def check_old_language(self):
        """One clear error."""
        done = subprocess.run(
            [self.options.compiler, "-std=c++17", f"-I{self.prefix}/include", "-fsyntax-only", "-xc++",
             "-"], input="#include <mivora/mivora.h>\n", text=True, capture_output=True)
        errors = [line for line in done.stderr.splitlines() if "error" in line and "#error" not in line
                  or "error:" in line]
        assert len(errors) == 1 and "-std=c++20" in errors[0], done.stderr

    def check_pkg_config(self):
        """Of the machine that the library is for; Windows programs have no path inside them."""
        env = dict(os.environ, PKG_CONFIG_PATH=str(next(self.prefix.rglob("pkgconfig"))))
        words = run("pkg-config", "--cflags", "--libs", "mivora", env=env).split()
        program = self.folder / "with_pkg_config"
        how = ["-static"] if self.windows else [
            f"-Wl,-rpath,{next(self.prefix.rglob('libmivora.so')).parent}"]
        run(self.options.compiler, "-std=c++20", PROJECT / "main.cpp", "-o",
            f"{program}.exe" if self.windows else program, *words, *how, *self.sanitizers)
        for library in (self.prefix / "bin").glob("*.dll"):
            shutil.copy(library, self.folder)
        self.check_host(program)


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--build", type=pathlib.Path, required=True)
    options.add_argument("--compiler", required=True)
    options.add_argument("--runner", help="starts Windows programs")
    options.add_argument("--sanitized", action="store_true")
    options = options.parse_args()

    with tempfile.TemporaryDirectory() as folder:
        installed = Installation(options, pathlib.Path(folder))
        installed.check_files()
        installed.check_tool()
        installed.check_project()
        installed.check_pkg_config()
        installed.check_plain_host()
        installed.check_old_language()
        installed.check_c_interface()
        headers.check(installed.prefix / "include", options.compiler, installed.windows)


if __name__ == "__main__":
    main()
