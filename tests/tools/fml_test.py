#!/usr/bin/python3
"""Stored formulas: what the command line writes is taken apart by other programs, and what other
programs make, sound or damaged, is answered by it."""
import json
import re
import resource
import signal
import subprocess

import archive_reader
import program
from compound_writer import compound_file
from program import COMMAND, FORMULAS, IS_FOLDER, NO_FILE, OTHER, PICTURES, SMALL_PICTURE, Case, run

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


def node(type_name, left=b"\0", right=b"\0", symbol="", addition=b"", stored=None):
    """The type's name and its record; left and right are such pieces, or an empty name."""
    return (text(type_name) + left + right + int32(2, 1, 0, 0, 0) + text(stored or type_name)
            + text(symbol) + text("") + int32(0, 0, 0, 0, 0, 0)
            + text("Times New Roman") + int32(0, 0) + addition)


def number(symbol):
    return node("NT_NUMBER", symbol=symbol, addition=bytes(8) + int32(1, 1))


FORMAT = (text("Times New Roman") + int32(0x123456, 1, 0) + b"\0") * 7 + int32(-12, -10, -8, -16, -12)
NUMBERS = int32(-1, 2, 300, 70000) + text("a\nb")
HEAD = text("1+\\") + NUMBERS
SOUND = node("NT_STANDARD", number("1"))
NO_SUCH_KIND = HEAD + node("NT_STANDARD", node("NT_BRACE", number("1"), addition=int32(-7))) + FORMAT

# Contents, and why they are refused
BAD_ARCHIVES = [
    (HEAD + node("NT_standard") + FORMAT, "unknown class"),
    (HEAD + node("NT_STANDARD", node("NT_BRAC")) + FORMAT, "unknown class"),
    (HEAD + node("NT_STANDARD", stored="nothing") + FORMAT, "unknown class"),
    (HEAD + text("NT_BRACE") * 100_000, "damaged"),
    (b"\xff\xff\xff\xff\xff\xff\xff" + HEAD + SOUND + FORMAT, "damaged|too early"),
    (HEAD + b"\xff\xff\xff\xf0\xff\xff\xff" + SOUND + FORMAT, "damaged|too early"),
    (HEAD + SOUND + FORMAT[:-1], "too early"),
    (HEAD[:10], "too early"),
    (b"", "too early"),
]


class StoredCase(Case):
    def setUp(self):
        super().setUp()
        self.path = self.folder / "x.fml"

    def inspect(self, data, *words):
        self.path.write_bytes(data)
        return run("inspect", self.path, *words)

    def archive(self, content, *words):
        return self.inspect(compound_file("Contents", content), *words)

    def check_sound(self, answer):
        status, out, err = answer
        self.assertEqual((status, err), (0, ""))
        return out

    def check_refused(self, answer, reason=""):
        status, out, err = answer
        self.assertEqual((status, out), (1, ""))
        self.assertRegex(err, "^mivora: [^\n]*(%s)[^\n]*\n$" % reason)


class Written(StoredCase):
    def test_other_programs_read_the_files(self):
        lines = [*FORMULAS.read_text(encoding="utf-8").split("\n"), COMMON, "2x"]
        self.assertGreater(len(lines), 20)
        stdin = "\n".join(lines).encode() + b"\n"
        run("batch", "-", "-d", self.folder, "--format", "fml", stdin=stdin)
        trees = run("tree", "--lines", stdin=stdin)[1].splitlines()
        for line, tree, path in zip(lines, trees, sorted(self.folder.iterdir()), strict=True):
            with self.subTest(line):
                content = archive_reader.contents(path)  # strict about the container
                unpacked = subprocess.run(["7z", "e", "-so", path, "Contents"], capture_output=True, check=True)
                self.assertEqual(unpacked.stdout, content)
                formula = archive_reader.read_formula(content)
                self.assertEqual((formula["text"].decode("cp1252"), formula["name"]), (line, b""))
                self.assertEqual(without_kind_symbols(archive_reader.tree_form(formula["root"])),
                                 without_kind_symbols(tree.split("\t")[0]))
                self.assertEqual(" ".join(map(str, formula["rect"])), run("measure", line)[1].split("\t")[1])
                self.assertEqual(formula["format"]["sizes"], [-12, -10, -8, -16, -12])

    def test_both_systems_store_the_same(self):
        """And both read the same from it."""
        ours, theirs = self.folder / "ours", self.folder / "theirs"
        self.told("batch", FORMULAS, "-d", ours, "--format", "fml")
        self.told("batch", FORMULAS, "-d", theirs, "--format", "fml", command=OTHER)
        for path in sorted(ours.iterdir()):
            content = archive_reader.contents(path)
            self.assertEqual(content, archive_reader.contents(theirs / path.name))
            self.assertEqual(self.told("inspect", path), self.told("inspect", path, command=OTHER))
            again = []
            for command in COMMAND, OTHER:
                self.told("edit", "--fml", path, "--script", "-", "-o", self.path, command=command)
                again.append(archive_reader.contents(self.path))
            self.assertEqual(*again)

    def test_inspect_tells_what_the_other_reader_finds(self):
        self.picture(COMMON, name="x.fml")
        formula = archive_reader.read_formula(archive_reader.contents(self.path))
        tree, records = archive_reader.tree_form(formula["root"]), formula["format"]["records"]
        lines = self.told("inspect", self.path).splitlines()
        self.assertEqual(lines[:4], ["text: " + COMMON, "rectangle: " + " ".join(map(str, formula["rect"])),
                                     "name: ", "tree: " + tree])
        self.assertRegex(lines[4], '^format: text "Times New Roman" 0x00000000 bold 0 ')
        self.assertEqual(len(lines), 5)
        shown = json.loads(self.told("inspect", "--json", self.path))
        for record in records.values():
            record["face"] = record["face"].decode()
        self.assertEqual(shown, shown | {
            "text": COMMON, "tree": tree, "rectangle": list(formula["rect"]),
            "format": records | {"sizes": formula["format"]["sizes"]}})

    def test_a_stored_tree_looks_like_the_parsed_one(self):
        """Without products, whose gap a parse sets."""
        formula = "sum(i^2,i=1,n)/greek a<=sqr(x+b)"
        self.picture(formula, name="x.fml")
        parsed = json.loads(self.told("layout", formula))
        self.assertEqual(json.loads(self.told("layout", "--fml", self.path)), parsed | {"gap": 2})
        for extension in PICTURES:
            parsed, _ = self.picture(formula, name="parsed." + extension)
            stored = self.folder / ("stored." + extension)
            self.assertTrue(self.told("inspect", self.path, "-o", stored).startswith("text: "))
            self.assertEqual(stored.read_bytes(), parsed, extension)

    def test_failures_leave_the_old_file(self):
        """The disk is full after 600 bytes, the target is no file."""
        def small_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (600, 600))

        self.path.write_bytes(b"old")
        self.assertEqual(run("render", "a", "-o", self.path, preexec_fn=small_disk),
                         (1, "", f"mivora: cannot write {self.path}: {program.TOO_LARGE}\n"))
        self.assertEqual(([*self.folder.iterdir()], self.path.read_bytes()), ([self.path], b"old"))
        folder = self.folder / "y.fml"
        folder.mkdir()
        self.check_refused(run("render", "a", "-o", folder), r"y\.fml")


class Read(StoredCase):
    def test_sound_archives(self):
        division = node("NT_DIVISION", number("1"), number("2"), "/", addition=int32(0))
        record = '"Times New Roman" 0x00123456 bold 1 italic 0 charset 0; '
        self.assertEqual(
            self.check_sound(self.archive(HEAD + node("NT_STANDARD", division) + FORMAT)),
            "text: 1+\\x5C\nrectangle: -1 2 300 70000\nname: a\\x0Ab\n"
            'tree: (STANDARD "" (DIVISION[0] "/" (NUMBER "1" - -) (NUMBER "2" - -)) -)\nformat: '
            + "".join(f"{name} {record}" for name in archive_reader.RECORDS) + "sizes -12 -10 -8 -16 -12\n")
        # Two-byte characters, as wide programs store them.
        wide = b"\xff\xfe\xff" + bytes([2]) + "aä".encode("utf-16-le")
        self.assertRegex(self.archive(wide + NUMBERS + node("NT_STANDARD") + FORMAT)[1], "^text: aä\n")
        # A stream that is too long for the mini stream.
        long = node("NT_STANDARD", number("x" * 250), b"\0")
        for _ in range(20):
            long = node("NT_PLUS", number("x" * 250), long, "+", addition=int32(0))
        self.assertEqual(self.check_sound(self.archive(HEAD + long + FORMAT)).count("x" * 250), 21)

    def test_the_empty_formula(self):
        answer = self.archive(HEAD + int32(0) + FORMAT, "-o", self.folder / ("x." + SMALL_PICTURE))
        self.assertIn("\ntree: -\nformat: text \"Times New Roman\" 0x00123456", self.check_sound(answer))
        self.assertEqual(json.loads(self.told("layout", "--fml", self.path)),
                         {"gap": 2, "rect": [0] * 4, "root": None})

    def test_other_forms(self):
        """Products and indices come from the stored tree, not from a parse."""
        self.picture("mark(x,i,2)*nsqr(a+b,3)", name="x.fml")
        for command, form in (
                ("latex", r"x_{i}^{2} \sqrt[3]{a+b}"),
                ("speak", "x sub i superscript 2 times the third root of the quantity a plus b")):
            self.assertEqual(self.told(command, "--fml", self.path), form + "\n")

    def test_a_kind_outside_its_table(self):
        """It can be told, but not shown."""
        picture = self.folder / "x.png"
        self.assertIn("BRACE[-7]", self.archive(NO_SUCH_KIND)[1])
        self.check_refused(self.archive(NO_SUCH_KIND, "-o", picture), "not valid")
        self.assertFalse(picture.exists())
        for command in "layout", "mathml":
            self.check_refused(run(command, "--fml", self.path), "not valid")
            self.check_refused(run(command, "--fml", self.folder / "y"), NO_FILE)

    def test_bad_archives(self):
        for content, reason in BAD_ARCHIVES:
            with self.subTest(content[:60]):
                self.check_refused(self.archive(content), reason)

    def test_faces_that_are_missing(self):
        """A name of control characters is told in one line."""
        face = node("NT_STANDARD", symbol="x").replace(b"Times New Roman", b"a\nb\x1b[31mxxxxxxx")
        status, _, err = self.archive(HEAD + face + FORMAT, "-o", self.folder / "x.svg")
        self.assertEqual(status, 0)
        self.assertRegex(err, r'^mivora: the font "a\?b\?\[31mxxxxxxx" is missing; [^\n]*\n$')

    def test_files_that_are_no_stored_formula(self):
        sound = HEAD + SOUND + FORMAT
        for data in b"", b"text", sound, compound_file("Other", sound), b"\xd0\xcf\x11\xe0" * 300:
            with self.subTest(data[:20]):
                self.check_refused(self.inspect(data), "x.fml")
        self.check_refused(run("inspect", self.folder), IS_FOLDER)


if __name__ == "__main__":
    program.main()
