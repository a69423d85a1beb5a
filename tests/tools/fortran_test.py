#!/usr/bin/python3
"""The FORTRAN form of a formula, compiled by a FORTRAN compiler, has the calculator's value."""
import math
import re
import subprocess

import program
from program import Case

FORMULAS = [
    "1.5+2.25-0.125", "2-3-4", "(1-2)-3", "-1.5+4",
    "1.5*2.5/3.5", "8/4/2", "8/(4/2)", "1/3+2/3*5", "2*(3+4)*(5-6)", "(1+2)/(3+4)", "1/(2+3/(4+5/6))",
    "1.5^2", "2^(1+2)", "(1+2)^(0.5)", "2^0.5*3^(1/3)", "(2^3)^2", "2^(3^2)", "(2/3)^4", "1.5^(-2)",
    "sqr(2)", "sqr(1+sqr(2+sqr(3)))", "exp(1)", "exp(1.5-2)", "sin(1+2)", "cos(1/2+0.25)",
    "tan(0.5+0.25)", "arcsin(0.5)", "arccos(0.25)", "arctan(2)", "sinh(0.5+1)", "cosh(0.5+1)",
    "tanh(0.5+1)", "ln(1.5+2)", "log(10+2)", "arsinh(1.5+2)", "arcosh(1.5+2)", "artanh(0.25+0.5)",
    "sin(1+2)^2+cos(1+2)^2", "exp(-(1.5^2)/2)/sqr(2*3.14159)", "(1+2*(3-4/(5+6^2)))/(7-sqr(8+9))",
    # Continuation lines, with breaks inside of numbers and names
    "+".join(f"{n}.{n}{n}{n}" for n in range(1, 60)),
    "*".join(f"({n}.125+sqr({n}.5))" for n in range(1, 12)),
    "-".join(f"sin({n}.25+0.5)/{n}" for n in range(1, 30)),
]

# In FORTRAN 1/2 is 0 and SQRT(2) no expression: numbers have a point, but for exponents.
FORMULAS = [re.sub(r"(?<![\d.^])(\d+)(?![\d.])", r"\1.0", formula) for formula in FORMULAS]


def statement(text):
    """An assignment: the form starts with the six columns of a statement label."""
    assert text.startswith(" " * 6)
    return "      VALUE =\n     +" + text[6:].replace("\r\n", "\n") + "\n      PRINT *, VALUE\n"


class Fortran(Case):
    def lines(self, command):
        return self.told(command, "--lines", "--strict", stdin="\n".join(FORMULAS).encode()).splitlines()

    def test_the_compiler_gets_the_calculators_values(self):
        texts = [text.replace("\\x0D\\x0A", "\r\n") for text in self.lines("text")]
        self.assertGreater(sum("\r\n     +" in text for text in texts), 3)
        self.assertLessEqual(max(len(line) for text in texts for line in text.split("\r\n")), 72)
        (self.folder / "values.f").write_text("      PROGRAM VALUES\n      DOUBLE PRECISION VALUE\n"
                                              + "".join(map(statement, texts)) + "      END\n")
        # Numbers stand as they were typed: they are to be double precision.
        subprocess.run(["gfortran", "-std=legacy", "-ffixed-form", "-fdefault-real-8", "-fdefault-double-8",
                        "values.f", "-o", "values"], cwd=self.folder, check=True)
        values = subprocess.check_output(self.folder / "values", text=True).split()
        for formula, answer, compiled in zip(FORMULAS, self.lines("calc"), values, strict=True):
            value, position, message = answer.split("\t")
            self.assertEqual((position, message), ("0", ""), formula)
            self.assertTrue(math.isclose(float(value), float(compiled), rel_tol=1e-14), (formula, compiled))


if __name__ == "__main__":
    program.main()
