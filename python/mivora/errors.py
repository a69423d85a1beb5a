"""What can be wrong with a formula."""

from __future__ import annotations

from typing import Any, Optional, Tuple


class FormulaError(ValueError):
    """Nothing can be made of a text, of bytes, or with an option.

    Attributes:
        message: one sentence without its final point.
        position: of the character in the text, from 1; None if it is no matter of one character.
        excerpt: the text around the place and marks below it, on two lines; "" without a place.
        status: the number of the error in the C interface.
    """

    def __init__(self, message: str, *, position: Optional[int] = None, excerpt: str = "",
                 status: int = 0) -> None:
        super().__init__(message)
        self.message = message
        self.position = position
        self.excerpt = excerpt
        self.status = status

    def __str__(self) -> str:
        return f"{self.message}\n{self.excerpt}" if self.excerpt else self.message

    def __reduce__(self) -> Tuple[Any, ...]:
        return _remake, (self.message, self.position, self.excerpt, self.status)


def _remake(message: str, position: Optional[int], excerpt: str, status: int) -> FormulaError:
    return FormulaError(message, position=position, excerpt=excerpt, status=status)


class FormulaWarning(UserWarning):
    """A text could be read in part only, or a part of it is not in the picture."""
