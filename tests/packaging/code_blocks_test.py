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
{includes}
void Sample(CFormulaOut& formula, CDC& dc, int x, int y{parameter})
{{
    {{
{body}
    }}
    (void)formula, (void)dc, (void)x, (void)y{use};
}}
"""
CAIRO = {"parameter": ", cairo_t* pCairo", "use": ", (void)pCairo"}
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def cpp_unit(text, windows):
    if "int main(" in text:
        return text
    includes = re.findall(r"^#include.*\n", text, re.MULTILINE)
    body = re.sub(r"^#include.*\n", "", text, flags=re.MULTILINE)
    # A name that is declared to be looked at only is no fault of a sample.
    body += "".join("(void)%s;" % name for name in re.findall(r"^CRect (\w+) =", text, re.MULTILINE))
    if not windows:
        includes.append("#include <mivora/platform/gdi/cairo_dc.h>\n")
    return FRAME.format(includes="".join(includes), body=body,
                        **dict.fromkeys(CAIRO, "") if windows else CAIRO)


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--include", required=True)
    options.add_argument("--compiler", required=True)
    options.add_argument("--windows", action="store_true")
    options.add_argument("files", nargs="+", type=pathlib.Path)
    options = options.parse_args()
    words = [options.compiler, *WARNINGS, f"-I{options.include}", "-fsyntax-only", "-"]
    if not options.windows:
        words += subprocess.check_output(["pkg-config", "--cflags", "cairo"], text=True).split()
    count = 0
    for language, text in BLOCK.findall("".join(file.read_text() for file in options.files)):
        if language == "python":
            ast.parse(text)
        elif language in ("cpp", "c") and not (options.windows and "cairo" in text):
            source, how = "#include <mivora/mivora.h>\n" + text, ["-std=c11", "-xc"]
            if language == "cpp":
                source, how = cpp_unit(text, options.windows), ["-std=c++20", "-xc++"]
            done = subprocess.run(words[:1] + how + words[1:], input=source, text=True, capture_output=True)
            assert done.returncode == 0, text + done.stderr
        else:
            continue
        count += 1
    assert count >= 8, count
    print(f"{count} pieces of code")


if __name__ == "__main__":
    main()
