#!/usr/bin/env python3
"""Installs the build into an empty folder and uses it from there: the command line, the CMake
package, pkg-config, and every header on its own."""
import argparse
import os
import pathlib
import subprocess
import tempfile

CONSUMER = pathlib.Path(__file__).parent / "consumer"
# Without the check of dynamic types: it asks for type information that is not exported.
SANITIZERS = ("-fsanitize=address,undefined", "-fno-sanitize=vptr")


def run(*command, cwd=None, env=None):
    done = subprocess.run([str(word) for word in command], cwd=cwd, env=env,
                          capture_output=True, text=True)
    if done.returncode != 0:
        raise SystemExit(f"{command}\n{done.stdout}\n{done.stderr}")
    return done.stdout.strip()


def check_headers(prefix, compiler):
    """Each installed header stands alone."""
    include = prefix / "include"
    headers = sorted((include / "mivora").rglob("*.h"))
    assert len(headers) > 20, headers
    flags = run("pkg-config", "--cflags", "cairo").split()
    source = "".join(f'#include "{header}"\n' for header in headers)
    # Alone: one translation unit each. Together: in both orders.
    units = [f'#include "{header}"\n' for header in headers] + [
        source, "\n".join(reversed(source.splitlines())) + "\n"]
    for unit in units:
        subprocess.run([compiler, "-std=c++20", "-Wall", "-Wextra", "-Werror", "-fsyntax-only",
                        f"-I{include}", f"-I{include}/mivora", *flags, "-xc++", "-"],
                       input=unit, text=True, check=True)
    print(f"{len(headers)} headers stand alone")


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--build", type=pathlib.Path, required=True)
    options.add_argument("--compiler", required=True)
    options.add_argument("--sanitized", action="store_true")
    options = options.parse_args()
    flags = [f"-DCMAKE_CXX_FLAGS={' '.join(SANITIZERS)}"] if options.sanitized else []

    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        prefix = folder / "prefix"
        run("cmake", "--install", options.build, "--prefix", prefix)

        # Away from every folder of the build: fonts are found from the program's own place.
        size = run(prefix / "bin/mivora", "render", "a/b", "-o", folder / "tool.wmf", cwd="/")
        assert len(size.split()) == 2, size
        faces = dict(line.split("\t") for line in run(prefix / "bin/mivora", "fonts").splitlines())
        assert faces["MT Extra"].startswith(str(prefix)), faces

        build = folder / "consumer"
        run("cmake", "-S", CONSUMER, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}",
            f"-DCMAKE_CXX_COMPILER={options.compiler}", *flags)
        run("cmake", "--build", build)
        for program in ("with_shared", "with_core"):
            run(build / program, folder / f"{program}.wmf")
            assert (folder / f"{program}.wmf").read_bytes() == (folder / "tool.wmf").read_bytes()

        env = dict(os.environ, PKG_CONFIG_PATH=str(next(prefix.rglob("pkgconfig"))))
        words = run("pkg-config", "--cflags", "--libs", "mivora", env=env).split()
        library_dir = next(prefix.rglob("libmivora.so")).parent
        run(options.compiler, "-std=c++20", *(SANITIZERS if options.sanitized else ()),
            CONSUMER / "main.cpp", "-o", folder / "with_pkg_config", *words,
            f"-Wl,-rpath,{library_dir}")
        run(folder / "with_pkg_config", folder / "pkg_config.wmf")

        check_headers(prefix, options.compiler)


if __name__ == "__main__":
    main()
