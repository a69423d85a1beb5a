"""A formula, and everything that can be made of it."""

from __future__ import annotations

import base64
import ctypes
import html
import json
import os
import pathlib
import warnings
from typing import Any, Dict, NamedTuple, Optional, Tuple, Union

from . import _library as lib
from .errors import FormulaError, FormulaWarning

FORMATS = ("svg", "png", "pdf", "bmp", "emf", "wmf", "fml")
_METAFILES = ("emf", "wmf")

PathLike = Union[str, "os.PathLike[str]"]


class Size(NamedTuple):
    """How large a picture is, in pixels of the picture."""

    width: float
    height: float


class Formula:
    """A mathematical formula, made from one line of text.

    A text that can be read in part only is no failure: the formula is then what could be
    understood, ``error`` tells the rest, and a `FormulaWarning` is issued.

    Args:
        text: the formula, such as ``"(a+b)/sqr(x)"``.
        size: of the letters in points, 4 to 400; 12 without it.
        font: the face of letters, figures and names; "Times New Roman" without it.
        color: a name such as "red", "#rgb", "#rrggbb", or "currentColor" for SVG; black without
            it. Metafiles keep black.
        background: the same for what lies behind; None is nothing: transparent. Metafiles keep
            white.
        greek: Greek letters in the text are read as such (without it they are refused).
        strict: a text that is not read and shown as a whole raises instead of warning.

    Raises:
        FormulaError: nothing can be made of the text, or an option is out of range.
        TypeError: the text is no str.
    """

    def __init__(self, text: str, *, size: Optional[int] = None, font: Optional[str] = None,
                 color: Optional[str] = None, background: Optional[str] = "white",
                 greek: bool = True, strict: bool = False) -> None:
        if not isinstance(text, str):
            raise TypeError(f"a formula is made from a str, not {type(text).__name__}")
        self._options = (size, font, color, background, greek)
        raw = _encoded(text, "the text")
        self._handle = self._make(lib.LIBRARY.mivora_formula_from_text, raw)
        self._stored: Optional[bytes] = None
        problem = self.error
        if problem is not None:
            if strict:
                raise problem
            warnings.warn(str(problem), FormulaWarning, stacklevel=2)

    @classmethod
    def from_fml(cls, data: bytes, *, size: Optional[int] = None, font: Optional[str] = None,
                 color: Optional[str] = None, background: Optional[str] = "white") -> Formula:
        """A formula from the bytes of a stored one, which nothing is parsed of.

        Raises:
            FormulaError: the bytes are no stored formula, or damaged.
        """
        formula = cls.__new__(cls)
        formula._options = (size, font, color, background, False)
        formula._stored = bytes(data)
        formula._handle = formula._make(lib.LIBRARY.mivora_formula_from_fml, formula._stored)
        return formula

    def _make(self, function: Any, raw: bytes) -> ctypes.c_void_p:
        self._handle = ctypes.c_void_p()  # should there be none
        size, font, color, background, greek = self._options
        self._color = None if color is None else _encoded(color, "color")
        self._background = None if background is None else _encoded(background, "background")
        face = None if font is None else _encoded(font, "font")
        look = lib.Look(ctypes.sizeof(lib.Look), 0 if size is None else size, bool(greek), face)
        if size == 0:
            raise FormulaError("points is 4 to 400, not 0", status=1)
        handle = ctypes.c_void_p()
        lib.check(function(raw, len(raw), ctypes.byref(look), ctypes.byref(handle)))
        return handle

    def __del__(self) -> None:
        handle = getattr(self, "_handle", None)
        if handle:
            self._handle = ctypes.c_void_p()
            lib.LIBRARY.mivora_formula_free(handle)

    # What it is.

    @property
    def text(self) -> str:
        """The text that it was made from."""
        return self._take("mivora_formula_text").decode()

    @property
    def error(self) -> Optional[FormulaError]:
        """What could not be read of the text, or is not shown of it: position, message, excerpt.

        None for a sound text. It is an exception to be raised by whoever wants that.
        """
        problem = lib.Error()
        lib.check(lib.LIBRARY.mivora_formula_problem(self._handle, ctypes.byref(problem)))
        return problem.exception() if problem.status != lib.OK else None

    @property
    def size(self) -> Size:
        """Width and height in pixels at 96 dots per inch."""
        size = self._measure()
        return Size(size.width, size.height)

    @property
    def axis(self) -> float:
        """From the top to the axis, on which fraction bars stand; pixels at 96 dots per inch."""
        return float(self._measure().axis)

    @property
    def depth(self) -> float:
        """From the line on which letters stand to the bottom; pixels at 96 dots per inch."""
        return float(self._measure().depth)

    @property
    def tree(self) -> Dict[str, Any]:
        """The nodes: dicts with "type", "symbol", "left", "right", some with "kind", "greek".

        Raises:
            FormulaError: it is nested more deeply than the reader of JSON goes (some 1,000 levels).
        """
        return self._json(lib.TREE_JSON)

    @property
    def layout(self) -> Dict[str, Any]:
        """The nodes under "root" with their places, in pixels at 96 dots per inch.

        Raises:
            FormulaError: as for the tree.
        """
        return self._json(lib.LAYOUT_JSON)

    # Pictures.

    def svg(self, *, dpi: int = 96, margin: int = 0, exact: bool = False, boxes: bool = False,
            source: bool = True) -> str:
        """The formula as SVG.

        Args:
            dpi: dots per inch, 10 to 2400; the numbers in the picture are such dots.
            margin: dots on each side, 0 to 10000.
            exact: the formula's own rectangle, whatever stands out of it.
            boxes: rectangles and axes of the nodes over the picture.
            source: text and words travel inside; `read` finds the text again.
        """
        return self._painted("svg", dpi, margin, exact, boxes, source).decode()

    def png(self, *, dpi: int = 96, margin: int = 0, exact: bool = False, boxes: bool = False,
            source: bool = True) -> bytes:
        """The formula as PNG; arguments as for `svg`."""
        return self._painted("png", dpi, margin, exact, boxes, source)

    def bmp(self, *, dpi: int = 96, margin: int = 0, exact: bool = False,
            boxes: bool = False) -> bytes:
        """The formula as BMP, which carries no source; arguments as for `svg`."""
        return self._painted("bmp", dpi, margin, exact, boxes, False)

    def pdf(self, *, dpi: int = 96, margin: int = 0, exact: bool = False, boxes: bool = False,
            source: bool = True) -> bytes:
        """The formula as a page of a PDF; arguments as for `svg`. Not on Windows (FormulaError)."""
        return self._painted("pdf", dpi, margin, exact, boxes, source)

    def emf(self, *, source: bool = True) -> bytes:
        """The formula as an enhanced metafile."""
        paint = lib.Paint(struct_size=ctypes.sizeof(lib.Paint), no_source=not source)
        return self._picture("emf", paint)

    def fml(self) -> bytes:
        """The formula as a stored one: its text, its tree and how it looks."""
        return self._take("mivora_formula_fml")

    def picture(self, format: str, **options: Any) -> bytes:
        """The formula in a format by its name ("svg", "png", "pdf", "bmp", "emf", "wmf", "fml").

        Options are those of the operation of that name.

        Raises:
            FormulaError: there is no such format, or not on this system.
        """
        name = format.lower()
        if name not in FORMATS:
            raise FormulaError(f"the format {format} is none of {', '.join(FORMATS)}", status=1)
        made: Union[str, bytes] = getattr(self, "emf" if name in _METAFILES else name)(**options)
        return made.encode() if isinstance(made, str) else made

    def save(self, path: PathLike, **options: Any) -> None:
        """Writes a file; its extension is the format. The file is whole, or stays as it was.

        Raises:
            FormulaError: no format has such an extension.
            OSError: the file cannot be written.
        """
        target = pathlib.Path(path)
        data = self.picture(target.suffix[1:], **options)
        temporary = target.with_name(f".{target.name}.{os.getpid()}")
        try:
            temporary.write_bytes(data)
            os.replace(temporary, target)
        finally:
            temporary.unlink(missing_ok=True)

    # Other forms.

    def mathml(self) -> str:
        """A math element of MathML Core."""
        return self._write(lib.MATHML)

    def latex(self) -> str:
        """What goes between dollar signs; needs the package amsmath."""
        return self._write(lib.LATEX)

    def speech(self) -> str:
        """The formula in English words."""
        return self._write(lib.SPEECH)

    def fortran(self) -> str:
        """An expression of FORTRAN, with its continuation lines."""
        return self._write(lib.FORTRAN)

    # Notebooks and the like.

    def _repr_svg_(self) -> str:
        return self.svg()

    def _repr_mimebundle_(self, include: Any = None, exclude: Any = None) -> Dict[str, str]:
        bundle = {"image/svg+xml": self.svg(), "text/latex": f"${self.latex()}$",
                  "text/plain": repr(self)}
        if self._color != b"currentColor":
            bundle["text/html"] = self._image()
        return {kind: data for kind, data in bundle.items()
                if (not include or kind in include) and (not exclude or kind not in exclude)}

    def _image(self) -> str:
        """An element of HTML: programs that take notebooks elsewhere leave an SVG of its own out."""
        data = base64.b64encode(self.svg().encode()).decode()
        return (f'<img src="data:image/svg+xml;base64,{data}" alt="{html.escape(self.speech())}" '
                f'style="display:inline;vertical-align:{-self.depth:g}px">')

    def __repr__(self) -> str:
        return f"mivora.Formula({self.text!r})"

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Formula):
            return NotImplemented
        return self._identity() == other._identity()

    def __hash__(self) -> int:
        return hash(self._identity())

    def __reduce__(self) -> Tuple[Any, ...]:
        return _unpickled, self._identity()

    def _identity(self) -> Tuple[Any, ...]:
        # The text has its Greek letters written out.
        return (self.text if self._stored is None else self._stored, self._options[:4])

    # How all that is asked of the library.

    def _take(self, function: str, *arguments: Any) -> bytes:
        return lib.take(getattr(lib.LIBRARY, function), self._handle, *arguments)

    def _write(self, form: int) -> str:
        return self._take("mivora_formula_write", form).decode()

    def _json(self, form: int) -> Dict[str, Any]:
        try:
            found: Dict[str, Any] = json.loads(self._write(form))
        except RecursionError:
            raise FormulaError("the formula is nested too deeply for a tree of dicts") from None
        return found

    def _measure(self) -> lib.Size:
        size = lib.Size()
        lib.check(lib.LIBRARY.mivora_formula_size(self._handle, None, ctypes.byref(size)))
        return size

    def _painted(self, name: str, dpi: int, margin: int, exact: bool, boxes: bool,
                 source: bool) -> bytes:
        if dpi == 0:
            raise FormulaError("dpi is 10 to 2400, not 0", status=1)
        paint = lib.Paint(struct_size=ctypes.sizeof(lib.Paint), dpi=dpi, margin=margin,
                          exact=exact, boxes=boxes, transparent=self._background is None,
                          no_source=not source, color=self._color, background=self._background)
        return self._picture(name, paint)

    def _picture(self, name: str, paint: lib.Paint) -> bytes:
        return lib.take(lib.LIBRARY.mivora_formula_picture, self._handle, name.encode(),
                        ctypes.byref(paint), behind=(None,))


def _encoded(text: str, what: str) -> bytes:
    if not isinstance(text, str):
        raise TypeError(f"{what} is a str, not {type(text).__name__}")
    try:
        return text.encode()
    except UnicodeEncodeError as error:
        raise FormulaError(f"{what} holds half of a character", position=error.start + 1,
                           status=2) from None


def _unpickled(source: Union[str, bytes], options: Tuple[Any, ...]) -> Formula:
    size, font, color, background = options
    look = {"size": size, "font": font, "color": color, "background": background}
    if isinstance(source, bytes):
        return Formula.from_fml(source, **look)
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", FormulaWarning)  # it was told when the formula was made
        return Formula(source, greek=False, **look)


_COMPOUND_FILE = b"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"


def read(source: Union[PathLike, bytes]) -> Formula:
    """The formula in a file, or in bytes: a stored formula, or the text that travels in a picture
    (SVG, PNG, PDF, metafile).

    Raises:
        FormulaError: there is no formula in it, or the data is damaged.
        OSError: the file cannot be read.
    """
    if isinstance(source, (bytes, bytearray, memoryview)):
        data = bytes(source)
    else:
        data = pathlib.Path(source).read_bytes()
    if data.startswith(_COMPOUND_FILE):
        return Formula.from_fml(data)
    text = lib.take(lib.LIBRARY.mivora_picture_source, data, len(data)).decode()
    return Formula(text, greek=False)


def calculate(text: str) -> float:
    """The value of a text without names, such as ``"2*(3+4)"``.

    Raises:
        FormulaError: not all of it could be calculated; `position` tells where it ended.
    """
    raw = _encoded(text, "the text")
    value = ctypes.c_double()
    lib.check(lib.LIBRARY.mivora_calculate(raw, len(raw), ctypes.byref(value)))
    return float(value.value)


def version() -> str:
    """The version of the library that is loaded."""
    raw: bytes = lib.LIBRARY.mivora_version()
    return raw.decode()
