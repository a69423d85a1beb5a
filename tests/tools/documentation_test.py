#!/usr/bin/env python3
"""Runs the examples of the documentation: blocks of the language console, one session for a page.

A line behind "$ " is a command, what follows it is what it prints, errors behind the rest. "..." stands
for anything. A block "console linux" is for that system only.
"""
import os
import pathlib
import re
import subprocess
import tempfile

import program
from program import COMMAND, WINDOWS, Case

DOCS = pathlib.Path(__file__).parents[2] / "docs"
BLOCK = re.compile(r"^```console( linux)?\n(.*?)^```$", re.DOTALL | re.MULTILINE)


class Shell:
    """A folder, and a shell that knows the program by its name."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        (self.folder / "bin").mkdir()
        wrapper = self.folder / "bin/mivora"
        wrapper.write_text("#!/bin/sh\nexec %s \"$@\"\n" % " ".join("'%s'" % word for word in COMMAND))
        wrapper.chmod(0o755)
        (self.folder / "work").mkdir()
        self.status = 0

    def run(self, command):
        path = "%s:%s" % (self.folder / "bin", os.environ["PATH"])
        done = subprocess.run(["bash", "-c", "(exit %d)\n%s" % (self.status, command)],
                              cwd=self.folder / "work", env=dict(os.environ, PATH=path),
                              capture_output=True, check=False)
        self.status = done.returncode
        return done.stdout.decode() + done.stderr.decode()


def examples(page):
    """Commands of a page and what is printed."""
    for linux, block in BLOCK.findall(page.read_text()):
        if not (linux and WINDOWS):
            for part in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
                command, _, output = part.partition("\n")
                yield command, output


class Documentation(Case):
    def test_examples(self):
        for page in sorted(DOCS.glob("*.md")):
            with tempfile.TemporaryDirectory() as folder:
                shell = Shell(folder)
                for command, output in examples(page):
                    with self.subTest(page=page.name, command=command):
                        pattern = ".*".join(re.escape(part) for part in output.split("..."))
                        self.assertRegex(shell.run(command), re.compile("^(?:%s)$" % pattern, re.DOTALL))

    def test_every_command_has_an_example(self):
        listed = program.run("--help")[1].decode().split("Commands:")[1].split("\n\n")[0]
        commands = set(re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE))
        shown = " ".join(command for command, _ in examples(DOCS / "command-line.md"))
        self.assertGreater(len(commands), 5)
        self.assertEqual([name for name in sorted(commands) if "mivora %s " % name not in shown + " "], [])

    def test_every_message_of_the_library_is_told(self):
        """Those that stand in tables; % stands for what changes."""
        source = (DOCS.parent / "src/platform/base/exception.cpp").read_text()
        texts = set(re.findall(r'"([A-Z%][^"]*\.)"', source))
        self.assertGreater(len(texts), 25)
        page = (DOCS / "errors.md").read_text()
        self.assertEqual([text for text in sorted(texts) if "`%s`" % text.replace("%s", "%") not in page],
                         [])


if __name__ == "__main__":
    program.main()
