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


def examples(page):
    """Commands of a page and what is printed."""
    for linux, block in BLOCK.findall(page.read_text()):
        if not (linux and WINDOWS):
            for part in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
                command, _, output = part.partition("\n")
                yield command, output


class Documentation(Case):
    def test_examples(self):
        """By a shell that knows the program by its name, in a folder for each page."""
        wrapper = self.folder / "mivora"
        wrapper.write_text("#!/bin/sh\nexec %s \"$@\"\n" % " ".join("'%s'" % word for word in COMMAND))
        wrapper.chmod(0o755)
        environment = dict(os.environ, PATH="%s:%s" % (self.folder, os.environ["PATH"]))
        for page in sorted(DOCS.glob("*.md")):
            with tempfile.TemporaryDirectory() as work:
                status = 0
                for command, output in examples(page):
                    done = subprocess.run(["bash", "-c", "(exit %d)\n%s" % (status, command)], cwd=work,
                                          env=environment, capture_output=True, check=False)
                    status = done.returncode
                    with self.subTest(page=page.name, command=command):
                        pattern = ".*".join(re.escape(part) for part in output.split("..."))
                        self.assertRegex(done.stdout.decode() + done.stderr.decode(),
                                         re.compile("^(?:%s)$" % pattern, re.DOTALL))

    def test_every_command_has_an_example(self):
        shown = " ".join(command for command, _ in examples(DOCS / "command-line.md"))
        self.assertGreater(len(program.commands()), 5)
        self.assertEqual([name for name in program.commands() if "mivora %s " % name not in shown + " "], [])

    def test_every_message_of_the_library_is_told(self):
        """Those that stand in tables; % stands for what changes."""
        source = (DOCS.parent / "src/platform/base/exception.cpp").read_text()
        texts = set(re.findall(r'"([A-Z%][^"]*\.)"', source))
        self.assertGreater(len(texts), 25)
        page = (DOCS / "errors.md").read_text()
        self.assertEqual([text for text in texts if "`%s`" % text.replace("%s", "%") not in page], [])


if __name__ == "__main__":
    program.main()
