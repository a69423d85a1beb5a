"""Many formulas, on as many processors and machines as there are."""

from __future__ import annotations

import warnings
from typing import Any, Dict, Iterable, Iterator, NamedTuple, Optional, Tuple

from .errors import FormulaError, FormulaWarning
from .formula import Formula


class Made(NamedTuple):
    """What became of one text."""

    text: str
    data: Optional[bytes]  # None where nothing can be made of the text
    error: Optional[FormulaError]  # None for a text that was read and shown as a whole


class Batch(Iterator[Made]):
    """Pictures that are made when they are asked for. What is left of them can be sent to another
    process: it is made then."""

    def __init__(self, made: Iterable[Made]) -> None:
        self._made = iter(made)

    def __next__(self) -> Made:
        return next(self._made)

    def __reduce__(self) -> Tuple[Any, ...]:
        rest = list(self._made)
        self._made = iter(rest)
        return Batch, (rest,)


def batch(texts: Iterable[str], format: str = "svg", *, size: Optional[int] = None,
          font: Optional[str] = None, color: Optional[str] = None,
          background: Optional[str] = "white", greek: bool = True, **options: Any) -> Batch:
    """Makes a picture of each text, in order: one `Made` for each, whatever is wrong with it.

    It takes a text only when a picture is asked for, and keeps none: the texts may come from a file
    of any length. It is a plain function of a module, made to be sent to other processes, as
    ``map_partitions`` of a Dask bag does.

    Args:
        texts: formulas.
        format: "svg", "png", "pdf", "bmp", "emf", "wmf" or "fml".
        size, font, color, background, greek: as for `Formula`.
        options: as for the format's operation, such as ``dpi=300``.

    Raises:
        FormulaError: an option or the format is wrong; that is told at once.
    """
    look: Dict[str, Any] = {"size": size, "font": font, "color": color,
                            "background": background}
    Formula("", **look).picture(format, **options)
    return Batch(_made(text, format, options, greek=greek, **look) for text in texts)


def _made(text: str, format: str, options: Any, **look: Any) -> Made:
    try:
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", FormulaWarning)
            formula = Formula(text, **look)
        return Made(text, formula.picture(format, **options), formula.error)
    except FormulaError as error:
        return Made(text, None, error)
