"""The program under test: how it is started, what its system says, and what its tests have in common.

Options: --mivora PROGRAM, --runner COMMAND that it is started by, --formulas FILE, --other PROGRAM
of the other system.
"""
import argparse
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

_options = argparse.ArgumentParser()
for _option in "--mivora", "--runner", "--formulas", "--other":
    _options.add_argument(_option)
_options, REST = _options.parse_known_args()  # REST is for unittest

MIVORA = os.path.abspath(_options.mivora)
COMMAND = [os.path.abspath(_options.runner), MIVORA] if _options.runner else [MIVORA]
FORMULAS = _options.formulas and pathlib.Path(_options.formulas).absolute()
OTHER = [_options.other]
WINDOWS = MIVORA.endswith(".exe")

# Cases that only the other system has, and why.
LINUX_ONLY = {
    "Pdf.test_what_others_find": "cairo writes .pdf",
    "Source.test_compressed_pdf": "cairo writes .pdf",
    "Pictures.test_other_programs_show_the_same_pixels": "the pixels are those of cairo",
    "Batch.test_a_bar_on_a_terminal_only": "a pseudo terminal is no console",
    "Forms.test_bytes_that_are_no_text": "a word is wide there: it cannot hold them",
    "Read.test_faces_that_are_missing": "the system puts another face in their place by itself",
}
WINDOWS_ONLY = {
    "Forms.test_formats_of_another_system": "here all formats can be written",
    "Written.test_both_systems_store_the_same": "the other one is built later",
}

PICTURES = ["wmf", "emf", "bmp", "png", "svg"]
SMALL_PICTURE = "svg"  # of the formats that are quickly made, one that batch does not prefer
if WINDOWS:
    # Of the system, or of the one that runs its programs.
    NO_FILE = "(File not found|The system cannot find the file specified)"
    NO_FOLDER = "(Path not found|The system cannot find the path specified)"
    IS_FOLDER = "Access (is )?denied"
    TOO_LARGE = "General failure"  # a limit of the machine beneath, for which there is no word
else:
    NO_FILE = NO_FOLDER = "No such file or directory"
    IS_FOLDER = "Is a directory"
    TOO_LARGE = "File too large"
    PICTURES.append("pdf")

LONGEST_WORD = 32000 if WINDOWS else 100_000  # characters, about


def run_bytes(*words, stdin=b"", command=COMMAND, **more):
    """Status, standard output as bytes, standard error. Words may be text, bytes or paths; a TEXT too
    long for a word goes to standard input."""
    words = list(map(os.fspath, words))
    for n, word in enumerate(words):
        if len(word) > LONGEST_WORD:
            words[n], stdin = "-", word.encode()
    done = subprocess.run([*command, *words], input=stdin, capture_output=True, check=False, **more)
    return done.returncode, done.stdout, done.stderr.decode()


def run(*words, **more):
    """The same with standard output as text."""
    status, out, err = run_bytes(*words, **more)
    return status, out.decode(), err


class Case(unittest.TestCase):
    """A test with an empty folder, that knows which system it is for."""
    maxDiff = None

    def setUp(self):
        name = "%s.%s" % (type(self).__name__, self._testMethodName)
        reason = (LINUX_ONLY if WINDOWS else WINDOWS_ONLY).get(name)
        if reason:
            self.skipTest(reason)
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def told(self, *words, **more):
        """What a command prints that finds nothing to complain of."""
        status, out, err = run(*words, **more)
        self.assertEqual((status, err), (0, ""), words)
        return out

    def picture(self, *words, name="x.png", **more):
        """The bytes of a picture, and what is printed about it. The text may have faults."""
        path = self.folder / name
        status, out, err = run("render", *words, "-o", path, **more)
        self.assertEqual(status, 0, err)
        return path.read_bytes(), out

    def check_rows(self, rows, *command):
        """A row: words behind the command, standard input, standard output (text or pattern; None:
        any), standard error (pattern), status. None of them leaves a file behind."""
        for words, stdin, out, err, status in rows:
            with self.subTest(words=[word[:40] for word in words], stdin=stdin[:40]):
                got_status, got_out, got_err = run(*command, *words, stdin=stdin, cwd=self.folder)
                self.assertEqual(got_status, status, got_err)
                if out is not None and got_out != out:
                    self.assertRegex(got_out, "^(?:%s)$" % out)
                self.assertRegex(got_err, "^(?:%s)$" % err)
        self.assertEqual(os.listdir(self.folder), [], "a file was left behind")


def commands():
    """The names of all commands."""
    listed = run("--help")[1].split("Commands:")[1].split("\n\n")[0]
    return re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE)


def main(module="__main__"):
    unittest.main(module, argv=[module, *REST])
