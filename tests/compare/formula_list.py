"""Formula texts for the comparison of backends: those of the tests, those that fuzzing kept, and
generated ones that use every keyword and sign of the language. Always the same list."""

import random
import re
from pathlib import Path

# % stands for another formula. Keywords have as many arguments as they take, one more or one less.
ROWS = ["%s(%s)" % (name, ",".join("%" * count)) for names, right in (
            ("abs sqr sinh cosh tanh coth arctan arccot ln exp sin cos tan cot arcsin arccos arsinh "
             "arcosh artanh arcoth greek", 1), ("log nsqr mark brace", 2), ("sum", 3), ("int", 4))
        for name in names.split() for count in (right, right, right, right - 1, right + 1)]
ROWS += ["%" + sign + "%" for sign in "+ - * / ^ = < > <= >= <> ,".split()] * 6 + ["(%)", "-%"] * 40
# All bytes above ASCII are letters, or not, to the parser; the faces have a glyph for most.
LETTERS = "abcxyzABGXYZ\xe4\xdf\xb5\xd7"
LEAVES = [*LETTERS, *LETTERS, *(letter * 2 for letter in LETTERS),
          *"7 30 512 2.5 37.25 80.99 1.5e-3 0.5e-8 3rad rad 45deg deg".split(),
          *("str('%s')" % text for text in ("text", "a b", "Wi gf", "\xc4"))]


def generated(chance, depth):
    row = chance.choice(LEAVES if depth <= 0 or chance.random() < 0.15 else ROWS)
    return re.sub("%", lambda _: generated(chance, depth - 1), row)


def texts_of_tests(source):
    """The string literals of the parser's and the service's tests: texts, good and bad."""
    found = set()
    for path in sorted([*source.glob("tests/parser/*.cpp"), *source.glob("tests/service/*.cpp")]):
        for literal in re.findall(r'"((?:[^"\\\n])+)"', path.read_text(encoding="utf-8")):
            if any(c in literal for c in "+-*/^=(,") and not literal.endswith(".h"):
                found.add(literal.encode("latin-1", "replace"))
    return sorted(found)


def corpus(source, longest):
    files = sorted((source / "fuzz/corpus/formula").iterdir())
    return [data for data in (file.read_bytes() for file in files) if 0 < len(data) <= longest]


def formula_list(source):
    lines = (source / "tests/data/formulas.txt").read_bytes().splitlines()
    made = [generated(random.Random(seed), 1 + seed % 5).encode("latin-1") for seed in range(400)]
    return [text for text in lines + texts_of_tests(source) + corpus(source, 300) + made if text]
