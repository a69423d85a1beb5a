#!/usr/bin/env python3
"""A Python host, through the C function and ctypes alone.

    render.py libmivora.so 'a/b' fraction.wmf
"""
import ctypes
import sys


def load(path):
    """The library with the types of its one C function."""
    library = ctypes.CDLL(path)
    function = library.StringToEMFFormula
    function.argtypes = [ctypes.c_char_p, ctypes.c_char_p,
                         ctypes.POINTER(ctypes.c_float), ctypes.POINTER(ctypes.c_float)]
    function.restype = ctypes.c_int
    return function


def render(function, text, path):
    """Writes the metafile and returns the formula's width and height in screen pixels."""
    width, height = ctypes.c_float(), ctypes.c_float()
    function(text.encode("cp1252"), path.encode(), ctypes.byref(width), ctypes.byref(height))
    return width.value / 22, height.value / 22


def main():
    if len(sys.argv) != 4:
        sys.exit("usage: render.py LIBRARY FORMULA FILE.wmf")
    width, height = render(load(sys.argv[1]), sys.argv[2], sys.argv[3])
    print(f"{width:g} x {height:g} pixels")


if __name__ == "__main__":
    main()
