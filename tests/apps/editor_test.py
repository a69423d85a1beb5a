#!/usr/bin/python3
"""The editor, used as a person does: by mouse and keyboard on a display. What it stores is read by
the command line and by a reader that knows nothing of the library."""
import argparse
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tools"))
import archive_reader  # noqa: E402

_options = argparse.ArgumentParser()
for name in ("hand", "editor", "mivora", "runner"):
    _options.add_argument("--" + name, required=True)
OPTIONS, REST = _options.parse_known_args()

# Child windows of the editor (apps/editor/resource.h).
TEXT, MESSAGE, NODE, CHANGES, READ_ONLY = 1001, 1010, 1011, 1012, 1013
CONTROL = "MFCFormulaCtrl"
TITLE = "Mivora Editor"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def mivora(*words):
    return subprocess.run([OPTIONS.runner, OPTIONS.mivora, *words], capture_output=True,
                          check=True).stdout.decode()


def middle(text, path):
    """Where a node of a text's formula stands: PATH in letters L and R from the root down."""
    node = json.loads(mivora("layout", text))["root"]
    for letter in path:
        node = node["left" if letter == "L" else "right"]
    left, top, right, bottom = node["rect"]
    return f"{(left + right) // 2} {(top + bottom) // 2}"


class Editor(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def start(self, *words):
        self.editor = subprocess.Popen([OPTIONS.runner, OPTIONS.editor, *words])
        self.hand = subprocess.Popen([OPTIONS.runner, OPTIONS.hand, TITLE], text=True,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(self.let_go)
        self.assertEqual(self.hand.stdout.readline().strip(), "ready")

    def let_go(self):
        self.hand.stdin.close()
        self.hand.wait(20)
        self.hand.stdout.close()
        self.editor.wait(20)

    def do(self, script, **places):
        """Steps, and behind arrows what they lead to: the hand must be content with each."""
        for step in filter(None, map(str.strip, re.split(" -> |\n", script.format(**places)))):
            print(step, file=self.hand.stdin, flush=True)
            answer = self.hand.stdout.readline().strip()
            self.assertEqual(answer, "yes", step)

    def answer_dialog(self, command, name):
        """Types a path into the dialog that a command opens."""
        self.do(f"""{command}
                    dialog yes
                    type {windows_path(self.folder / name)}
                    key Enter -> dialog no""")

    def close(self):
        self.do("key Alt-F4")
        self.assertEqual(self.editor.wait(20), 0)

    def check_file(self, name, text, tree):
        """The command line and the independent reader find the same in a stored formula."""
        path = self.folder / name
        formula = archive_reader.read_formula(archive_reader.contents(path))
        self.assertEqual(archive_reader.tree_form(formula["root"]), tree)
        self.assertEqual(formula["text"].decode("cp1252"), text)
        told = json.loads(mivora("inspect", "--json", windows_path(path)))
        self.assertEqual(told["tree"], tree)

    def test_mouse(self):
        """Nodes are selected, deleted, named and cut."""
        text = "a/b+c"
        self.start()
        self.do(f"""
            title formula - {TITLE}
            type {text}
            key Enter
            click {CONTROL} {{b}} -> await {NODE} NT_VARIABLE, node
            key Del -> await {NODE} NT_PLACEHOLDER, node
            await {CHANGES} changes: 1
            key n -> focus Edit
            type ame
            key Enter -> focus {CONTROL}
            await {CHANGES} changes: 2
            await {NODE} nothing selected
            double {CONTROL} {{plus}} -> await {NODE} NT_PLUS, subtree
            """, b=middle(text, "LLR"), plus=middle("a/Name+c", "L"))
        self.do(f"""
            click {CONTROL} {{c}} -> await {NODE} NT_VARIABLE, node
            key Ctrl-x -> await {NODE} nothing selected
            """, c=middle("a/Name+c", "LR"))
        self.answer_dialog("key Ctrl-s", "mouse.fml")
        self.do(f"""
            title mouse.fml - {TITLE}
            await {MESSAGE} Saved mouse.fml""")
        self.close()
        self.check_file("mouse.fml", text,
                        '(STANDARD "" (PLUS "+" (DIVISION[0] "/" (VARIABLE "a" - -) '
                        '(VARIABLE "Name" - -)) (PLACEHOLDER "" - -)) -)')

    def test_keys_alone(self):
        """A subtree is deleted, its slot typed into; another one is cut and pasted elsewhere."""
        text = "a*b+c/d"
        self.start()
        self.do(f"""
            type {text}
            key Enter Tab -> focus {CONTROL}
            await {NODE} NT_STANDARD, subtree
            key Left -> await {NODE} NT_PLUS, subtree
            key Right -> await {NODE} NT_DIVISION, subtree
            key Del -> await {NODE} NT_PLACEHOLDER, subtree
            await {CHANGES} changes: 1
            key Up Left -> await {NODE} NT_TIMES, subtree
            key Ctrl-x -> await {NODE} nothing selected
            key Ctrl-a Left Right -> await {NODE} NT_PLACEHOLDER, subtree
            key Ctrl-v -> await {NODE} nothing selected
            key Ctrl-a Left Left -> await {NODE} NT_PLACEHOLDER, subtree
            key Space -> await {NODE} NT_PLACEHOLDER, node
            key k -> focus Edit
            type appa
            key Tab -> focus {CONTROL}
            await {CHANGES} changes: 2
            key Tab -> focus Edit
            await {TEXT} {text}
            key Alt-f -> menu yes
            key a
            """)
        self.answer_dialog("menu no", "keys.fml")
        self.do(f"title keys.fml - {TITLE}")
        self.close()
        self.check_file("keys.fml", text,
                        '(STANDARD "" (PLUS "+" (VARIABLE "Kappa" - -) (TIMES "" '
                        '(VARIABLE "a" - -) (VARIABLE "b" - -))) -)')

    def test_clipboard_of_boxes(self):
        """In a box of text the edit commands mean its text, in the control the node."""
        self.start()
        self.do(f"""
            type ab
            key Ctrl-a Ctrl-c End Ctrl-v -> await {TEXT} abab
            key Enter Tab Left -> await {NODE} NT_VARIABLE, subtree
            key z -> focus Edit
            key Ctrl-a Ctrl-v
            """)
        # Saving ends the edit and takes its text.
        self.answer_dialog("key Ctrl-s", "box.fml")
        self.do(f"""title box.fml - {TITLE}
                    focus {CONTROL}
                    await {CHANGES} changes: 1""")
        self.close()
        self.check_file("box.fml", "abab", '(STANDARD "" (VARIABLE "ab" - -) -)')

    def test_errors_and_read_only(self):
        """A syntax error is told with its place; a read-only formula is copied but not changed."""
        self.start()
        self.do(f"""
            type 2x
            key Enter -> await {MESSAGE} Error at Position 2!
            key Ctrl-a
            type a/b
            key Enter -> await {MESSAGE}
            key Ctrl-r -> await {READ_ONLY} read-only
            click {CONTROL} {{b}}
            key Tab -> focus {CONTROL}
            key Del -> await {NODE} nothing selected
            key Ctrl-a -> await {NODE} NT_STANDARD, subtree
            key Ctrl-x Ctrl-c Ctrl-v k -> await {NODE} NT_STANDARD, subtree
            key Ctrl-r -> await {READ_ONLY}
            await {CHANGES} changes: 0
            """, b=middle("a/b", "LR"))

    def test_files(self):
        """Export by extension; what is opened, edited and given up stays as it was."""
        b = middle("a/b", "LR")
        self.start()
        self.do("type a/b\nkey Enter")
        # A selection stays, and no picture shows it: the first one is written without.
        for extension, selected in (("emf", "nothing selected"), ("wmf", "NT_VARIABLE, node"),
                                    ("bmp", "NT_VARIABLE, node"), ("fml", "NT_VARIABLE, node")):
            self.answer_dialog("key Ctrl-e", "out." + extension)
            self.do(f"""await {MESSAGE} Exported out.{extension}
                        await {NODE} {selected}""")
            if extension == "emf":
                self.do(f"click {CONTROL} {b}")
        size = re.findall(r"-?\d+", mivora("measure", "a/b"))[2:4]
        emf, bmp = (self.folder / "out.emf").read_bytes(), (self.folder / "out.bmp").read_bytes()
        self.assertEqual(emf[40:44], b" EMF")
        self.assertEqual((self.folder / "out.wmf").read_bytes(), emf)
        self.assertEqual([str(int.from_bytes(bmp[n:n + 4], "little")) for n in (18, 22)], size)
        tree = mivora("tree", "a/b").split("\t")[0]
        self.check_file("out.fml", "a/b", tree)

        self.do(f"""key Ctrl-n -> dialog yes
                    key n -> dialog no
                    await {TEXT}""")
        self.answer_dialog("key Ctrl-o", "out.fml")
        self.do(f"""title out.fml - {TITLE}
                    await {TEXT} a/b
                    click {CONTROL} {{b}}
                    key Del -> await {CHANGES} changes: 1
                    key Alt-F4 -> dialog yes
                    key n""", b=b)
        self.check_file("out.fml", "a/b", tree)

    def test_file_on_the_command_line(self):
        """A file that is none is refused, and the empty slot of the beginning stays."""
        (self.folder / "no.fml").write_bytes(b"nothing")
        self.start(windows_path(self.folder / "no.fml"))
        self.do(f"""dialog yes
                    key Enter -> dialog no
                    await {NODE} NT_PLACEHOLDER, node
                    key Tab q Enter -> await {CHANGES} changes: 1""")


if __name__ == "__main__":
    os.environ.setdefault("PYTHONDONTWRITEBYTECODE", "1")
    unittest.main(argv=[sys.argv[0], *REST])
