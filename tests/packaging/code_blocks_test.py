#!/usr/bin/env python3
"""Compiles every piece of code of the documentation, without a warning.

    code_blocks_test.py --include FOLDER --compiler C++ [--windows] FILE.md ...

Whole programs stand as they are. Other pieces of C++ stand in a function that has what they take for
granted; the names that one declares itself hide these.
"""
import argparse
import ast
import pathlib
import re
import subprocess

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.DOTALL | re.MULTILINE)
FRAME = """#include <mivora/mivora.h>
#include <mivora/service/formula_doc.h>
%s
void Sample(CFormulaOut& formula, CDC& dc, int x, int y%s)
{
    {
%s
    }
    (void)formula, (void)dc, (void)x, (void)y%s;
}
"""
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def cpp_unit(text, windows):
    if "int main(" in text:
        return text
    lines = text.splitlines()
    includes = [line for line in lines if line.startswith("#include")]
    body = [line for line in lines if line not in includes]
    # A name that is declared to be looked at only is no fault of a sample.
    body += ["    (void)%s;" % name for name in re.findall(r"^CRect (\w+) =", text, re.MULTILINE)]
    cairo = ("", "") if windows else (", cairo_t* pCairo", ", (void)pCairo")
    if not windows:
        includes.append("#include <mivora/platform/gdi/cairo_dc.h>")
    return FRAME % ("\n".join(includes), cairo[0], "\n".join(body), cairo[1])


class Compiler:
    def __init__(self, options):
        self.compiler = options.compiler
        self.windows = options.windows
        self.include = [f"-I{options.include}"]
        if not options.windows:
            self.include += subprocess.run(["pkg-config", "--cflags", "cairo"], check=True,
                                           capture_output=True, text=True).stdout.split()

    def compile(self, text, *words):
        done = subprocess.run([self.compiler, *words, *WARNINGS, *self.include, "-fsyntax-only", "-"],
                              input=text, text=True, capture_output=True)
        return done.stderr if done.returncode else None

    def check(self, language, text):
        """What is wrong with a piece; None if nothing is."""
        if language == "cpp":
            return self.compile(cpp_unit(text, self.windows), "-std=c++20", "-xc++")
        if language == "c":
            return self.compile("#include <mivora/mivora.h>\n" + text, "-std=c11", "-xc")
        if language == "python":
            ast.parse(text)
        return None


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--include", required=True)
    options.add_argument("--compiler", required=True)
    options.add_argument("--windows", action="store_true")
    options.add_argument("files", nargs="+", type=pathlib.Path)
    options = options.parse_args()
    compiler = Compiler(options)
    count = 0
    for file in options.files:
        for language, text in BLOCK.findall(file.read_text()):
            if compiler.windows and "cairo" in text:
                continue
            wrong = compiler.check(language, text)
            assert wrong is None, f"{file.name}:\n{text}\n{wrong}"
            count += language in ("cpp", "c", "python")
    assert count >= 8, count
    print(f"{count} pieces of code")


if __name__ == "__main__":
    main()
