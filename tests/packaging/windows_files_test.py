#!/usr/bin/env python3
"""What stands in the DLLs beside their code, read by a library that knows nothing of ours:
windows_files_test.py VERSION DLL..."""
import pathlib
import sys

import pefile

# Every Windows has them. No run-time library of a compiler is among them.
SYSTEM = {"gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "user32.dll", "shell32.dll",
          "advapi32.dll"}


def needed(image):
    return {entry.dll.decode().lower() for entry in image.DIRECTORY_ENTRY_IMPORT}


def version_texts(image):
    """The texts that the properties of a file show, and the number that installers compare."""
    number = image.VS_FIXEDFILEINFO[0]
    fixed = (number.FileVersionMS >> 16, number.FileVersionMS & 0xFFFF,
             number.FileVersionLS >> 16, number.FileVersionLS & 0xFFFF)
    texts = {}
    for block in image.FileInfo[0]:
        for table in getattr(block, "StringTable", []):
            texts |= {key.decode(): value.decode() for key, value in table.entries.items()}
    return fixed, texts


def main():
    version, paths = sys.argv[1], [pathlib.Path(path) for path in sys.argv[2:]]
    own = {path.name for path in paths}
    for path in paths:
        with pefile.PE(path) as image:
            foreign = needed(image) - SYSTEM - own
            assert not foreign, (path.name, foreign)
            fixed, texts = version_texts(image)
            assert fixed == (*map(int, version.split(".")), 0), (path.name, fixed)
            assert texts["FileVersion"] == texts["ProductVersion"] == version, texts
            assert texts["OriginalFilename"] == path.name and texts["ProductName"] == "Mivora"
            assert texts["FileDescription"], texts
            # 64 bits, and a DLL.
            assert image.FILE_HEADER.Machine == 0x8664 and image.is_dll(), path.name
    print(f"{len(paths)} files")


if __name__ == "__main__":
    main()
