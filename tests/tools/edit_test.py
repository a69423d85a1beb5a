#!/usr/bin/env python3
"""Plays gestures by the command edit: states line by line, stored formulas, wrong scripts."""
import os

import program
from program import NO_FILE, Case, run

EMPTY_BARS = "0 0 0 0 0 0 0 300x200"
START = f'(STANDARD "" (VARIABLE "a" - -) -)\t-:0\t-\t00\t-\t{EMPTY_BARS}\tundo 0 changed 0\t-\n'
CHOSEN = START.replace("-:0", "/L:1").replace("\t00", "\t10")
TYPED = (CHOSEN.replace('"a"', '"B"')
         .replace("\t-\t0 0", '\t/L "B" 1 1 -9 -2 21 19\t0 0'))
DONE = (START.replace('"a"', '"B"').replace("-:0", "-:1").replace("\t00", "\t10")
        .replace("undo 0 changed 0", "undo 1 changed 1"))
SMALL = START.replace("300x200", "40x30")

# Words behind "edit", script on standard input, standard output, standard error (pattern), status
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
    # A run that fails stores nothing.
    (["a", "--script", "-", "-o", "new.fml"], b"press 5\n", START, "mivora: edit: line 1 .*\n", 2),
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
    def test_table(self):
        self.check_rows(CASES, "edit")

    def test_stored(self):
        """A subtree goes, a name comes into its place, both over two runs and a file; the editor that
        is open at the end ends too. What is stored has no node that the editor hides."""
        os.chdir(self.folder)
        self.addCleanup(os.chdir, "/")
        (self.folder / "gestures.txt").write_text("double 8 21\nkey 46\nkey 90\nchar 101\n")
        self.told("edit", "a/b+c", "--script", "gestures.txt", "-o", "new.fml")
        out = self.told("edit", "--fml", "new.fml", "--script", "-")
        self.assertEqual(out.split("\t")[0], '(STANDARD "" (PLUS "+" (VARIABLE "Ze" - -) '
                         '(VARIABLE "c" - -)) -)')
        self.assertIn('"Ze"', self.told("layout", "--fml", "new.fml"))
        run("inspect", "new.fml", "-o", "new.bmp")
        fresh, _ = self.picture("Ze+c", name="fresh.bmp")
        self.assertEqual((self.folder / "new.bmp").read_bytes(), fresh)


if __name__ == "__main__":
    program.main()
