"""The program under test: how it is started, what its system says, and which cases are not for it.

Options: --mivora PROGRAM, --runner COMMAND that it is started by, --formulas FILE.
"""
import argparse
import os
import subprocess
import unittest

_options = argparse.ArgumentParser()
_options.add_argument("--mivora", required=True)
_options.add_argument("--runner")
_options.add_argument("--formulas")
_options, REST = _options.parse_known_args()  # REST is for unittest

MIVORA = os.path.abspath(_options.mivora)
COMMAND = [os.path.abspath(_options.runner), MIVORA] if _options.runner else [MIVORA]
FORMULAS = _options.formulas and os.path.abspath(_options.formulas)
WINDOWS = MIVORA.endswith(".exe")

# Cases that only the other system has, and why.
LINUX_ONLY = {
    "Pdf.test_page": "cairo writes .pdf",
    "Pdf.test_text_in_reading_order": "cairo writes .pdf",
    "Pdf.test_words_about_it": "cairo writes .pdf",
    "Batch.test_a_bar_on_a_terminal_only": "a pseudo terminal is no console",
    "Forms.test_bytes_that_are_no_text": "a word is wide there: it cannot hold them",
    "Read.test_faces_that_are_missing": "the system puts another face in their place by itself",
}
WINDOWS_ONLY = {
    "Forms.test_formats_of_another_system": "here all formats can be written",
}

if WINDOWS:
    # Of the system, or of the one that runs its programs.
    NO_FILE = "(File not found|The system cannot find the file specified)"
    NO_FOLDER = "(Path not found|The system cannot find the path specified)"
    IS_FOLDER = "Access (is )?denied"
    TOO_LARGE = "General failure"  # a limit of the machine beneath, for which there is no word
    PICTURES = ["wmf", "emf", "bmp", "png", "svg"]
    SMALL_PICTURE = "svg"  # of the formats that are quickly made, one that batch does not prefer
else:
    NO_FILE = NO_FOLDER = "No such file or directory"
    IS_FOLDER = "Is a directory"
    TOO_LARGE = "File too large"
    PICTURES = ["wmf", "emf", "bmp", "png", "svg", "pdf"]
    SMALL_PICTURE = "svg"

LONGEST_WORD = 32000 if WINDOWS else 100_000  # characters, about


def run(*words, stdin=b"", **more):
    """Status, standard output as bytes, standard error. A TEXT too long for a word goes to standard
    input."""
    words = list(words)
    for n, word in enumerate(words):
        if len(word) > LONGEST_WORD:
            words[n], stdin = "-", word.encode()
    done = subprocess.run([*COMMAND, *words], input=stdin, capture_output=True, check=False, **more)
    return done.returncode, done.stdout, done.stderr.decode()


class Case(unittest.TestCase):
    """A test that knows which system it is for."""
    maxDiff = None

    def setUp(self):
        name = "%s.%s" % (type(self).__name__, self._testMethodName)
        reason = (LINUX_ONLY if WINDOWS else WINDOWS_ONLY).get(name)
        if reason:
            self.skipTest(reason)


def main(module="__main__"):
    unittest.main(module, argv=[module, *REST])
