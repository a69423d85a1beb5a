"""What object files and libraries of both systems define and export."""
import subprocess
import sys


def lines_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


def defined_names(path, *words):
    """The external symbols that an object file defines."""
    tool = "x86_64-w64-mingw32-nm" if str(path).endswith(".obj") else "nm"
    return {line.split(" ", 2)[2] for line in lines_of(tool, *words or ["-g"], "--defined-only", path)}


def exported_names(path):
    if not str(path).endswith(".dll"):
        return defined_names(path, "-D")
    import pefile
    with pefile.PE(path) as image:
        return {entry.name.decode() for entry in image.DIRECTORY_ENTRY_EXPORT.symbols}


def check_exports(path, wanted):
    names = exported_names(path)
    print(f"{len(names)} exported names")
    if names != wanted:
        sys.exit(f"surplus: {sorted(names - wanted)}\nmissing: {sorted(wanted - names)}")
