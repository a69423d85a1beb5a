#!/usr/bin/env python3
"""Plays gestures by the command edit: states line by line, stored formulas, wrong scripts."""
import os
import re
import tempfile

import program
from program import NO_FILE, Case

EMPTY_BARS = "0 0 0 0 0 0 0 300x200"
START = f'(STANDARD "" (VARIABLE "a" - -) -)\t-:0\t-\t00\t-\t{EMPTY_BARS}\tundo 0 changed 0\t-\n'
CHOSEN = START.replace("-:0", "/L:1").replace("\t00", "\t10")
TYPED = (CHOSEN.replace('"a"', '"B"')
         .replace("\t-\t0 0", '\t/L "B" 1 1 -9 -2 21 19\t0 0'))
DONE = (START.replace('"a"', '"B"').replace("-:0", "-:1").replace("\t00", "\t10")
        .replace("undo 0 changed 0", "undo 1 changed 1"))
SMALL = START.replace("300x200", "40x30")

# words behind "edit", script on standard input, standard output, standard error (pattern), status
CASES = [
    (["a", "--script", "-"], b"", START, "", 0),
    (["a", "--script", "-"], b"\n  # a comment\n\t\n", START, "", 0),
    (["a", "--script", "-"], b"press 5 8\nkey 66\r\nchar 13", START + CHOSEN + TYPED + DONE, "", 0),
    (["a", "--script", "-", "--size", "40x30"], b"", SMALL, "", 0),
    (["a", "--script", "-", "--read-only"], b"press 5 8\n", START * 2, "", 0),
    (["--script=-", "--", "-x"], b"", None, "", 0),
    (["", "--script", "-"], b"", None, "", 0),
    (["2x", "--script", "-"], b"", None, "mivora: .*\n.*2x\n.*\\^\n", 0),
    (["a", "--script", "-"], b"press 5 8\n\njump\npaint\n", START + CHOSEN,
     "mivora: edit: line 3 of the script is no gesture: jump; .*\n", 2),
    (["a", "--script", "-"], b"press 5\n", START, "mivora: edit: line 1 .*\n", 2),
    (["a"], b"", "", "mivora: edit: --script FILE is needed.*\n", 2),
    (["--script", "-"], b"", "", "mivora: edit: a TEXT is needed.*\n", 2),
    (["-", "--script", "-"], b"", "", "mivora: edit: .* both .* standard input.*\n", 2),
    (["a", "--fml", "x.fml", "--script", "-"], b"", "", "mivora: edit: --fml and a TEXT .*\n", 2),
    (["a", "--script", "-", "--size", "40"], b"", "", "mivora: edit: --size takes WxH.*\n", 2),
    (["a", "--script", "-", "--size", "-4x5"], b"", "", "mivora: edit: --size takes WxH.*\n", 2),
    (["a", "--script", "missing.txt"], b"", "", f"mivora: .*missing.txt: {NO_FILE}\n", 1),
    (["--fml", "missing.fml", "--script", "-"], b"", "", f"mivora: .*missing.fml: {NO_FILE}\n", 1),
    (["a" * 65535, "--script", "missing.txt"], b"", "", "mivora: Error in Calculation.*\n", 1),
]


class Edit(Case):
    def run_edit(self, *words, stdin=b"", cwd=None):
        status, out, err = program.run("edit", *words, stdin=stdin, cwd=cwd)
        return status, out.decode(), err

    def test_table(self):
        with tempfile.TemporaryDirectory() as folder:
            for words, stdin, out, err, status in CASES:
                with self.subTest(words=[word[:40] for word in words], stdin=stdin):
                    got = self.run_edit(*words, stdin=stdin, cwd=folder)
                    self.assertEqual(got[0], status, got[2])
                    if out is not None:
                        self.assertEqual(got[1], out)
                    self.assertRegex(got[2], re.compile("^(?:%s)$" % err, re.S))
            self.assertEqual(os.listdir(folder), [])

    # A subtree goes, a name comes into its place, both over two runs and a file; what is stored has
    # no node that the editor hides.
    def test_stored(self):
        with tempfile.TemporaryDirectory() as folder:
            script = os.path.join(folder, "gestures.txt")
            with open(script, "wb") as file:
                file.write(b"double 8 21\nkey 46\nkey 90\nchar 101\n")
            status, _, err = self.run_edit("a/b+c", "--script", "gestures.txt", "-o", "new.fml",
                                           cwd=folder)
            self.assertEqual((status, err), (0, ""))
            status, out, err = self.run_edit("--fml", "new.fml", "--script", "-", cwd=folder)
            self.assertEqual((status, err), (0, ""))
            self.assertEqual(out.split("\t")[0], '(STANDARD "" (PLUS "+" (VARIABLE "Ze" - -) '
                             '(VARIABLE "c" - -)) -)')
            layout = program.run("layout", "--fml", "new.fml", cwd=folder)[1]
            self.assertIn(b'"Ze"', layout)
            picture = os.path.join(folder, "new.bmp")
            fresh = os.path.join(folder, "fresh.bmp")
            program.run("inspect", "new.fml", "-o", "new.bmp", cwd=folder)
            program.run("render", "Ze+c", "-o", "fresh.bmp", cwd=folder)
            with open(picture, "rb") as one, open(fresh, "rb") as other:
                self.assertEqual(one.read(), other.read())

    # The editor that is open at the end ends too; a run that fails stores nothing.
    def test_nothing_stored_after_failure(self):
        with tempfile.TemporaryDirectory() as folder:
            status, _, _ = self.run_edit("a", "--script", "-", "-o", "new.fml", stdin=b"jump\n",
                                         cwd=folder)
            self.assertEqual((status, os.listdir(folder)), (2, []))


if __name__ == "__main__":
    program.main()
