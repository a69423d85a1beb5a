"""Formula texts for the comparison of backends: those of the tests, those that fuzzing kept, and
generated ones that use every keyword and sign of the language. Always the same list."""

import random
import re
from pathlib import Path

ARGUMENT_COUNTS = {
    **dict.fromkeys("abs sqr sinh cosh tanh coth arctan arccot ln exp sin cos tan cot arcsin arccos "
                    "arsinh arcosh artanh arcoth greek".split(), 1),
    "log": 2, "nsqr": 2, "mark": 2, "brace": 2, "sum": 3, "int": 4,
}
OPERATORS = ["+", "-", "*", "/", "^", "=", "<", ">", "<=", ">=", "<>", ","]
# All bytes above ASCII are letters, or not, to the parser; the faces have a glyph for most.
LETTERS = "abcxyzABGXYZ\xe4\xdf\xb5\xd7"


class Generator:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def atom(self):
        r = self.random
        return r.choice([
            r.choice(LETTERS) * r.choice([1, 1, 2]),
            str(r.randrange(1000)),
            "%d.%d" % (r.randrange(100), r.randrange(100)),
            "1.5e-%d" % r.randrange(9),
            "str('%s')" % r.choice(["text", "a b", "Wi gf", "\xc4"]),
            r.choice(["3rad", "rad", "45deg", "deg"]),
        ])

    def formula(self, depth):
        r = self.random
        if depth <= 0 or r.random() < 0.15:
            return self.atom()
        form = r.choice(["keyword", "keyword", "operator", "operator", "(%s)", "-%s"])
        if form == "keyword":
            name = r.choice(list(ARGUMENT_COUNTS))
            count = ARGUMENT_COUNTS[name] + r.choice([0, 0, 0, 0, -1, 1])
            return "%s(%s)" % (name, ",".join(self.formula(depth - 1) for _ in range(count)))
        if form == "operator":
            return self.formula(depth - 1) + r.choice(OPERATORS) + self.formula(depth - 1)
        return form % self.formula(depth - 1)


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
    generated = [Generator(seed).formula(1 + seed % 5).encode("latin-1")
                 for seed in range(400)]
    return [text for text in lines + texts_of_tests(source) + corpus(source, 300) + generated
            if text]
