#!/usr/bin/env python3
"""Drives the command line program: words and standard input in, output and status out."""
import hashlib
import json
import os
import pathlib
import pty
import re
import signal
import struct
import subprocess
import tempfile
import threading
import time
import zlib

import program
from program import COMMAND, FORMULAS, NO_FILE, NO_FOLDER, PICTURES, SMALL_PICTURE, WINDOWS, Case


def run(*words, stdin=b"", cwd=None):
    """Runs mivora; words may be text or bytes."""
    status, out, err = program.run(*words, stdin=stdin, cwd=cwd)
    return status, out.decode(), err


A_PLUS_B = '(STANDARD "" (PLUS "+" (VARIABLE "a" - -) (VARIABLE "b" - -)) -)\t0\t\t-6\n'
TWO = '(STANDARD "" (NUMBER "2" - -) -)\t2\tError at Position 2!\t-6\n'
MINUS_X = ('(STANDARD "" (PLUS "+" (MINUS "-" (STANDARD "" - -) (VARIABLE "x" - -)) '
           '(VARIABLE "y" - -)) -)\t0\t\t-6\n')
EMPTY = '(STANDARD "" (STANDARD "" - -) -)\t0\t\t-6\n'

VARIABLE = '(STANDARD "" (VARIABLE "%s" - -) -)\t0\t\t-6\n'
NEAR_BEGINNING = "mivora: warning: Error near the beginning!\n"
LEFT_OUT = "mivora: warning: a part of the text is not in the picture .position%s.\n"

# words, standard input, standard output, standard error (pattern, whole), status
FORMS = [
    # The tree form
    (["tree", "a+b*c"], b"", '(STANDARD "" (PLUS "+" (VARIABLE "a" - -) (TIMES "" (VARIABLE "b" '
     '- -) (VARIABLE "c" - -))) -)\t0\t\t-5\n', "", 0),
    (["tree", "2x"], b"", TWO, "", 0),
    (["tree", "--strict", "2x"], b"", TWO, "", 1),
    (["tree", "greek a<=b"], b"", '(STANDARD "" (EQUATION[1] "" (VARIABLE "a" @Symbol - -) '
     '(VARIABLE "b" - -)) -)\t0\t\t-6\n', "", 0),
    (["tree", "str(ä)"], b"", '(STANDARD "" (VARIABLE "\\xE4" - -) -)\t0\t\t-6\n', "", 0),
    (["tree", "a" * 65535], b"", "-\t0\tError in Calculation\\(\\) weil .+\t-6\n", "", 1),
    # What is a TEXT
    (["tree", "-x+y"], b"", MINUS_X, "", 0),
    (["tree", "--", "-x+y"], b"", MINUS_X, "", 0),
    (["tree", "--strict", "--", "--lines"], b"", None, "", 0),
    (["tree", "-"], b"a+b\n", A_PLUS_B, "", 0),
    (["tree", "-"], b"a+b\r\n", A_PLUS_B, "", 0),
    (["tree", "-"], b"2\n\n", '(STANDARD "" (NUMBER "2" - -) -)\t0\t\t-6\n', "", 0),
    (["tree", ""], b"", EMPTY, "", 0),
    (["tree", "-"], b"", EMPTY, "", 0),
    # Lines
    (["tree", "--lines"], b"a+b\r\n\n2x\na+b", A_PLUS_B + EMPTY + TWO + A_PLUS_B, "", 0),
    (["tree", "--lines", "--strict"], b"2x\n", TWO, "", 1),
    (["tree", "--lines"], b"", "", "", 0),
    (["tree", "--lines"], b"\n", EMPTY, "", 0),
    (["tree", "--lines"], "中\n".encode() + b"a+b\n\xff\n", "!\tposition 1: U\\+4E2D .*\n"
     + re.escape(A_PLUS_B) + "!\tposition 1: .*0xFF.*\n", "", 1),
    (["tree", "--lines", "--hex"], b"612B62\n6\nxy\n612b62", A_PLUS_B
     + "!\tposition 2: a hexadecimal digit is missing\n"
     + "!\tposition 1: a hexadecimal digit is missing\n" + A_PLUS_B, "", 1),
    (["tree", "--lines", "--hex"], b"610062\n", None, "", 0),
    (["tree", "--lines", "--hex"], b"61" * 65535 + b"\n612B62\n",
     "-\t0\tError in Calculation\\(\\) weil .+\t-6\n" + re.escape(A_PLUS_B), "", 0),
    # Calculation
    (["calc", "1/0+2"], b"", "3\t0\t (Division durch Null)\n", "", 0),
    (["calc", "2x"], b"", "2\t2\tError an Position 2 gefunden!\n", "", 0),
    (["calc", "--strict", "2x"], b"", "2\t2\tError an Position 2 gefunden!\n", "", 1),
    (["calc", "1/3"], b"", "0.33333333333333331\t0\t\n", "", 0),
    (["calc", "--lines"], b"ln 0\n-ln 0\nln 0-ln 0\n-0\nartanh 1\n",
     "-inf\t0\t\ninf\t0\t\nnan\t0\t\n-0\t0\t\ninf\t0\t\n", "", 0),
    (["calc", "--strict", "1/0+2"], b"", "3\t0\t (Division durch Null)\n", "", 1),
    (["calc", "--strict", "--lines"], b"1/0\n", "1\t0\t (Division durch Null)\n", "", 1),
    # A position that went back to 0, or around, is an error too
    (["tree", "--strict", "sum"], b"", EMPTY.replace("\t0\t\t", "\t0\tError at Position 0!\t"), "", 1),
    (["measure", "strength"], b"", None, NEAR_BEGINNING, 0),
    (["measure", "--strict", "markx"], b"", None, NEAR_BEGINNING, 1),
    (["measure", "--strict", "INT"], b"", None, NEAR_BEGINNING, 1),
    (["text", "--lines", "--strict"], b"sum\n", None, "", 1),
    # Text that is left out
    (["tree", "sin 2x"], b"", VARIABLE % "x", LEFT_OUT % "s 1 to 5" + "  sin 2x\n  \\^{5}\n", 0),
    (["tree", "--strict", "radius"], b"", VARIABLE % "dius", LEFT_OUT % "s 1 to 2" +
     "  radius\n  \\^\\^\n", 1),
    (["text", " a^b^c+sin(x)y)"], b"", None, "mivora: warning: Error at Position 14!\n .*\n {16}\\^\n" +
     LEFT_OUT % "s 3, 7 to 12" + "   a.b.c.sin.x.y.\n {5}\\^   \\^{6}\n", 0),
    (["tree", "--lines", "--strict"], b"a^b^c\n", None, "", 1),
    # Marks of an encoding, Greek, a NUL
    (["tree", "\ufeffa+b"], b"", A_PLUS_B, "", 0),
    (["tree", "-"], b"\xef\xbb\xbfa+b\n", A_PLUS_B, "", 0),
    (["tree", "--lines"], b"\xef\xbb\xbfa+b\n\xef\xbb\xbfa+b\n", A_PLUS_B * 2, "", 0),
    (["tree", "a+\u03b1"], b"", "", "mivora: position 3: U\\+03B1 is not in Windows-1252; "
     "write greek a\n", 1),
    (["tree", "--lines"], "\u03a9\n\u03d6\n\u0401\n".encode(), "!\t.* write greek W\n!\t.* write greek v\n"
     "!\t.*Windows-1252\n", "", 1),
    (["calc", "-"], b"1\x00+2\n", "1\t0\t\n", "mivora: warning: the text ends at a NUL .position 2.\n"
     "  1 .2\n   \\^\n", 0),
    (["calc", "--lines"], b"3\n1\x00+2\n", None, "mivora: line 2: the text ends at a NUL .*\n", 0),
    (["measure", "--strict", "-"], b"a\x00b", None, "mivora: warning: the text ends at a NUL .*\n.*\n.*\n", 1),
    # Sizes
    (["measure", "2"], b"", "0 0 18 17\t0 0 1[0-9] 18\t8\n", "", 0),
    # Generated text
    (["text", "a/b"], b"", "      (a)/(b)  \n", "", 0),
    (["text", "a+" * 20 + "a"], b"", "      " + "a + " * 13 + "a \r\n     ++ " + "a + " * 6
     + "a  \n", "", 0),
    (["text", "--lines"], ("a+" * 20 + "a\nstr(ä)\n").encode(), "      " + "a + " * 13
     + "a \\x0D\\x0A     ++ " + "a + " * 6 + "a  \n      \\xE4  \n", "", 0),
    # Other forms
    (["mathml", "a/b"], b"", '<math xmlns="http://www.w3.org/1998/Math/MathML" display="block">'
     "<mfrac><mi>a</mi><mi>b</mi></mfrac></math>\n", "", 0),
    (["latex", "greek a*str(ä)"], b"", re.escape("\\alpha \\textit{ä}\n"), "", 0),
    (["latex", "2x"], b"", "2\n", "mivora: warning: Error at Position 2!\n.*\n.*\n", 0),
    (["latex", "--strict", "2x"], b"", "2\n", "mivora: warning: Error at Position 2!\n.*\n.*\n", 1),
    (["speak", "--lines"], b"a+b\n2x\n\n\xff\n", "a plus b\n2\nempty\n!\tposition 1: .*0xFF.*\n",
     "", 1),
    (["speak", "--lines", "--hex"], b"73747228E429\n", "ä\n", "", 0),
    (["speak", "--lines"], b"a" * 65535 + b"\n", "!\tError in Calculation\\(\\) weil .*\n", "", 1),
    # Wrong usage
    ([], b"", "", "mivora: a command is needed.*\n", 2),
    (["nothing"], b"", "", "mivora: unknown command nothing; see .*\n", 2),
    (["rednr"], b"", "", "mivora: unknown command rednr; did you mean render.\n", 2),
    (["Text"], b"", "", "mivora: unknown command Text; did you mean text.\n", 2),
    (["help", "calk"], b"", "", "mivora: unknown command calk; did you mean calc.\n", 2),
    (["--nothing"], b"", "", "mivora: unknown option --nothing.*\n", 2),
    (["tree"], b"", "", "mivora: tree: a TEXT is needed.*\n", 2),
    (["tree", "a", "b"], b"", "", "mivora: tree: unexpected word b.*\n", 2),
    (["tree", "a", "--nothing"], b"", "", "mivora: tree: unknown option --nothing.*\n", 2),
    (["tree", "a", "--lines"], b"", "", "mivora: tree: --lines and a TEXT exclude.*\n", 2),
    (["speak", "a", "--fml", "x"], b"", "", "mivora: speak: --fml.*\n", 2),
    (["tree", "a", "--hex"], b"", "", "mivora: tree: --hex needs --lines.*\n", 2),
    (["fonts", "a"], b"", "", "mivora: fonts: unexpected word a.*\n", 2),
    (["comment", "--nothing"], b"", "", "mivora: comment: unknown option --nothing.*\n", 2),
    (["render", "a"], b"", "", "mivora: render: --output FILE is needed.*\n", 2),
    (["render", "a", "-o"], b"", "", "mivora: render: -o needs a value.*\n", 2),
    (["render", "a", "-o", ""], b"", "", "mivora: render: --output needs the name of a file.*\n", 2),
    (["render", "a", "-ox.png", "--output=y.png"], b"", "", "mivora: render: --output is given twice.*\n", 2),
    (["render", "-ox.png"], b"", "", "mivora: render: a TEXT is needed.*\n", 2),
    (["tree", "-h"], b"", '(STANDARD "" (MINUS "-" (STANDARD "" - -) (VARIABLE "h" - -)) -)\t0\t\t-6\n', "", 0),
    (["tree", "--", "-x", "-h"], b"", "", "mivora: tree: unexpected word -h.*\n", 2),
    (["render", "a", "-o", "x.gif"], b"", "", "mivora: render: the name x.gif ends in none.*\n", 2),
    (["render", "a", "-o", "x"], b"", "", "mivora: render: the name x ends in none.*\n", 2),
    (["render", "a", "-o", "x.png", "--dpi", "9"], b"", "", "mivora: render: --dpi.*\n", 2),
    (["render", "a", "-o", "x.png", "--dpi=many"], b"", "", "mivora: render: --dpi.*\n", 2),
    (["render", "a", "-o", "x.wmf", "--dpi", "96"], b"", "", "mivora: .*metafiles.*\n", 2),
    (["render", "a", "-o", "x.wmf", "--boxes"], b"", "", "mivora: .*metafiles.*\n", 2),
    (["render", "a", "-o", "x.png", "--select", "LX:1"], b"", "", "mivora: .*--select.*\n", 2),
    (["render", "a", "-o", "x.png", "--select", "L:3"], b"", "", "mivora: .*--select.*\n", 2),
    (["batch", "-"], b"", "", "mivora: batch: --directory DIR is needed.*\n", 2),
    (["batch", "-", "-d", "x", "--format", "gif"], b"", "", "mivora: batch: --format.*\n", 2),
    # Failures
    (["tree", "a中"], b"", "", "mivora: position 2: U\\+4E2D is not in Windows-1252\n", 1),
    (["measure", "a" * 65535], b"", "", "mivora: Error in Calculation\\(\\) weil .*\n", 1),
    (["text", "a" * 65535], b"", "", "mivora: Error in Calculation\\(\\) weil .*\n", 1),
    (["render", "a", "-o", "no/x.wmf"], b"", "", f"mivora: .*no/x.wmf: {NO_FOLDER}\n", 1),
    (["render", "a", "-o", "no/x.bmp"], b"", "", f"mivora: .*no/x.bmp: {NO_FOLDER}\n", 1),
    (["render", "a", "-o", f"no/x.{SMALL_PICTURE}"], b"", "", f"mivora: .*: {NO_FOLDER}\n", 1),
    (["render", "a", "-o", "x.png", "--select", "LLL:1"], b"", "", "mivora: .*no node.*\n", 1),
    (["render", "a" * 65535, "-o", "x.wmf"], b"", "", "mivora: Error in Calculation.*\n", 1),
    (["comment", "missing.wmf"], b"", "", f"mivora: .*missing.wmf: {NO_FILE}\n", 1),
    (["batch", "missing.txt", "-d", "x"], b"", "", f"mivora: .*missing.txt: {NO_FILE}\n", 1),
]


# Formats that this system does not write, as FORMS
NO_FORMATS = [
    (["render", "a", "-o", "x.pdf"], b"", "", "mivora: render: .pdf is made on Linux only; here there "
     "are .wmf .emf .bmp .png .svg .fml; see .*\n", 2),
    (["render", "a", "-o", "x.PDF", "--dpi", "300"], b"", "", "mivora: render: .pdf is made on .*\n", 2),
    (["batch", "-", "-d", "x", "--format", "pdf"], b"a\n", "", "mivora: batch: .pdf is made on .*\n", 2),
    (["batch", "-", "-d", "x", "--format", "gif"], b"a\n", "",
     "mivora: batch: --format: gif not in {wmf,emf,bmp,png,svg,fml}; see .*\n", 2),
]


def wait_until(condition, seconds=60):
    deadline = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < deadline
        time.sleep(0.02)


def write_all(pipe, data):
    try:
        pipe.write(data)
        pipe.close()
    except BrokenPipeError:
        pass


def complete_in_shell(script, folder, line):
    """What a line becomes where Tab is pressed behind it."""
    file = os.path.join(folder, "completion")
    pathlib.Path(file).write_text(script)
    shell, keys = pty.fork()
    if shell == 0:
        os.chdir(folder)
        os.execvp("bash", ["bash", "--norc", "--noprofile", "-i"])
    os.write(keys, b"PS1=; stty -echo; . ./completion; echo rea''dy\n")
    shown = b""
    while b"ready" not in shown:
        shown += os.read(keys, 10000)
    # The line is shown by a key of its own instead of being run.
    os.write(keys, b'bind -x \'"\\C-t": echo "<$READLINE_LINE>"\'\n' + line.encode() + b"\t\x14")
    shown = b""
    while not (found := re.search(rb"<([^>]*)>", shown)):
        shown += os.read(keys, 10000)
    os.kill(shell, signal.SIGKILL)
    os.waitpid(shell, 0)
    os.close(keys)
    return found[1].decode()


class Forms(Case):
    def expect(self, table):
        with tempfile.TemporaryDirectory() as folder:
            for words, stdin, out, err, status in table:
                with self.subTest(words=[word[:40] for word in words], stdin=stdin[:40]):
                    got_status, got_out, got_err = run(*words, stdin=stdin, cwd=folder)
                    self.assertEqual(got_status, status, got_err)
                    if out is not None and got_out != out:
                        self.assertRegex(got_out, "^(?:%s)$" % out)
                    self.assertRegex(got_err, "^(?:%s)$" % err)
            self.assertEqual(os.listdir(folder), [], "a failure left a file behind")

    def test_table(self):
        self.expect(FORMS)

    def test_bytes_that_are_no_text(self):
        self.assertEqual(run("tree", b"a\xff"),
                         (1, "", "mivora: position 2: the byte 0xFF is no UTF-8\n"))

    def test_formats_of_another_system(self):
        self.expect(NO_FORMATS)
        for words in ["render"], ["batch"], []:
            self.assertNotRegex(run(*words, "--help")[1].replace(".pdf is made on Linux only", "")
                                .replace("or .pdf", ""), "pdf")

    def test_a_text_is_no_pattern_of_names(self):
        with tempfile.TemporaryDirectory() as folder:
            pathlib.Path(folder, "axb").touch()
            for text in "a*b", "a?b", "*":
                self.assertEqual(run("tree", text, cwd=folder), run("tree", "-", stdin=text.encode()))

    def test_one_answer_for_each_line_at_once(self):
        """Another program can talk with it line by line."""
        with subprocess.Popen([*COMMAND, "calc", "--lines"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as process:
            for n in range(3):
                process.stdin.write(b"%d+1\n" % n)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline(), b"%d\t0\t\n" % (n + 1))
            process.stdin.close()
            self.assertEqual(process.wait(), 0)

    def test_output_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([*COMMAND, "tree", "a"], stdout=full, capture_output=False,
                                  stderr=subprocess.PIPE)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"cannot write to standard output", done.stderr)


class Warnings(Case):
    def expect(self, typed, message, text=None, caret=None, stdin=b""):
        status, _, err = run("measure", typed, stdin=stdin)
        self.assertEqual(status, 0)
        expected = "mivora: warning: %s\n" % message
        if text is not None:
            expected += "  %s\n  %s^\n" % (text, " " * caret)
        self.assertEqual(err.replace("\t", " "), expected)

    def test_caret_stands_under_the_place(self):
        self.expect("2x", "Error at Position 2!", "2x", 1)
        self.expect("   2x", "Error at Position 2!", "   2x", 4)
        self.expect("str(ä))b", "Error at Position 7!", "str(ä))b", 6)
        self.expect("a \tb", "Error at Position 3!", "a  b", 2)

    def test_no_caret_where_the_place_is_outside(self):
        self.expect("INT", "Error near the beginning!")

    def test_the_line_in_question(self):
        self.expect("-", "Error at Position 4!", "aa ", 3, stdin=b"aa \nc)\n")
        self.expect("-", "Error at Position 9!", "b))", 2, stdin=b"str(a\nb))\n")
        self.expect("-", "Error at Position 2!", "a", 1, stdin=b"a\nb\n")

    def test_strict(self):
        self.assertEqual(run("measure", "--strict", "2x")[0], 1)
        self.assertEqual(run("measure", "--strict", "2")[0], 0)


class Layout(Case):
    def layout(self, text):
        status, out, _ = run("layout", "--", text)
        self.assertEqual(status, 0)
        self.assertEqual(out.count("\n"), 1)
        return json.loads(out)

    def test_a_product(self):
        """Signs: Times italic at 16 pixels, a and b are 8 wide, the line is 17 high."""
        layout = self.layout("a*b")
        self.assertEqual(layout["gap"], -5)
        root = layout["root"]
        times = root["left"]
        self.assertIsNone(root["right"])
        self.assertEqual(root["type"], "NT_STANDARD")
        self.assertEqual(times["type"], "NT_TIMES")
        self.assertNotIn("kind", times)
        self.assertEqual(times["symbol"], "")
        self.assertEqual(times["extent"][0], 0)
        self.assertEqual(times["own"][0], -5)
        for letter, side in ("a", "left"), ("b", "right"):
            node = times[side]
            self.assertEqual(node["symbol"], letter)
            self.assertEqual((node["level"], node["height"]), (0, -120))
            self.assertEqual(node["extent"], [8, 17])
            self.assertEqual(node["own"], [10, 17])
            self.assertEqual(node["size"], [13, 17])
            self.assertEqual(node["axis"], 8)
            self.assertIsNone(node["left"])
        # a: one unit in; the product's own part behind the 13 units of a and one more.
        self.assertEqual(times["left"]["rect"][0], 1)
        self.assertEqual(times["rect"][0], 14)
        self.assertEqual(times["rect"][2], 9)
        self.assertEqual(times["right"]["rect"][0], 14 - 5 + 1 + 1)
        self.assertEqual(layout["rect"][2:], root["size"])

    def test_kinds_and_escapes(self):
        division = self.layout("1/x")["root"]["left"]
        self.assertEqual(division["kind"], 0)
        self.assertNotIn("extent", division)
        root = self.layout("sqr(x)")["root"]["left"]
        self.assertEqual(root["symbol"], "\\xD6")
        brace = self.layout("brace([,],x)")["root"]["left"]
        self.assertEqual((brace["kind"], brace["symbol"]), (1, "[]"))
        self.assertEqual(self.layout('str(a"b)')["root"]["left"]["symbol"], "a\\x22b")

    def test_levels(self):
        power = self.layout("a^b")["root"]["left"]
        self.assertEqual((power["right"]["level"], power["right"]["height"]), (1, -100))

    def test_what_is_not_shown(self):
        layout = self.layout("sin 2x+a^b^c)")
        self.assertEqual(layout["error"], {"position": 13, "message": "Error at Position 13!"})
        self.assertEqual(layout["dropped"], [{"position": 1, "length": 5}, {"position": 10, "length": 1}])
        self.assertEqual(list(self.layout("a^b")), ["gap", "rect", "root"])

    def test_refused(self):
        status, out, err = run("layout", "a" * 65535)
        self.assertEqual(status, 1)
        layout = json.loads(out)
        self.assertEqual((layout["root"], layout["rect"]), (None, [0, 0, 0, 0]))
        self.assertIn("Error in Calculation() weil", err)

    def test_deep(self):
        status, out, _ = run("layout", "-", stdin=b"sqr(" * 15000 + b"x")
        self.assertEqual(status, 0)
        self.assertEqual(out.count('"NT_ROOT"'), 15000)
        self.assertEqual(out.count("{"), out.count("}"))


class Batch(Case):
    LINES = "a/b\n2x\n\nx^2\n中\na)b\n".encode() + b"b" * 65535 + b"\nlast"
    REPORT = ("mivora: line 2: Error at Position 2!\n"
              "mivora: line 5: position 1: U\\+4E2D is not in Windows-1252\n"
              "mivora: line 6: Error at Position 2!\n"
              "mivora: line 7: Error in Calculation\\(\\) weil .*\n")

    def setUp(self):
        super().setUp()
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.temporary.name)

    def tearDown(self):
        self.temporary.cleanup()

    def test_reports_and_files(self):
        made = {}
        for jobs in "1", "3":
            out = self.folder / jobs
            status, text, err = run("batch", "-", "-d", str(out), "--jobs", jobs, "--format",
                                    SMALL_PICTURE, stdin=self.LINES)
            self.assertEqual(status, 1)
            self.assertEqual(text, "6 done, 2 with syntax errors, 2 failed\n")
            self.assertRegex(err, "^%s$" % self.REPORT)
            made[jobs] = {path.name: path.read_bytes() for path in out.iterdir()}
        self.assertEqual(sorted(made["1"]), ["%06d.%s" % (n, SMALL_PICTURE) for n in (1, 2, 3, 4, 6, 8)])
        self.assertEqual(made["1"], made["3"])

    def test_status(self):
        out = str(self.folder / "out")
        for words, lines, status in ([], b"a\n", 0), ([], b"2x\n", 0), (["--strict"], b"2x\n", 1), \
                (["--strict"], b"a\n", 0), ([], b"\xff\n", 1), ([], b"", 0):
            with self.subTest(words=words, lines=lines):
                self.assertEqual(run("batch", "-", "-d", out, *words, stdin=lines)[0], status)

    def test_text_that_is_left_out(self):
        lines = "a^b^c\nsum\nα\nsin 2x)\n".encode()
        told = ("mivora: line 1: a part of the text is not in the picture (position 3)\n"
                "mivora: line 2: Error near the beginning!\n%s"
                "mivora: line 4: Error at Position 7!; a part of the text is not in the picture "
                "(positions 1 to 5)\n")
        alpha = "mivora: line 3: position 1: U+03B1 is not in Windows-1252; write greek a\n"
        out = str(self.folder / "out")
        for words, status, counts, err in (
                ([], 1, "3 done, 2 with syntax errors, 1 failed\n", told % alpha),
                (["--greek"], 0, "4 done, 2 with syntax errors, 0 failed\n", told % ""),
                (["--greek", "--strict", "--jobs", "2"], 1, "4 done, 2 with syntax errors, 0 failed\n",
                 told % "")):
            self.assertEqual(run("batch", "-", "-d", out, *words, stdin=lines), (status, counts, err))
        self.assertEqual(run("batch", "-", "-d", out, "--strict", stdin=b"a^b^c\n")[0], 1)

    def test_many_lines_stay_in_order(self):
        lines = "".join("2%s\n" % ("x" if n % 7 == 0 else "") for n in range(1, 2001))
        status, text, err = run("batch", "-", "-d", str(self.folder / "out"), "--jobs", "4",
                                stdin=lines.encode())
        self.assertEqual((status, text), (0, "2000 done, 285 with syntax errors, 0 failed\n"))
        told = [int(line.split()[2][:-1]) for line in err.splitlines()]
        self.assertEqual(told, list(range(7, 2001, 7)))
        self.assertEqual(len(os.listdir(self.folder / "out")), 2000)

    def test_a_bar_on_a_terminal_only(self):
        lines = self.folder / "lines.txt"
        lines.write_text("a\n" * 300)
        parent, child = pty.openpty()
        done = subprocess.run([*COMMAND, "batch", str(lines), "-d", str(self.folder / "out")],
                              stdout=subprocess.PIPE, stderr=child)
        os.close(child)
        shown = os.read(parent, 100000).decode()
        os.close(parent)
        self.assertEqual(done.stdout, b"300 done, 0 with syntax errors, 0 failed\n")
        self.assertIn("100%", shown)
        self.assertIn("[####", shown)

    def workers(self, batch):
        """The processes of the machine that a batch has started to draw for it."""
        if not WINDOWS:
            tasks = pathlib.Path("/proc/%d/task/%d/children" % (batch.pid, batch.pid)).read_text()
            return [int(task) for task in tasks.split()]
        found = []
        for words in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            try:
                mine = self.folder.name in (words.parent / "environ").read_text(errors="replace")
                if mine and b"\0--work\0" in words.read_bytes():
                    found.append(int(words.parent.name))
            except OSError:
                pass  # it has ended
        return found

    def test_a_worker_that_dies(self):
        """The line at hand fails, all others are drawn."""
        environment = dict(os.environ, MIVORA_TEST=self.folder.name)
        with subprocess.Popen([*COMMAND, "batch", "-", "-d", str(self.folder / "out"), "--jobs", "2"],
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              env=environment) as batch:
            deadline = time.monotonic() + 60
            while len(workers := self.workers(batch)) < 2 and time.monotonic() < deadline:
                time.sleep(0.02)
            self.assertEqual(len(workers), 2)
            for worker in workers:
                os.kill(worker, signal.SIGSTOP)
            batch.stdin.write(b"a+b\n" * 200)
            batch.stdin.flush()
            time.sleep(0.2)
            os.kill(workers[0], signal.SIGKILL)
            os.kill(workers[1], signal.SIGCONT)
            out, err = batch.communicate()
        self.assertEqual(out, b"199 done, 0 with syntax errors, 1 failed\n")
        self.assertEqual(batch.returncode, 1)
        self.assertRegex(err.decode(), "^mivora: line (1|65): the process that drew it (was ended by a "
                         "signal: Killed|ended with status [0-9A-Fx]+)\n$")
        self.assertEqual(len(os.listdir(self.folder / "out")), 199)

    def test_all_formulas(self):
        status, text, err = run("batch", FORMULAS, "-d", str(self.folder / "out"), "--format",
                                "png", "--jobs", "2")
        count = len(pathlib.Path(FORMULAS).read_text().splitlines())
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(text, "%d done, 0 with syntax errors, 0 failed\n" % count)


class Names(Case):
    """Of files, in any script."""

    def test_files_and_folders(self):
        with tempfile.TemporaryDirectory() as folder:
            here = pathlib.Path(folder)
            for name in PICTURES:
                path = here / ("公式 Ж." + name)
                self.assertEqual(run("render", "a/b", "-o", str(path))[0], 0)
                self.assertGreater(path.stat().st_size, 100)
            self.assertEqual(run("comment", str(here / "公式 Ж.wmf")), (0, "\n", ""))
            self.assertEqual(run("render", "a/b", "-o", "дробь.fml", cwd=folder)[0], 0)
            self.assertTrue(run("inspect", "дробь.fml", cwd=folder)[1].startswith("text: a/b\n"))
            lines = here / "строки.txt"
            lines.write_text("a\nb\n")
            for jobs in "1", "2":
                self.assertEqual(run("batch", str(lines), "-d", str(here / ("папка" + jobs)),
                                     "--jobs", jobs), (0, "2 done, 0 with syntax errors, 0 failed\n", ""))
                self.assertEqual(len(list((here / ("папка" + jobs)).iterdir())), 2)

    def test_messages(self):
        for words in (["render", "a", "-o", "нет/公.wmf"], ["render", "a", "-o", "нет/公.png"],
                      ["comment", "公.wmf"], ["inspect", "公.fml"], ["batch", "公", "-d", "x"],
                      ["layout", "--fml", "公.fml"]):
            with self.subTest(words), tempfile.TemporaryDirectory() as folder:
                status, _, err = run(*words, cwd=folder)
                self.assertEqual(status, 1)
                self.assertRegex(err, "^mivora: .*公.*: (%s|%s)\n$" % (NO_FILE, NO_FOLDER))


class Greek(Case):
    """Letters of the face "Symbol", by their names in Unicode and in the face's published list."""
    LETTERS = dict(zip("αβγδεζηθικλμνξοπρςστυφχψω", "abgdezhqiklmnxoprVstufcyw")) | dict(zip(
        "ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ", "ABGDEZHQIKLMNXOPRSTUFCYW")) | {"ϑ": "J", "ϕ": "j", "ϖ": "v"}

    def test_letters(self):
        status, out, err = run("tree", "--greek", "--lines", stdin="\n".join(self.LETTERS).encode())
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(out.splitlines(), [
            '(STANDARD "" (VARIABLE "%s" @Symbol - -) -)\t0\t\t-6' % letter
            for letter in self.LETTERS.values()])

    def test_places(self):
        """Each text is the same as what it is written as, or refused at a position."""
        for typed, written in (
                ("sin α^2", "sin greek a^2"), ("2*β/ γ ", "2*greek b/ greek g "),
                ("αβ+γ δ", "greek str(ab)+greek str(g d)"), ("σιν", "greek str(sin)"),
                ("greek α+b", "greek a+b"), ("sum(φ,ι=1,ν)", "sum(greek f,greek i=1,greek n)"),
                ("str(a\\)b)+ω", "str(a\\)b)+greek w"), ("äöü+Ω", "äöü+greek W")):
            with self.subTest(typed):
                self.assertEqual(run("tree", "--greek", typed), run("tree", written))
        for typed, position in (("xα", 2), ("a α", 3), ("1+αb", 3), ("α(x)", 1), ("str(xα)", 6),
                                ("str(a\\)α)", 8)):
            with self.subTest(typed):
                status, out, err = run("tree", "--greek", typed)
                self.assertEqual((status, out), (1, ""))
                self.assertIn("position %d: the Greek letter α " % position, err)


class Interruption(Case):
    """Ctrl+C: no half of a file stays, and a batch tells how far it came."""

    def start(self, *words, **how):
        environment = dict(os.environ, MIVORA_TEST=self.id())
        return subprocess.Popen([*COMMAND, *words], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, env=environment, **how)

    def test_a_batch_that_waits(self):
        for jobs in "1", "2":
            with self.subTest(jobs), tempfile.TemporaryDirectory() as folder:
                with self.start("batch", "-", "-d", folder, "--jobs", jobs) as batch:
                    batch.stdin.write(b"a\n" * 128 + b"b")
                    batch.stdin.flush()
                    wait_until(lambda: len(os.listdir(folder)) >= 128)
                    os.kill(batch.pid, signal.SIGINT)
                    if WINDOWS:
                        time.sleep(1)  # Wine cannot end a wait for a pipe: its end does
                    else:
                        batch.wait(timeout=60)
                    out, err = batch.communicate(timeout=60)
                self.assertEqual((batch.returncode, err), (130, b""))
                self.assertRegex(out, rb"^128 done, 0 with syntax errors, 0 failed\n$")
                self.assertEqual(sorted(os.listdir(folder)), ["%06d.wmf" % n for n in range(1, 129)])

    def test_a_batch_at_work(self):
        with tempfile.TemporaryDirectory() as folder:
            with self.start("batch", "-", "-d", folder, "--format", "png") as batch:
                feed = threading.Thread(target=write_all, args=(batch.stdin, b"a/b\n" * 20000))
                feed.start()
                wait_until(lambda: len(os.listdir(folder)) >= 20)
                os.kill(batch.pid, signal.SIGINT)
                batch.wait(timeout=60)
                batch.stdin = None
                feed.join()
                out = batch.stdout.read().decode()
            files = sorted(os.listdir(folder))
            self.assertEqual((batch.returncode, files),
                             (130, ["%06d.png" % n for n in range(1, len(files) + 1)]))
            self.assertEqual(out, "%d done, 0 with syntax errors, 0 failed\n" % len(files))
            self.assertLess(len(files), 20000)

    def test_a_picture(self):
        """Wherever it is caught: the whole picture, or none."""
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "x.png")
            for delay in 0.01, 0.05, 0.1, 0.2, 0.4:
                with self.start("render", "-", "-o", path, "--dpi", "2400") as render:
                    render.stdin.write(b"a/b+" * 300)
                    render.stdin.close()
                    time.sleep(delay)
                    os.kill(render.pid, signal.SIGINT)
                    render.wait(timeout=60)
                    render.stdin = None
                self.assertLessEqual(set(os.listdir(folder)), {"x.png"})
                if os.path.exists(path):
                    self.assertEqual(pathlib.Path(path).read_bytes()[-8:-4], b"IEND")


class Fonts(Case):
    FACES = [face + style for face in ("Times New Roman", "Arial", "Courier New")
             for style in ("", " Bold", " Italic", " Bold Italic")] + ["Symbol", "MT Extra"]

    def path(self, file):
        """Where a file is for this script."""
        if not WINDOWS:
            return pathlib.Path(file)
        drives = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices")
        return drives / file[:2].lower() / file[3:].replace("\\", "/")

    def test_every_face_has_its_file(self):
        status, out, err = run("fonts")
        self.assertEqual((status, err), (0, ""))
        faces = dict(line.split("\t") for line in out.splitlines())
        self.assertEqual(list(faces), self.FACES)
        self.assertEqual(len(set(faces.values())), len(faces))
        for face, file in faces.items():
            done = subprocess.run(["fc-scan", "--format", "%{family}%{style}", self.path(file)],
                                  capture_output=True, text=True, check=True)
            family = {"Times New Roman": "Liberation Serif", "Arial": "Liberation Sans",
                      "Courier New": "Liberation Mono"}
            plain = re.sub("( Bold)?( Italic)?$", "", face)
            style = face[len(plain):].strip() or "Regular"
            self.assertEqual(done.stdout, family.get(plain, plain) + style, file)


class Manual(Case):
    def test_help_page_and_completions_name_every_option(self):
        help_text = run("--help")[1]
        commands = re.findall(r"^  ([a-z]+) ", help_text.split("Commands:")[1], re.MULTILINE)
        commands = [command for command in commands if run(command, "--help")[0] == 0]
        self.assertIn("render", commands)
        self.assertIn("fonts", commands)
        page = run("--generate", "man")[1].replace("\\-", "-")
        bash = run("--generate", "bash")[1]
        zsh = run("--generate", "zsh")[1]
        for command in commands:
            status, text, _ = run(command, "--help")
            self.assertEqual(status, 0)
            options = re.findall(r"^  (?:-([a-z]), )?--([a-z-]+)", text, re.MULTILINE)
            self.assertIn(("", "help"), options)
            section = page.split(".SS mivora %s " % command)[1].split("\n.S")[0]
            bash_line = re.search(r"^ +%s\) (.*)$" % command, bash, re.MULTILINE)[1]
            zsh_part = zsh.split("        %s)\n" % command)[1].split(";;")[0]
            for short, name in options:
                with self.subTest(command=command, option=name):
                    self.assertIn("--" + name, section)
                    self.assertIn("--" + name, bash_line.replace("'", " ").split())
                    self.assertIn("--" + name, zsh_part)
                    if short:
                        self.assertIn("-%s, --%s" % (short, name), section)
                        self.assertIn("-" + short, bash_line.replace("'", " ").split())
                        self.assertIn("{-%s,--%s}" % (short, name), zsh_part)

    def test_help_fits_a_terminal(self):
        for words in ["--help"], ["render", "--help"], ["help", "batch"]:
            status, text, _ = run(*words)
            self.assertEqual(status, 0)
            self.assertLess(max(map(len, text.splitlines())), 81)

    def test_the_page_formats_without_complaint(self):
        page = run("--generate", "man")[1]
        done = subprocess.run(["groff", "-man", "-Tutf8", "-ww"], input=page.encode(),
                              capture_output=True)
        self.assertEqual(done.stderr, b"")
        self.assertIn("mivora render", re.sub(".\b", "", done.stdout.decode()))

    def test_bash_completes(self):
        script = run("--generate", "bash")[1] + (
            '\ncompopt() { [ "$*" = "-o filenames" ] && echo FILES; }\ncomplete_words() { COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _mivora; '
            'echo "${COMPREPLY[@]}"; }\n')

        def complete(*words):
            calls = "complete_words %s" % " ".join("'%s'" % word for word in words)
            done = subprocess.run(["bash", "-c", script + calls], capture_output=True, text=True)
            self.assertEqual(done.stderr, "")
            return done.stdout.split()

        self.assertEqual(complete("mivora", "re"), ["render"])
        self.assertEqual(complete("mivora", "batch", "--f"), ["--format", "--font"])
        self.assertEqual(complete("mivora", "batch", "--format", "p"),
                         [name for name in PICTURES if name.startswith("p")])
        self.assertEqual(complete("mivora", "batch", "--format", "=", "s"),
                         [name for name in PICTURES if name.startswith("s")])
        self.assertEqual(complete("mivora", "tree", "--"),
                         ["--lines", "--hex", "--greek", "--strict", "--help"])
        self.assertEqual(complete("mivora", "tree", "/"), [])
        self.assertEqual(complete("mivora", "batch", "/us"), ["FILES", "/usr"])
        self.assertEqual(complete("mivora", "render", "-o", "/us"), ["FILES", "/usr"])
        # What the shell does with a folder of the same name beside
        with tempfile.TemporaryDirectory() as folder:
            os.mkdir(os.path.join(folder, "text"))
            self.assertEqual(complete_in_shell(run("--generate", "bash")[1], folder, "mivora te"),
                             "mivora text ")


if __name__ == "__main__":
    os.environ.pop("ASAN_OPTIONS", None)
    program.main()
