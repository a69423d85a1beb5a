#!/usr/bin/env python3
"""Drives the command line program: words and standard input in, output and status out."""
import json
import os
import pathlib
import pty
import re
import shlex
import signal
import subprocess
import time

import program
from program import COMMAND, NO_FILE, NO_FOLDER, PICTURES, SMALL_PICTURE, WINDOWS, Case, run


def tree(form, position=0, gap=-6):
    """What tree prints: the form of the root's only child, the position of an error."""
    error = f"Error at Position {position}!" if position else ""
    return f'(STANDARD "" {form} -)\t{position}\t{error}\t{gap}\n'


def warning(message, text=None, caret=0):
    """The pattern of a message with the line in question and a mark below it; tabs stay."""
    line = "" if text is None else "  %s\n  %s^\n" % (text, re.sub("[^\t]", " ", text.ljust(caret))[:caret])
    return re.escape("mivora: warning: %s\n%s" % (message, line))


A_PLUS_B = tree('(PLUS "+" (VARIABLE "a" - -) (VARIABLE "b" - -))')
MINUS_X = '(MINUS "-" (STANDARD "" - -) (VARIABLE "%s" - -))'
TWO = tree('(NUMBER "2" - -)', 2)
EMPTY = tree('(STANDARD "" - -)')
VARIABLE = '(VARIABLE "%s" - -)'

AT = "Error at Position %d!"
NEAR_BEGINNING = warning("Error near the beginning!")
LEFT_OUT = "mivora: warning: a part of the text is not in the picture .position%s.\n"
REFUSED = "Error in Calculation\\(\\) weil .+"
NO_TREE = f"-\t0\t{REFUSED}\t-6\n"
LONG = "a" * 65535  # more than a formula may have
NUL = "mivora: warning: the text ends at a NUL .position 2.\n"

# Words, standard input, standard output (or pattern), standard error (pattern, whole), status
FORMS = [
    # The tree form
    (["tree", "a+b*c"], b"", tree('(PLUS "+" (VARIABLE "a" - -) (TIMES "" (VARIABLE "b" - -) '
                                  '(VARIABLE "c" - -)))', gap=-5), "", 0),
    (["tree", "2x"], b"", TWO, "", 0),
    (["tree", "--strict", "2x"], b"", TWO, "", 1),
    (["tree", "greek a<=b"], b"", tree('(EQUATION[1] "" (VARIABLE "a" @Symbol - -) (VARIABLE "b" - -))'), "", 0),
    (["tree", "str(ä)"], b"", tree(VARIABLE % "\\xE4"), "", 0),
    (["tree", LONG], b"", NO_TREE, "", 1),
    # What is a TEXT
    (["tree", "-x+y"], b"", tree(f'(PLUS "+" {MINUS_X % "x"} (VARIABLE "y" - -))'), "", 0),
    (["tree", "--", "-x+y"], b"", tree(f'(PLUS "+" {MINUS_X % "x"} (VARIABLE "y" - -))'), "", 0),
    (["tree", "--strict", "--", "--lines"], b"", None, "", 0),
    (["tree", "-h"], b"", tree(MINUS_X % "h"), "", 0),
    (["tree", "-"], b"a+b\n", A_PLUS_B, "", 0),
    (["tree", "-"], b"a+b\r\n", A_PLUS_B, "", 0),
    (["tree", "-"], b"2\n\n", tree('(NUMBER "2" - -)'), "", 0),
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
     + "".join(f"!\tposition {n}: a hexadecimal digit is missing\n" for n in (2, 1)) + A_PLUS_B, "", 1),
    (["tree", "--lines", "--hex"], b"610062\n", None, "", 0),
    (["tree", "--lines", "--hex"], b"61" * 65535 + b"\n612B62\n", NO_TREE + re.escape(A_PLUS_B), "", 0),
    # Calculation
    (["calc", "1/0+2"], b"", "3\t0\t (Division durch Null)\n", "", 0),
    (["calc", "2x"], b"", "2\t2\tError an Position 2 gefunden!\n", "", 0),
    (["calc", "--strict", "2x"], b"", "2\t2\tError an Position 2 gefunden!\n", "", 1),
    (["calc", "1/3"], b"", "0.33333333333333331\t0\t\n", "", 0),
    (["calc", "--lines"], b"ln 0\n-ln 0\nln 0-ln 0\n-0\nartanh 1\n",
     "".join(f"{value}\t0\t\n" for value in ("-inf", "inf", "nan", "-0", "inf")), "", 0),
    (["calc", "--strict", "1/0+2"], b"", "3\t0\t (Division durch Null)\n", "", 1),
    (["calc", "--strict", "--lines"], b"1/0\n", "1\t0\t (Division durch Null)\n", "", 1),
    # A mark stands under the place of an error, in the line that it is in
    (["measure", "2x"], b"", None, warning(AT % 2, "2x", 1), 0),
    (["measure", "   2x"], b"", None, warning(AT % 2, "   2x", 4), 0),
    (["measure", "str(ä))b"], b"", None, warning(AT % 7, "str(ä))b", 6), 0),
    (["measure", "a \tb"], b"", None, warning(AT % 3, "a \tb", 2), 0),
    (["measure", "str(a\tb))"], b"", None, warning(AT % 9, "str(a\tb))", 8), 0),
    (["measure", "-"], b"aa \nc)\n", None, warning(AT % 4, "aa ", 3), 0),
    (["measure", "-"], b"str(a\nb))\n", None, warning(AT % 9, "b))", 2), 0),
    (["measure", "-"], b"a\nb\n", None, warning(AT % 2, "a", 1), 0),
    # A position that went back to 0, or around, is an error too
    (["tree", "--strict", "sum"], b"", EMPTY.replace("\t\t", "\tError at Position 0!\t"), "", 1),
    (["measure", "strength"], b"", None, NEAR_BEGINNING, 0),
    (["measure", "--strict", "markx"], b"", None, NEAR_BEGINNING, 1),
    (["measure", "--strict", "INT"], b"", None, NEAR_BEGINNING, 1),
    (["measure", "--strict", "2x"], b"", None, warning(AT % 2, "2x", 1), 1),
    (["text", "--lines", "--strict"], b"sum\n", None, "", 1),
    # Text that is left out
    (["tree", "sin 2x"], b"", tree(VARIABLE % "x"), LEFT_OUT % "s 1 to 5" + "  sin 2x\n  \\^{5}\n", 0),
    (["tree", "--strict", "radius"], b"", tree(VARIABLE % "dius"),
     LEFT_OUT % "s 1 to 2" + "  radius\n  \\^\\^\n", 1),
    (["text", " a^b^c+sin(x)y)"], b"", None, warning(AT % 14, " a^b^c+sin(x)y)", 14)
     + LEFT_OUT % "s 3, 7 to 12" + "   a.b.c.sin.x.y.\n {5}\\^   \\^{6}\n", 0),
    (["tree", "--lines", "--strict"], b"a^b^c\n", None, "", 1),
    # Marks of an encoding, Greek, a NUL
    (["tree", "\ufeffa+b"], b"", A_PLUS_B, "", 0),
    (["tree", "-"], b"\xef\xbb\xbfa+b\n", A_PLUS_B, "", 0),
    (["tree", "--lines"], b"\xef\xbb\xbfa+b\n\xef\xbb\xbfa+b\n", A_PLUS_B * 2, "", 0),
    (["tree", "a+α"], b"", "", "mivora: position 3: U\\+03B1 is not in Windows-1252; write greek a\n", 1),
    (["tree", "--lines"], "Ω\nϖ\nЁ\n".encode(),
     "!\t.* write greek W\n!\t.* write greek v\n!\t.*Windows-1252\n", "", 1),
    (["calc", "-"], b"1\x00+2\n", "1\t0\t\n", NUL + "  1 .2\n   \\^\n", 0),
    (["calc", "--lines"], b"3\n1\x00+2\n", None, "mivora: line 2: the text ends at a NUL .*\n", 0),
    (["measure", "--strict", "-"], b"a\x00b", None, NUL + ".*\n.*\n", 1),
    # Sizes
    (["measure", "2"], b"", "0 0 18 17\t0 0 1[0-9] 18\t8\n", "", 0),
    # Generated text
    (["text", "a/b"], b"", "      (a)/(b)  \n", "", 0),
    (["text", "a+" * 20 + "a"], b"", f"      {'a + ' * 13}a \r\n     ++ {'a + ' * 6}a  \n", "", 0),
    (["text", "--lines"], ("a+" * 20 + "a\nstr(ä)\n").encode(),
     f"      {'a + ' * 13}a \\x0D\\x0A     ++ {'a + ' * 6}a  \n      \\xE4  \n", "", 0),
    # Other forms
    (["mathml", "a/b"], b"", '<math xmlns="http://www.w3.org/1998/Math/MathML" display="block">'
     "<mfrac><mi>a</mi><mi>b</mi></mfrac></math>\n", "", 0),
    (["latex", "greek a*str(ä)"], b"", re.escape("\\alpha \\textit{ä}\n"), "", 0),
    (["latex", "2x"], b"", "2\n", warning(AT % 2, "2x", 1), 0),
    (["latex", "--strict", "2x"], b"", "2\n", warning(AT % 2, "2x", 1), 1),
    (["speak", "--lines"], b"a+b\n2x\n\n\xff\n", "a plus b\n2\nempty\n!\tposition 1: .*0xFF.*\n", "", 1),
    (["speak", "--lines", "--hex"], b"73747228E429\n", "ä\n", "", 0),
    (["speak", "--lines"], LONG.encode() + b"\n", f"!\t{REFUSED}\n", "", 1),
    # Failures
    (["tree", "a中"], b"", "", "mivora: position 2: U\\+4E2D is not in Windows-1252\n", 1),
    (["measure", LONG], b"", "", f"mivora: {REFUSED}\n", 1),
    (["text", LONG], b"", "", f"mivora: {REFUSED}\n", 1),
    (["layout", LONG], b"", '{"gap":-6,"rect":\\[0,0,0,0\\],"root":null}\n', f"mivora: {REFUSED}\n", 1),
    (["render", LONG, "-o", "x.wmf"], b"", "", f"mivora: {REFUSED}\n", 1),
    *((["render", "a", "-o", f"{folder}/x.{name}"], b"", "",
       f"mivora: cannot write {folder}/x.{name}: {NO_FOLDER}\n", 1)
      for name in ("wmf", "bmp", "png", SMALL_PICTURE, "fml") for folder in ("no", "ü", "нет")),
    (["render", "a", "-o", "x.png", "--select", "LLL:1"], b"", "", "mivora: .*no node.*\n", 1),
    (["comment", "missing.wmf"], b"", "", f"mivora: .*missing.wmf: {NO_FILE}\n", 1),
    (["comment", "公.wmf"], b"", "", f"mivora: .*公.wmf: {NO_FILE}\n", 1),
    (["inspect", "公.fml"], b"", "", f"mivora: .*公.fml: {NO_FILE}\n", 1),
    (["layout", "--fml", "公.fml"], b"", "", f"mivora: .*公.fml: {NO_FILE}\n", 1),
    (["batch", "missing.txt", "-d", "x"], b"", "", f"mivora: .*missing.txt: {NO_FILE}\n", 1),
    (["batch", "公", "-d", "x"], b"", "", f"mivora: .*公: {NO_FILE}\n", 1),
]

# A message (pattern), and the command lines that it is the answer to: one line, status 2
WRONG = [
    ("a command is needed", ""),
    ("unknown command nothing; see ", "nothing"),
    ("unknown command rednr; did you mean render.$", "rednr"),
    ("unknown command Text; did you mean text.$", "Text"),
    ("unknown command calk; did you mean calc.$", "help calk"),
    ("unknown option --nothing", "--nothing"),
    ("tree: a TEXT is needed", "tree"),
    ("tree: unexpected word b", "tree a b"),
    ("tree: unexpected word -h", "tree -- -x -h"),
    ("tree: unknown option --nothing", "tree a --nothing"),
    ("tree: --lines and a TEXT exclude", "tree a --lines"),
    ("tree: --hex needs --lines", "tree a --hex"),
    ("speak: --fml", "speak a --fml x"),
    ("fonts: unexpected word a", "fonts a"),
    ("comment: unknown option --nothing", "comment --nothing"),
    ("render: a TEXT is needed", "render -ox.png"),
    ("render: --output FILE is needed", "render a"),
    ("render: -o needs a value", "render a -o"),
    ("render: --output needs the name of a file", "render a -o ''"),
    ("render: --output is given twice", "render a -ox.png --output=y.png"),
    ("render: the name x.gif ends in none", "render a -o x.gif"),
    ("render: the name x ends in none", "render a -o x"),
    ("render: --dpi", "render a -o x.png --dpi 9", "render a -o x.png --dpi=many"),
    ("render: .*--select", "render a -o x.png --select LX:1", "render a -o x.png --select L:3"),
    ("render: .*--size", "render a -o x.png --size 0", "render a -o x.png --size many"),
    ("render: .*--margin", "render a -o x.png --margin -1", "render a -o x.png --margin 99999"),
    ("render: .*--font", "render a -o x.png --font " + "f" * 32),
    ("render: .*--color", "render a -o x.png --color '#12'", "render a -o x.png --color '#12345g'",
     "render a -o x.png --color ''"),
    ("render: .*--background", "render a -o x.png --background blau"),
    ("render: .*svg", "render a -o x.png --color currentColor"),
    ("render: .*exclude", "render a -o x.png --transparent --background red",
     "render a -o x.png --embed --no-embed"),
    ("render: .*metafiles", "render a -o x.wmf --dpi 96", "render a -o x.wmf --boxes",
     "render a -o x.wmf --transparent", "render a -o x.wmf --color red"),
    ("render: .*stored", "render a -o x.fml --embed", "render a -o x.fml --json",
     "render a -o - --format fml"),
    ("render: .*--format", "render a -o -"),
    ("render: .*--json", "render a -o - --format png --json"),
    ("batch: --directory DIR is needed", "batch -"),
    ("batch: --format", "batch - -d x --format gif"),
]

# On a system that does not write all formats
NO_FORMATS = [
    ("render: .pdf is made on Linux only; here there are .wmf .emf .bmp .png .svg .fml; see ",
     "render a -o x.pdf"),
    ("render: .pdf is made on ", "render a -o x.PDF --dpi 300"),
    ("batch: .pdf is made on ", "batch - -d x --format pdf"),
    ("batch: --format: gif not in {wmf,emf,bmp,png,svg,fml}; see ", "batch - -d x --format gif"),
]

# Text, path from the whole by the first letters of names, what is said there (...: that it is not said).
# Signs: Times italic at 16 pixels, a and b are 8 wide, the line is 17 high.
LETTER = {"level": 0, "height": -120, "extent": [8, 17], "own": [10, 17], "size": [13, 17], "axis": 8,
          "left": None}
NODES = [
    ("a*b", "", {"gap": -5, "rect": [0, 0, 29, 20], "error": ..., "dropped": ...}),
    ("sin 2x+a^b^c)", "", {"error": {"position": 13, "message": "Error at Position 13!"},
                           "dropped": [{"position": 1, "length": 5}, {"position": 10, "length": 1}]}),
    ("a*b", "r", {"type": "NT_STANDARD", "right": None, "size": [29, 20]}),
    # a: one unit in; the product's own part behind the 13 units of a and one more.
    ("a*b", "rll", LETTER | {"symbol": "a", "rect": [1, 2, 11, 19]}),
    ("a*b", "rl", {"type": "NT_TIMES", "symbol": "", "kind": ..., "extent": [0, 20], "own": [-5, 20],
                  "rect": [14, 0, 9, 20]}),
    ("a*b", "rlr", LETTER | {"symbol": "b", "rect": [14 - 5 + 1 + 1, 2, 21, 19]}),
    ("1/x", "rl", {"kind": 0, "extent": ...}),
    ("sqr(x)", "rl", {"symbol": "\\xD6"}),
    ("brace([,],x)", "rl", {"kind": 1, "symbol": "[]"}),
    ('str(a"b)', "rl", {"symbol": "a\\x22b"}),
    ("a^b", "rlr", {"level": 1, "height": -100}),
]


def wait_until(condition, seconds=60):
    deadline = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < deadline
        time.sleep(0.02)


class ToolCase(Case):
    def start(self, *words):
        """Runs while others go on. The folder's name tells the processes that it starts."""
        return subprocess.Popen([*COMMAND, *map(str, words)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, env=dict(os.environ, MIVORA_TEST=self.folder.name))


class Forms(ToolCase):
    def check_wrong(self, table):
        self.check_rows([(shlex.split(line), b"", "", "mivora: %s.*\n" % message, 2)
                         for message, *lines in table for line in lines])

    def test_tables(self):
        self.check_rows(FORMS)
        self.check_wrong(WRONG)

    def test_bytes_that_are_no_text(self):
        self.check_rows([(["tree", b"a\xff"], b"", "", "mivora: position 2: the byte 0xFF is no UTF-8\n", 1)])

    def test_formats_of_another_system(self):
        self.check_wrong(NO_FORMATS)
        for words in ["render"], ["batch"], []:
            self.assertNotRegex(run(*words, "--help")[1].replace(".pdf is made on Linux only", "")
                                .replace("or .pdf", ""), "pdf")

    def test_a_text_is_no_pattern_of_names(self):
        (self.folder / "axb").touch()
        for text in "a*b", "a?b", "*":
            self.assertEqual(run("tree", text, cwd=self.folder), run("tree", "-", stdin=text.encode()))

    def test_one_answer_for_each_line_at_once(self):
        """Another program can talk with it line by line."""
        with self.start("calc", "--lines") as process:
            for n in range(3):
                process.stdin.write(b"%d+1\n" % n)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline(), b"%d\t0\t\n" % (n + 1))
            process.stdin.close()
            self.assertEqual(process.wait(), 0)

    def test_output_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([*COMMAND, "tree", "a"], stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"cannot write to standard output", done.stderr)


class Layout(Case):
    def test_nodes(self):
        for text, path, told in NODES:
            node = json.loads(run("layout", text)[1])
            for letter in path:
                node = node[{"r": "root" if "root" in node else "right", "l": "left"}[letter]]
            self.assertEqual({field: node.get(field, ...) for field in told}, told, (text, path))

    def test_deep(self):
        status, out, _ = run("layout", "-", stdin=b"sqr(" * 15000 + b"x")
        self.assertEqual((status, out.count('"NT_ROOT"'), out.count("\n")), (0, 15000, 1))
        self.assertEqual(out.count("{"), out.count("}"))


class Batch(ToolCase):
    LINES = "a/b\n2x\n\nx^2\n中\na)b\n".encode() + LONG.encode() + b"\nlast"
    REPORT = ("mivora: line 2: Error at Position 2!\n"
              "mivora: line 5: position 1: U\\+4E2D is not in Windows-1252\n"
              "mivora: line 6: Error at Position 2!\n"
              f"mivora: line 7: {REFUSED}\n")

    def setUp(self):
        super().setUp()
        self.out = self.folder / "out"

    def batch(self, lines, *words, source="-"):
        return run("batch", source, "-d", self.out, *words, stdin=lines)

    def test_reports_and_files(self):
        made = []
        for jobs in "1", "3":
            self.out = self.folder / jobs
            status, text, err = self.batch(self.LINES, "--jobs", jobs, "--format", SMALL_PICTURE)
            self.assertEqual((status, text), (1, "6 done, 2 with syntax errors, 2 failed\n"))
            self.assertRegex(err, "^%s$" % self.REPORT)
            made.append({path.name: path.read_bytes() for path in self.out.iterdir()})
        self.assertEqual(sorted(made[0]), ["%06d.%s" % (n, SMALL_PICTURE) for n in (1, 2, 3, 4, 6, 8)])
        self.assertEqual(made[0], made[1])

    def test_status(self):
        for words, lines, status in ([], b"a\n", 0), ([], b"2x\n", 0), (["--strict"], b"2x\n", 1), \
                (["--strict"], b"a\n", 0), (["--strict"], b"a^b^c\n", 1), ([], b"\xff\n", 1), ([], b"", 0):
            with self.subTest(words=words, lines=lines):
                self.assertEqual(self.batch(lines, *words)[0], status)

    def test_text_that_is_left_out(self):
        lines = "a^b^c\nsum\nα\nsin 2x)\n".encode()
        told = ("mivora: line 1: a part of the text is not in the picture (position 3)\n"
                "mivora: line 2: Error near the beginning!\n%s"
                "mivora: line 4: Error at Position 7!; a part of the text is not in the picture "
                "(positions 1 to 5)\n")
        alpha = "mivora: line 3: position 1: U+03B1 is not in Windows-1252; write greek a\n"
        for words, status, done, failed, err in (
                ([], 1, 3, 1, alpha), (["--greek"], 0, 4, 0, ""),
                (["--greek", "--strict", "--jobs", "2"], 1, 4, 0, "")):
            counts = f"{done} done, 2 with syntax errors, {failed} failed\n"
            self.assertEqual(self.batch(lines, *words), (status, counts, told % err))

    def test_many_lines_stay_in_order(self):
        lines = "".join("2%s\n" % ("x" if n % 7 == 0 else "") for n in range(1, 2001))
        status, text, err = self.batch(lines.encode(), "--jobs", "4")
        self.assertEqual((status, text), (0, "2000 done, 285 with syntax errors, 0 failed\n"))
        self.assertEqual([int(line.split()[2][:-1]) for line in err.splitlines()], list(range(7, 2001, 7)))
        self.assertEqual(len(os.listdir(self.out)), 2000)

    def test_a_bar_on_a_terminal_only(self):
        lines = self.folder / "lines.txt"
        lines.write_text("a\n" * 300)
        parent, child = pty.openpty()
        done = subprocess.run([*COMMAND, "batch", lines, "-d", self.out], stdout=subprocess.PIPE,
                              stderr=child, check=False)
        os.close(child)
        shown = os.read(parent, 100000).decode()
        os.close(parent)
        self.assertEqual(done.stdout, b"300 done, 0 with syntax errors, 0 failed\n")
        self.assertRegex(shown, r"(?s)\[####.*100%")

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
        with self.start("batch", "-", "-d", self.out, "--jobs", "2") as batch:
            wait_until(lambda: len(self.workers(batch)) == 2)
            workers = self.workers(batch)
            for worker in workers:
                os.kill(worker, signal.SIGSTOP)
            batch.stdin.write(b"a+b\n" * 200)
            batch.stdin.flush()
            time.sleep(0.2)
            os.kill(workers[0], signal.SIGKILL)
            os.kill(workers[1], signal.SIGCONT)
            out, err = batch.communicate()
        self.assertEqual((batch.returncode, out), (1, b"199 done, 0 with syntax errors, 1 failed\n"))
        self.assertRegex(err.decode(), "^mivora: line (1|65): the process that drew it (was ended by a "
                         "signal: Killed|ended with status [0-9A-Fx]+)\n$")
        self.assertEqual(len(os.listdir(self.out)), 199)


class Names(Case):
    """Of files, in any script."""

    def test_files_and_folders(self):
        for name in PICTURES:
            self.assertGreater(len(self.picture("a/b", name="公式 Ж." + name)[0]), 100)
        self.assertEqual(self.told("comment", self.folder / "公式 Ж.wmf"), "\n")
        self.picture("a/b", name="дробь.fml")
        self.assertTrue(self.told("inspect", "дробь.fml", cwd=self.folder).startswith("text: a/b\n"))
        lines = self.folder / "строки.txt"
        lines.write_text("a\nb\n")
        for jobs in "1", "2":
            out = self.folder / ("папка" + jobs)
            self.assertEqual(self.told("batch", lines, "-d", out, "--jobs", jobs),
                             "2 done, 0 with syntax errors, 0 failed\n")
            self.assertEqual(len(os.listdir(out)), 2)


class Greek(Case):
    """Letters of the face "Symbol", by their names in Unicode and in the face's published list."""
    LETTERS = dict(zip("αβγδεζηθικλμνξοπρςστυφχψω", "abgdezhqiklmnxoprVstufcyw")) | dict(zip(
        "ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ", "ABGDEZHQIKLMNXOPRSTUFCYW")) | {
        "ϑ": "J", "ϕ": "j", "ϖ": "v", "\u2206": "D", "\u2126": "W"}

    def test_letters(self):
        self.assertEqual(self.told("tree", "--greek", "--lines", stdin="\n".join(self.LETTERS).encode()),
                         "".join(tree(f'(VARIABLE "{letter}" @Symbol - -)')
                                 for letter in self.LETTERS.values()))

    def test_places(self):
        """Each text is the same as what it is written as, or refused at a position."""
        for typed, written in (
                ("sin α^2", "sin greek a^2"), ("2*β/ γ ", "2*greek b/ greek g "),
                ("αβ+γ δ", "greek str(ab)+greek str(g d)"), ("σιν", "greek str(sin)"),
                ("greek α+b", "greek a+b"), ("sum(φ,ι=1,ν)", "sum(greek f,greek i=1,greek n)"),
                ("str(a\\)b)+ω", "str(a\\)b)+greek w"), ("äöü+Ω", "äöü+greek W")):
            with self.subTest(typed):
                self.assertEqual(run("tree", "--greek", typed), run("tree", written))
        self.check_rows([
            (["--greek", typed], b"", "", f"mivora: position {position}: the Greek letter α .*\n", 1)
            for typed, position in (("xα", 2), ("a α", 3), ("1+αb", 3), ("α(x)", 1), ("str(xα)", 6),
                                    ("str(a\\)α)", 8))], "tree")


class Interruption(ToolCase):
    """Ctrl+C: no half of a file stays, and a batch tells how far it came."""

    def interrupt(self, batch, out, count):
        """When so many files are there; gives how many there are then."""
        wait_until(lambda: len([*out.glob("*.png")]) >= count)
        os.kill(batch.pid, signal.SIGINT)
        if WINDOWS:
            time.sleep(1)  # Wine cannot end a wait for a pipe: its end does
        else:
            batch.wait(timeout=60)
        told, err = batch.communicate(timeout=60)
        files = sorted(os.listdir(out))
        self.assertEqual((batch.returncode, err), (130, b""))
        self.assertEqual(told, b"%d done, 0 with syntax errors, 0 failed\n" % len(files))
        self.assertEqual(files, ["%06d.png" % n for n in range(1, len(files) + 1)])
        return len(files)

    def test_a_batch_that_waits(self):
        for jobs in "1", "2":
            out = self.folder / jobs
            with self.start("batch", "-", "-d", out, "--format", "png", "--jobs", jobs) as batch:
                batch.stdin.write(b"a\n" * 128 + b"b")
                batch.stdin.flush()
                self.assertEqual(self.interrupt(batch, out, 128), 128)

    def test_a_batch_at_work(self):
        lines, out = self.folder / "lines", self.folder / "out"
        lines.write_text("a/b\n" * 20000)
        with self.start("batch", lines, "-d", out, "--format", "png") as batch:
            self.assertLess(self.interrupt(batch, out, 20), 20000)

    def test_a_picture(self):
        """Wherever it is caught: the whole picture, or none."""
        path = self.folder / "x.png"
        for delay in 0.01, 0.05, 0.1, 0.2, 0.4:
            with self.start("render", "-", "-o", path, "--dpi", "2400") as render:
                render.stdin.write(b"a/b+" * 300)
                render.stdin.close()
                time.sleep(delay)
                os.kill(render.pid, signal.SIGINT)
                render.wait(timeout=60)
                render.stdin = None
            self.assertLessEqual(set(os.listdir(self.folder)), {"x.png"})
            if path.exists():
                self.assertEqual(path.read_bytes()[-8:-4], b"IEND")


class Fonts(Case):
    FAMILIES = {"Times New Roman": "Liberation Serif", "Arial": "Liberation Sans",
                "Courier New": "Liberation Mono"}
    FACES = {face + style: family + (style.strip() or "Regular") for face, family in FAMILIES.items()
             for style in ("", " Bold", " Italic", " Bold Italic")}
    FACES |= {face: face + "Regular" for face in ("Symbol", "MT Extra")}

    def test_every_face_has_its_file(self):
        told = dict(line.split("\t") for line in self.told("fonts").splitlines())
        self.assertEqual([*told], [*self.FACES])
        for face, file in told.items():
            found = "-" if WINDOWS else subprocess.run(
                ["fc-scan", "--format", "%{family}%{style}", file],
                capture_output=True, text=True, check=True).stdout
            self.assertEqual(found, file if WINDOWS else self.FACES[face])


class Manual(Case):
    def test_page_and_completions_name_every_option(self):
        page, bash, zsh = (self.told("--generate", what) for what in ("man", "bash", "zsh"))
        page = page.replace("\\-", "-")
        self.assertLessEqual({"render", "fonts"}, set(program.commands()))
        for command in program.commands():
            options = re.findall(r"^  (?:-([a-z]), )?--([a-z-]+)", self.told(command, "--help"), re.MULTILINE)
            self.assertIn(("", "help"), options)
            section = page.split(".SS mivora %s " % command)[1].split("\n.S")[0]
            bash_line = re.search(r"^ +%s\) (.*)$" % command, bash, re.MULTILINE)[1]
            zsh_part = zsh.split("        %s)\n" % command)[1].split(";;")[0]
            for short, name in options:
                with self.subTest(command=command, option=name):
                    names = [f"--{name}"] + [f"-{short}"] * bool(short)
                    self.assertIn(", ".join(names[::-1]), section)
                    self.assertLessEqual(set(names), set(bash_line.replace("'", " ").split()))
                    self.assertIn("{-%s,--%s}" % (short, name) if short else names[0], zsh_part)

    def test_help_fits_a_terminal(self):
        for words in ["--help"], ["render", "--help"], ["help", "batch"]:
            self.assertLess(max(map(len, self.told(*words).splitlines())), 81)

    def test_the_page_formats_without_complaint(self):
        done = subprocess.run(["groff", "-man", "-Tutf8", "-ww"], capture_output=True, check=False,
                              input=self.told("--generate", "man").encode())
        self.assertEqual(done.stderr, b"")
        self.assertIn("mivora render", re.sub(".\b", "", done.stdout.decode()))

    def test_bash_completes(self):
        script = self.told("--generate", "bash")
        self.assertTrue(script.endswith("\n}\ncomplete -F _mivora mivora\n"), script)
        calls = ('\ncompopt() { [ "$*" = "-o filenames" ] && echo FILES; }\ncomplete_words() '
                 '{ COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _mivora; echo "${COMPREPLY[@]}"; }\n')
        for words, completed in (
                ("re", ["render"]), ("batch --f", ["--format", "--font"]),
                ("batch --format p", [name for name in PICTURES if name.startswith("p")]),
                ("batch --format = s", [name for name in PICTURES if name.startswith("s")]),
                ("tree --", ["--lines", "--hex", "--greek", "--strict", "--help"]), ("tree /", []),
                ("batch /us", ["FILES", "/usr"]), ("render -o /us", ["FILES", "/usr"])):
            done = subprocess.run(["bash", "-c", f"{script}{calls}complete_words mivora {words}"],
                                  capture_output=True, text=True, check=False)
            self.assertEqual((done.stdout.split(), done.stderr), (completed, ""), words)


if __name__ == "__main__":
    os.environ.pop("ASAN_OPTIONS", None)
    program.main()
