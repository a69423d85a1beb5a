"""The shared library: where it is found, and its functions with their types.

Nothing here is meant for users of the package.
"""

from __future__ import annotations

import ctypes
import ctypes.util
import os
import pathlib
import sys
from ctypes import POINTER, c_char_p, c_double, c_int, c_size_t, c_void_p
from typing import Callable, Optional, Tuple

from .errors import FormulaError

OK, SYNTAX_ERROR = 0, 3
TREE_JSON, LAYOUT_JSON, MATHML, LATEX, SPEECH, FORTRAN = range(6)

_DEBIAN_PACKAGES = "libcairo2 libfreetype6 libfontconfig1 libgsf-1-114 libdeflate0 zlib1g"


class Error(ctypes.Structure):
    """mivora_error."""

    _fields_ = [("status", c_int), ("position", c_size_t),
                ("message", c_char_p), ("excerpt", c_char_p)]

    def exception(self) -> FormulaError:
        """The same as an exception."""
        return FormulaError(_text(self.message), position=int(self.position) or None,
                            excerpt=_text(self.excerpt), status=int(self.status))


class Look(ctypes.Structure):
    """mivora_look."""

    _fields_ = [("struct_size", c_size_t), ("points", c_int), ("greek", c_int), ("face", c_char_p)]


class Paint(ctypes.Structure):
    """mivora_paint."""

    _fields_ = [("struct_size", c_size_t), ("dpi", c_int), ("margin", c_int), ("exact", c_int),
                ("boxes", c_int), ("grayed", c_int), ("transparent", c_int), ("no_source", c_int),
                ("color", c_char_p), ("background", c_char_p)]


class Size(ctypes.Structure):
    """mivora_size."""

    _fields_ = [("width", c_double), ("height", c_double), ("axis", c_double),
                ("depth", c_double), ("em", c_double)]


_BYTES = (POINTER(c_void_p), POINTER(c_size_t))
# Name, what it gives, what it takes.
_FUNCTIONS: Tuple[Tuple[str, object, Tuple[object, ...]], ...] = (
    ("mivora_version", c_char_p, ()),
    ("mivora_last_error", c_int, (POINTER(Error),)),
    ("mivora_free", None, (c_void_p,)),
    ("mivora_formula_from_text", c_int, (c_char_p, c_size_t, POINTER(Look), POINTER(c_void_p))),
    ("mivora_formula_from_fml", c_int, (c_char_p, c_size_t, POINTER(Look), POINTER(c_void_p))),
    ("mivora_formula_free", None, (c_void_p,)),
    ("mivora_formula_problem", c_int, (c_void_p, POINTER(Error))),
    ("mivora_formula_text", c_int, (c_void_p, *_BYTES)),
    ("mivora_formula_size", c_int, (c_void_p, POINTER(Paint), POINTER(Size))),
    ("mivora_formula_picture", c_int,
     (c_void_p, c_char_p, POINTER(Paint), *_BYTES, POINTER(Size))),
    ("mivora_picture_source", c_int, (c_char_p, c_size_t, *_BYTES)),
    ("mivora_formula_fml", c_int, (c_void_p, *_BYTES)),
    ("mivora_formula_write", c_int, (c_void_p, c_int, *_BYTES)),
    ("mivora_calculate", c_int, (c_char_p, c_size_t, POINTER(c_double))),
)


def _candidates() -> Tuple[str, ...]:
    """What is tried, in turn: what the user says, what came with the package, the system's own."""
    told = os.environ.get("MIVORA_LIBRARY")
    if told:
        return (told,)
    windows = sys.platform == "win32"
    beside = pathlib.Path(__file__).parent / "_native"
    names = sorted(beside.glob("bin/mivora-c.dll" if windows else "lib*/**/libmivora-c.so*"))
    found = ctypes.util.find_library("mivora-c")
    system = found or ("mivora-c.dll" if windows else "libmivora-c.so.0")
    return (*map(str, names[:1]), system)


def _load() -> ctypes.CDLL:
    failures = []
    for path in _candidates():
        try:
            library = ctypes.CDLL(path)
        except OSError as error:
            failures.append(str(error))
            continue
        for name, result, arguments in _FUNCTIONS:
            function = getattr(library, name)
            function.restype = result
            function.argtypes = arguments
        return library
    raise ImportError(
        "the library of mivora cannot be loaded: " + "; ".join(failures) + "\nOn Debian it needs "
        + _DEBIAN_PACKAGES + " (apt-get install " + _DEBIAN_PACKAGES + ")")


LIBRARY = _load()


def _text(raw: Optional[bytes]) -> str:
    return (raw or b"").decode("utf-8", "replace")


def check(status: int) -> None:
    """Raises what the library says of the call that gave this status; nothing for success."""
    if status != OK:
        raise last_error()


def last_error() -> FormulaError:
    """What the library says of this thread's last call."""
    error = Error()
    LIBRARY.mivora_last_error(ctypes.byref(error))
    return error.exception()


def take(function: Callable[..., int], *arguments: object, behind: Tuple[object, ...] = ()) -> bytes:
    """The bytes that a function gives, as an object of our own."""
    data, size = c_void_p(), c_size_t()
    check(function(*arguments, ctypes.byref(data), ctypes.byref(size), *behind))
    try:
        return ctypes.string_at(data.value or 0, size.value)
    finally:
        LIBRARY.mivora_free(data)
