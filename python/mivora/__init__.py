"""Mathematical formulas: from one line of text to a picture, to other forms, to a number.

    >>> import mivora
    >>> formula = mivora.Formula("(a+b)/sqr(x)")
    >>> formula.save("formula.png", dpi=300)
    >>> formula.latex()
    '\\\\frac{a+b}{\\\\sqrt{x}}'

Shapes and sizes are in pixels at 96 dots per inch unless a resolution is given. Any thread may use
any object; one call at a time is inside the library.
"""

from .errors import FormulaError, FormulaWarning
from .formula import Formula, Size, calculate, read, version
from .many import Batch, Made, batch

__version__ = version()
__all__ = ["Batch", "Formula", "FormulaError", "FormulaWarning", "Made", "Size", "batch", "calculate",
           "read", "version"]
