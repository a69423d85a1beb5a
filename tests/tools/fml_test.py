#!/usr/bin/python3
"""Stored formulas: what the command line writes is taken apart by other programs, and what other
programs make, sound or damaged, is answered by it."""
import json
import os
import re
import resource
import signal
import subprocess
import tempfile

import archive_reader
import program
from compound_writer import compound_file
from program import FORMULAS, IS_FOLDER, NO_FILE, NO_FOLDER, PICTURES, SMALL_PICTURE, Case, run

COMMON = 'sum(i^2,i=1,n)/greek a<=sqr(x+b)*sin((y))'  # several classes, a face of its own
BY_KIND = re.compile(r'\((BRACE|POISON|EQUATION|INTEGRAL|VECTOR|ARROWS|FUNC)(\[\d+\]) "[^"]*"')


def without_kind_symbols(tree):
    """Measuring puts these symbols into a tree; what was only parsed has not got them."""
    return BY_KIND.sub(r"(\1\2", tree)


def text(string):
    assert len(string) < 0xFF
    return bytes([len(string)]) + string.encode("latin-1")


def int32(*numbers):
    return b"".join((number & 0xFFFFFFFF).to_bytes(4, "little") for number in numbers)


def node(type_name, left=b"\0", right=b"\0", symbol="", font=True, addition=b"", stored=None):
    """The type's name and its record; left and right are such pieces, or an empty name."""
    return (text(type_name) + left + right + int32(2, 1, 0, 0, 0) + text(stored or type_name)
            + text(symbol) + text("") + int32(0, 0, 0, 0, 0, 0)
            + (text("Times New Roman") + int32(0, 0) if font else b"") + addition)


FORMAT = (text("Times New Roman") + int32(0x123456, 1, 0) + b"\0") * 7 + int32(-12, -10, -8, -16, -12)
HEAD = text("1+\\") + int32(-1, 2, 300, 70000) + text("a\nb")


def number(symbol):
    return node("NT_NUMBER", symbol=symbol, addition=bytes(8) + int32(1, 1))


class Written(Case):
    def setUp(self):
        super().setUp()
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def test_other_programs_read_the_files(self):
        with open(FORMULAS, encoding="utf-8") as file:
            lines = [line for line in file.read().splitlines() if line] + [COMMON, "", "2x"]
        self.assertGreater(len(lines), 20)
        stdin = "\n".join(lines).encode() + b"\n"
        run("batch", "-", "-d", self.path("out"), "--format", "fml", stdin=stdin)
        trees = run("tree", "--lines", stdin=stdin)[1].decode().splitlines()
        self.assertEqual(len(os.listdir(self.path("out"))), len(lines))
        for number_, (line, tree) in enumerate(zip(lines, trees, strict=True), 1):
            with self.subTest(line):
                path = self.path("out/%06d.fml" % number_)
                content = archive_reader.contents(path)  # strict about the container
                unpacked = subprocess.run(["7z", "e", "-so", path, "Contents"],
                                          capture_output=True, check=True).stdout
                self.assertEqual(unpacked, content)
                formula = archive_reader.read_formula(content)
                self.assertEqual(formula["text"].decode("cp1252"), line)
                self.assertEqual(formula["name"], b"")
                self.assertEqual(without_kind_symbols(archive_reader.tree_form(formula["root"])),
                                 without_kind_symbols(tree.split("\t")[0]))
                rect = " ".join(map(str, formula["rect"]))
                self.assertEqual(run("measure", line)[1].decode().split("\t")[1], rect)
                self.assertEqual(formula["format"]["sizes"], [-12, -10, -8, -16, -12])

    def test_two_saves_give_the_same_bytes(self):
        for name in "one.fml", "two.FML":
            self.assertEqual(run("render", COMMON, "-o", self.path(name))[0], 0)
        with open(self.path("one.fml"), "rb") as one, open(self.path("two.FML"), "rb") as two:
            self.assertEqual(one.read(), two.read())

    def test_inspect_tells_what_the_other_reader_finds(self):
        path = self.path("x.fml")
        run("render", COMMON, "-o", path)
        formula = archive_reader.read_formula(archive_reader.contents(path))
        tree = archive_reader.tree_form(formula["root"])
        status, out, err = run("inspect", path)
        lines = out.decode().splitlines()
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(lines[:4], ["text: " + COMMON,
                                     "rectangle: " + " ".join(map(str, formula["rect"])), "name: ",
                                     "tree: " + tree])
        self.assertTrue(lines[4].startswith('format: text "Times New Roman" 0x00000000 bold 0 '))
        self.assertEqual(len(lines), 5)
        shown = json.loads(run("inspect", "--json", path)[1])
        self.assertEqual((shown["text"], shown["tree"]), (COMMON, tree))
        self.assertEqual(shown["rectangle"], list(formula["rect"]))
        sizes = formula["format"]["sizes"]
        self.assertEqual(shown["format"].pop("sizes"), sizes)
        self.assertEqual({name: dict(record, face=record["face"].encode())
                          for name, record in shown["format"].items()},
                         formula["format"]["records"])

    def test_a_stored_tree_looks_like_the_parsed_one(self):
        """Without products, whose gap a parse sets."""
        formula = "sum(i^2,i=1,n)/greek a<=sqr(x+b)"
        path = self.path("x.fml")
        run("render", formula, "-o", path)
        parsed = json.loads(run("layout", formula)[1])
        stored = json.loads(run("layout", "--fml", path)[1])
        self.assertEqual(stored.pop("gap"), 2)
        parsed.pop("gap")
        self.assertEqual(stored, parsed)
        for extension in PICTURES:
            run("render", formula, "-o", self.path("parsed." + extension))
            status, out, err = run("inspect", path, "-o", self.path("stored." + extension))
            self.assertEqual((status, out[:6], err), (0, b"text: ", ""))
            with open(self.path("parsed." + extension), "rb") as one, \
                    open(self.path("stored." + extension), "rb") as two:
                self.assertEqual(one.read(), two.read(), extension)

    def test_failures_leave_the_old_file(self):
        """The disk is full after 600 bytes, the folder is not there, the target is no file."""
        def small_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (600, 600))

        path = self.path("x.fml")
        with open(path, "wb") as file:
            file.write(b"old")
        status, out, err = run("render", "a", "-o", path, preexec_fn=small_disk)
        self.assertEqual((status, out), (1, b""))
        self.assertEqual(err, f"mivora: cannot write {path}: {program.TOO_LARGE}\n")
        with open(path, "rb") as file:
            self.assertEqual(file.read(), b"old")
        self.assertEqual(os.listdir(self.folder.name), ["x.fml"])
        for target in self.path("no/x.fml"), self.path("ü/x.fml"):
            status, out, err = run("render", "a", "-o", target)
            self.assertEqual((status, out), (1, b""))
            self.assertRegex(err, f"^mivora: cannot write {target}: {NO_FOLDER}\n$")
        os.mkdir(self.path("y.fml"))
        status, _, err = run("render", "a", "-o", self.path("y.fml"))
        self.assertEqual(status, 1)
        self.assertRegex(err, r"^mivora: .*y\.fml.*\n$")


class Read(Case):
    def setUp(self):
        super().setUp()
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = os.path.join(self.folder.name, "x.fml")

    def inspect(self, data, *words):
        with open(self.path, "wb") as file:
            file.write(data)
        return run("inspect", self.path, *words)

    def archive(self, content, *words):
        return self.inspect(compound_file("Contents", content), *words)

    def assertRefused(self, answer, reason):
        status, out, err = answer
        self.assertEqual((status, out), (1, b""))
        self.assertRegex(err, "^mivora: [^\n]*" + reason + "[^\n]*\n$")

    def test_sound_archives(self):
        division = node("NT_DIVISION", number("1"), number("2"), "/", addition=int32(0))
        status, out, err = self.archive(HEAD + node("NT_STANDARD", division) + FORMAT)
        self.assertEqual((status, err), (0, ""))
        record = '"Times New Roman" 0x00123456 bold 1 italic 0 charset 0; '
        self.assertEqual(out.decode(), "text: 1+\\x5C\nrectangle: -1 2 300 70000\nname: a\\x0Ab\n"
                         'tree: (STANDARD "" (DIVISION[0] "/" (NUMBER "1" - -) (NUMBER "2" - -)) '
                         "-)\nformat: " + "".join(f"{name} {record}" for name in
                                                  archive_reader.RECORDS)
                         + "sizes -12 -10 -8 -16 -12\n")
        # Two-byte characters, as wide programs store them.
        wide = b"\xff\xfe\xff" + bytes([2]) + "aä".encode("utf-16-le")
        out = self.archive(wide + HEAD[len(text("1+\\")):] + node("NT_STANDARD") + FORMAT)[1]
        self.assertTrue(out.decode().startswith("text: aä\n"), out)
        # A stream that is too long for the mini stream.
        long = node("NT_STANDARD", number("x" * 250), b"\0")
        for _ in range(20):
            long = node("NT_PLUS", number("x" * 250), long, "+", addition=int32(0))
        status, out, err = self.archive(HEAD + long + FORMAT)
        self.assertEqual((status, err, out.count(b"x" * 250)), (0, "", 21))

    def test_the_empty_formula(self):
        empty = HEAD + int32(0) + FORMAT
        status, out, err = self.archive(empty)
        self.assertEqual((status, err), (0, ""))
        self.assertIn(b"\ntree: -\nformat: text \"Times New Roman\" 0x00123456", out)
        picture = os.path.join(self.folder.name, "x." + SMALL_PICTURE)
        self.assertEqual(self.archive(empty, "-o", picture)[0], 0)
        status, out, _ = run("layout", "--fml", self.path)
        self.assertEqual((status, json.loads(out)), (0, {"gap": 2, "rect": [0] * 4, "root": None}))

    def test_classes_that_no_parse_makes(self):
        leaves = number("1"), number("2")
        for type_name, addition in (("NT_POISON", int32(0)), ("NT_ARROWS", int32(11)),
                                    ("NT_BINOMIAL", b""), ("NT_LIMES", b""), ("NT_LABEL", b""),
                                    ("NT_CROSS", int32(0)), ("NT_INTEGRAND", b"")):
            with self.subTest(type_name):
                picture = os.path.join(self.folder.name, "x.png")
                stored = node("NT_STANDARD", node(type_name, *leaves, addition=addition))
                status, out, err = self.archive(HEAD + stored + FORMAT, "-o", picture)
                self.assertEqual((status, err), (0, ""))
                self.assertIn(type_name.removeprefix("NT_").encode(), out)
                self.assertGreater(os.path.getsize(picture), 100)

    def test_other_forms(self):
        """Products and indices come from the stored tree, not from a parse."""
        run("render", "mark(x,i,2)*nsqr(a+b,3)", "-o", self.path)
        for command, form in (
                ("latex", r"x_{i}^{2} \sqrt[3]{a+b}"),
                ("speak", "x sub i superscript 2 times the third root of the quantity a plus b")):
            status, out, err = run(command, "--fml", self.path)
            self.assertEqual((status, out.decode(), err), (0, form + "\n", ""))
        brace = HEAD + node("NT_STANDARD", node("NT_BRACE", number("1"), addition=int32(-7))) + FORMAT
        self.archive(brace)
        self.assertRefused(run("mathml", "--fml", self.path), "not valid")
        self.assertRefused(run("mathml", "--fml", self.path + "y"), NO_FILE)

    def test_bad_archives(self):
        sound = node("NT_STANDARD", number("1"))
        levels = text("NT_BRACE") * 100_000
        for content, reason in (
                (HEAD + node("NT_standard") + FORMAT, "unknown class"),
                (HEAD + node("NT_STANDARD", node("NT_BRAC")) + FORMAT, "unknown class"),
                (HEAD + node("NT_STANDARD", stored="nothing") + FORMAT, "unknown class"),
                (HEAD + levels, "damaged"),
                (b"\xff\xff\xff\xff\xff\xff\xff" + HEAD + sound + FORMAT, "damaged|too early"),
                (HEAD + b"\xff\xff\xff\xf0\xff\xff\xff" + sound + FORMAT, "damaged|too early"),
                (HEAD + sound + FORMAT[:-1], "too early"),
                (HEAD[:10], "too early"),
                (b"", "too early")):
            with self.subTest(content[:60]):
                self.assertRefused(self.archive(content), reason)
        # A kind outside its table can be told, but not shown.
        brace = HEAD + node("NT_STANDARD", node("NT_BRACE", number("1"), addition=int32(-7))) + FORMAT
        self.assertIn(b"BRACE[-7]", self.archive(brace)[1])
        self.assertRefused(self.archive(brace, "-o", self.path + ".png"), "not valid")
        self.assertRefused(run("layout", "--fml", self.path), "not valid")
        self.assertFalse(os.path.exists(self.path + ".png"))

    def test_faces_that_are_missing(self):
        """A name of control characters is told in one line."""
        face = node("NT_STANDARD", symbol="x").replace(b"Times New Roman", b"a\nb\x1b[31mxxxxxxx")
        status, _, err = self.archive(HEAD + face + FORMAT, "-o", self.path + ".svg")
        self.assertEqual(status, 0)
        self.assertRegex(err, r'^mivora: the font "a\?b\?\[31mxxxxxxx" is missing; [^\n]*\n$')

    def test_files_that_are_no_stored_formula(self):
        sound = HEAD + node("NT_STANDARD") + FORMAT
        for data in (b"", b"text", sound, compound_file("Other", sound), b"\xd0\xcf\x11\xe0" * 300):
            with self.subTest(data[:20]):
                self.assertRefused(self.inspect(data), "x.fml")
        self.assertRefused(run("inspect", self.folder.name), IS_FOLDER)
        self.assertRefused(run("layout", "--fml", self.path + "y"), NO_FILE)

    def test_damage(self):
        """A sample: all places are damaged where no process has to be started for each."""
        run("render", "a", "-o", self.path)
        with open(self.path, "rb") as file:
            whole = file.read()
        for length in range(0, len(whole), 61):
            with self.subTest(cut=length):
                status, out, err = self.inspect(whole[:length])
                self.assertEqual((status, out, err.count("\n")), (1, b"", 1), err)
        for place in range(3, len(whole), 47):
            with self.subTest(place=place):
                data = bytearray(whole)
                data[place] ^= 0xFF
                status, out, err = self.inspect(bytes(data), "-o",
                                                self.path + "." + SMALL_PICTURE)
                if status == 0:
                    self.assertEqual((out.count(b"\n"), err), (5, ""))
                else:
                    self.assertEqual((status, out, err.count("\n")), (1, b"", 1), err)


if __name__ == "__main__":
    program.main()
