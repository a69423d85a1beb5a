#!/usr/bin/env python3
"""What stands in the DLLs beside their code, read by a library that knows nothing of ours:
windows_files_test.py VERSION DLL..."""
import pathlib
import re
import sys

import pefile

# Every Windows has them. No run-time library of a compiler is among them.
SYSTEM = {"gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "user32.dll", "shell32.dll",
          "advapi32.dll", "comctl32.dll"}
# The C++ library's own names, and variables inside of functions. A host that bound them to ours
# would break with the next compiler.
INTERNAL = re.compile(r"_Z(T[A-Z]P?|NK?)?N?(S[a-z]|9__gnu_cxx|10__cxxabiv1).*|_ZZ.*|_ZGV.*"
                      r"|_ZT[ISV]Z.*|(?!_Z|Afx|g_).*")


def check_class_library(image):
    """Our classes, and the C functions by their plain names."""
    names = {entry.name.decode() for entry in image.DIRECTORY_ENTRY_EXPORT.symbols}
    internal = sorted(name for name in names if INTERNAL.fullmatch(name))
    assert not internal, internal
    promised = {"AfxSetMessageBoxHandler", "AfxGetMessageCodePage", "_ZTI17CArchiveException", "_ZTIP17CArchiveException",
                "_ZTV17CArchiveException", "_ZN10CException6DeleteEv", "_ZN3CDC10FromHandleEP5HDC__",
                "_ZN7CStringC1EPKc", "_ZN8CArchive5CloseEv", "g_emptyString"}
    assert promised <= names, promised - names


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
            foreign = {entry.dll.decode().lower() for entry in image.DIRECTORY_ENTRY_IMPORT} - SYSTEM - own
            assert not foreign, (path.name, foreign)
            fixed, texts = version_texts(image)
            assert fixed == (*map(int, version.split(".")), 0), (path.name, fixed)
            assert texts["FileVersion"] == texts["ProductVersion"] == version, texts
            assert texts["OriginalFilename"] == path.name and texts["ProductName"] == "Mivora"
            assert texts["FileDescription"], texts
            if path.name == "mivora-platform.dll":
                check_class_library(image)
            # 64 bits, and a DLL.
            assert image.FILE_HEADER.Machine == 0x8664 and image.is_dll(), path.name
    print(f"{len(paths)} files")


if __name__ == "__main__":
    main()
