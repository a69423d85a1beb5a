#!/usr/bin/python3
"""What is written from formulas is well-formed for the programs that read it.

    written_forms_test.py --forms PROGRAM --data FOLDER CHECK [--runner COMMAND]

CHECK is one of
    --mathml              MathML is that of MathML Core, signs are those of the faces (--metrics: of
                          one drawn like "Symbol"), forms those of the data; with
                          --other PROGRAM_OF_THE_OTHER_SYSTEM both systems write the same
    --pdflatex PROGRAM    LaTeX compiles
    --katex FOLDER        KaTeX (katex.js there, run by node) takes it
"""
import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unicodedata
import xml.etree.ElementTree as ElementTree

from fontTools import agl
from pylatexenc.latex2text import LatexNodes2Text

NAMESPACE = "{http://www.w3.org/1998/Math/MathML}"

# Element: how many children (None: any number), which ones, which attributes.
TOKEN, ROW = "token", None
ELEMENTS = {
    "math": (ROW, None, {"display"}),
    "mrow": (ROW, None, {"class"}),
    "mi": (TOKEN, None, {"mathvariant", "style"}),
    "mn": (TOKEN, None, set()),
    "mo": (TOKEN, None, {"form", "movablelimits", "stretchy", "rspace"}),
    "mtext": (TOKEN, None, set()),
    "mfrac": (2, None, {"linethickness"}),
    "msqrt": (ROW, None, set()),
    "mroot": (2, None, set()),
    "msub": (2, None, set()),
    "msup": (2, None, set()),
    "msubsup": (3, None, set()),
    "munder": (2, None, set()),
    "mover": (2, None, {"accent"}),
    "munderover": (3, None, set()),
    "mtable": (ROW, "mtr", set()),
    "mtr": (ROW, "mtd", set()),
    "mtd": (ROW, None, set()),
}
VALUES = {
    "display": "block", "class": "placeholder", "mathvariant": "normal",
    "style": "font-style:italic", "form": "prefix|infix|postfix", "movablelimits": "false",
    "stretchy": "true|false", "rspace": r"[0-9.]+em", "linethickness": "0", "accent": "true",
    "arg": "[a-z]", "intent": r"[a-z-]+(\(\$[a-z](,\$[a-z])*\))?",
}
CODES = [bytes([code]) for code in range(1, 256) if code not in b"\t\n\r"]
LATEX_HEAD = (r"\documentclass{article}\usepackage{amsmath}\begin{document}\sloppy\hbadness=10000"
              r"\hfuzz=\maxdimen")
KATEX_SCRIPT = """
const katex = require(process.argv[1]);
const lines = require('fs').readFileSync(0, 'utf8').split('\\n').slice(0, -1);
for (const line of lines) {
  try { katex.renderToString(line, { throwOnError: true, strict: 'ignore', displayMode: true }); }
  catch (error) { console.log(line + '\\n    ' + error.message); process.exitCode = 1; }
}
"""


class Forms:
    """Rows of source, MathML, LaTeX and words."""

    def __init__(self, program, data, runner=""):
        self.command = [*(runner or "").split(), program]
        self.data = pathlib.Path(data)

    def rows(self, *words):
        done = subprocess.run([*self.command, *words], stdout=subprocess.PIPE, timeout=600, check=True)
        return [tuple(part.decode(errors="replace") for part in line.split(b"\t"))
                for line in done.stdout.replace(b"\r\n", b"\n").split(b"\n")[:-1]]

    def of_sources(self, what, sources):
        with tempfile.TemporaryDirectory() as work:
            path = pathlib.Path(work, "sources.txt")
            path.write_bytes(b"".join(source + b"\n" for source in sources))
            return self.rows(what, path)

    def characters(self):
        """Three rows for each code: alone, behind a letter, Greek."""
        return self.of_sources("text", [form % code for code in CODES for form in
                                        (b"str(\\%b)", b"str(a\\%b)", b"greek str(\\%b)")])

    def all(self):
        return (self.characters() + self.rows("sketch", self.data / "sketches.txt")
                + self.rows("text", self.data / "formulas.txt") + self.rows("random", "1500"))


def check_element(element, may_be_empty):
    name = element.tag.removeprefix(NAMESPACE)
    assert name in ELEMENTS and element.tag != name, element.tag
    count, child, attributes = ELEMENTS[name]
    children = list(element)
    if count == TOKEN:
        assert not children and (element.text or may_be_empty), name
    else:
        assert count in (None, len(children)), f"{name} with {len(children)} children"
        assert not (element.text or "").strip(), name
    assert child is None or all(part.tag == NAMESPACE + child for part in children), name
    for key, value in element.attrib.items():
        assert key in attributes | {"intent", "arg"}, f"{name} {key}"
        assert re.fullmatch(VALUES[key], value), f"{name} {key}={value}"
    for reference in re.findall(r"\$([a-z])", element.get("intent", "")):
        assert any(part.get("arg") == reference for part in element.iter()), reference


def check_mathml(rows):
    for source, mathml, *_ in rows:
        try:
            root = ElementTree.fromstring(mathml)
            assert root.tag == NAMESPACE + "math"
            for element in root.iter():
                check_element(element, source.startswith("tree "))
        except (AssertionError, ElementTree.ParseError) as error:
            sys.exit(f"{source}\n{mathml}\n{error!r}")


def check_braces(rows):
    for source, _, latex, words in rows:
        left = re.sub(r"\\.", "", latex)
        while left != (left := re.sub("{[^{}]*}", "", left)):
            pass
        if "{" in left or "}" in left or not words:
            sys.exit(f"{source}\n{latex}\n{words}")


def data_lines(path):
    return [line for line in path.read_text(encoding="utf-8").splitlines()
            if line and not re.match("#( |$)", line)]


def symbol_characters(metrics, table):
    """The characters of the face "Symbol" by code."""
    own = {glyph: sign for sign, (_, _, glyphs) in table.items() for glyph in glyphs.split()}
    characters = {}
    for line in metrics.read_text().splitlines():
        fields = line.split()
        if fields[:1] == ["C"]:  # C code ; WX width ; N glyph ; ...
            characters[int(fields[1])] = own.get(fields[7]) or agl.toUnicode(fields[7])
    return characters


def is_letter(character):
    return unicodedata.category(character) in ("Lu", "Ll", "Lo")


def words_of(sign, words, symbol):
    name = unicodedata.name(sign, "").lower().replace("lamda", "lambda")
    if words != "-" and (symbol or sign not in "ƒ…™"):
        return words
    if sign.isascii() and sign.isalnum():
        return f"capital {sign.lower()}" if sign.isupper() else sign
    if re.fullmatch("greek (small|capital) letter .*", name):
        return re.sub("^greek (small )?|letter ", "", name)
    return name if symbol or sign.isascii() else sign


def check_signs(data, metrics, rows):
    """The signs of every code: Windows-1252, and the face "Symbol"."""
    table = {}
    for line in data_lines(data / "signs.txt"):
        table[line[0]] = (line[1:].strip().split("  ") + ["-", "-"])[:3]
    symbols = symbol_characters(metrics, table)
    reader = LatexNodes2Text(math_mode="text")
    for place, (source, mathml, latex, words) in enumerate(rows):
        code, symbol = CODES[place // 3], place % 3 == 2
        text = code.decode("cp1252", "replace")
        sign = symbols.get(code[0], "\uFFFD") if symbol else text
        sign = "\uFFFD" if code < b" " or code == b"\x7F" else sign
        if place % 3 == 1 or sign.isspace():
            continue
        said, written, _ = table.get(sign, ("-", "-", "-"))
        shown = "".join(ElementTree.fromstring(mathml).itertext())
        latex = re.fullmatch(r"\\textit\{(.*)\}|(.*)", latex)
        latex = latex[1] or latex[2]
        # Either face tells letters by the codes of texts.
        quoted = "" if is_letter(text) else "the sign "
        expected = quoted + words_of(sign, said, symbol)
        if (symbol, code) == (True, b"\xA0"):
            expected = "the sign unknown"  # the euro has no words there
        if shown != sign or words != expected:
            sys.exit(f"code {code}: {shown} instead of {sign}, {words} instead of {expected}")
        if latex != written and reader.latex_to_text(f"${latex}$") != sign:
            sys.exit(f"code {code}: {sign} is {latex} in LaTeX")


def check_forms(data, forms):
    """The forms that are written down."""
    lines = data_lines(data / "written_forms.txt")
    cases = list(zip(lines[::4], lines[1::4], lines[2::4], lines[3::4]))
    for what in ("text", "sketch"):
        expected = [case for case in cases if (re.match(r"\([A-Z]{2}", case[0]) is not None)
                    == (what == "sketch")]
        rows = forms.of_sources(what, [case[0].encode("cp1252") for case in expected])
        for case, row in zip(expected, rows, strict=True):
            mathml = re.fullmatch("<math [^>]*>(.*)</math>", row[1])[1]
            if case[2:] != row[2:] or case[1] not in ("-", mathml):
                sys.exit("\n".join((*case, "is", mathml, *row[2:])))


def check_groups(data, forms):
    """Every form in every place: it is a group where it holds less firmly than the place needs."""
    groups = {"mathml": (0, "<mrow>%s</mrow>"), "latex": (1, "{%s}"), "words": (2, "the quantity %s")}
    ranks = ["any", "list", "sum", "term", "prefix", "power", "closed", "leaf"]
    places, operands = {}, {}  # by dialect: what is needed, what a form is
    for line in data_lines(data / "groups.txt"):
        dialect, rank, what, *sketches = line.split("; ")
        of_dialect = (places if what == "needs" else operands).setdefault(dialect, {})
        of_dialect.update(dict.fromkeys(sketches, ranks.index(rank)))
    every = list(operands["words"])
    pairs = [(place, operand) for place in ["%", *places["words"]] for operand in every]
    sources = [place.replace("%", operand).encode("cp1252") for place, operand in pairs]
    written = {pair: row[1:] for pair, row in zip(pairs, forms.of_sources("sketch", sources))}
    for dialect, (column, group) in groups.items():
        for place, needed in places[dialect].items():
            for operand in every:
                alone = re.sub("</?math[^>]*>", "", written["%", operand][column])
                row = written[place, operand][column]
                if (group % alone in row) != (operands[dialect][operand] < needed):
                    sys.exit(f"{operand} in {place} is {row}")


def check_pdflatex(program, rows):
    with tempfile.TemporaryDirectory() as work:
        path = pathlib.Path(work, "all.tex")
        body = "\n\n".join(f"${row[2]}$" for row in rows if row[2])
        path.write_text(f"{LATEX_HEAD}\n{body}\n\\end{{document}}\n")
        done = subprocess.run([program, "-draftmode", "-interaction=nonstopmode", "-halt-on-error",
                               "all.tex"],
                              cwd=work, stdout=subprocess.PIPE, timeout=300)
        if done.returncode != 0:
            out = done.stdout.decode(errors="replace")
            sys.exit(out[out.find("\n!"):][:2000])


def check_katex(folder, rows):
    lines = "".join(row[2] + "\n" for row in rows)
    done = subprocess.run(["node", "-e", KATEX_SCRIPT, os.path.join(folder, "katex.js")],
                          input=lines.encode(), stdout=subprocess.PIPE, timeout=300)
    if done.returncode != 0:
        sys.exit(done.stdout.decode()[:4000])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--mathml", action="store_true")
    for option in ("--forms", "--data", "--metrics", "--runner", "--other", "--pdflatex", "--katex"):
        parser.add_argument(option)
    options = parser.parse_args()
    forms = Forms(options.forms, options.data, options.runner)
    rows = forms.all()
    if len(rows) < 3600 or any(len(row) != 4 for row in rows):
        sys.exit(f"{len(rows)} rows")
    if options.mathml:
        check_mathml(rows)
        check_braces(rows)
        check_signs(forms.data, pathlib.Path(options.metrics), forms.characters())
        check_forms(forms.data, forms)
        check_groups(forms.data, forms)
        if options.other and Forms(options.other, options.data).all() != rows:
            sys.exit("the systems write different forms")
    if options.pdflatex:
        check_pdflatex(options.pdflatex, rows)
    if options.katex:
        check_katex(options.katex, rows)
    print(f"{len(rows)} formulas")


if __name__ == "__main__":
    main()
