"""A program that a test runs, of this system or of the other one."""
import os
import subprocess
import sys


class Program:
    def __init__(self, path, runner=""):
        self.command = [*(runner or "").split(), path]

    def run(self, *words, **environment):
        """Standard output, with the ends of lines of Linux. Ends the test if the program fails."""
        command = [*self.command, *map(str, words)]
        done = subprocess.run(command, stdout=subprocess.PIPE, timeout=600, check=False,
                              env={**os.environ, **environment})
        if done.returncode != 0:
            sys.exit("%s: status %d" % (" ".join(command), done.returncode))
        return done.stdout.replace(b"\r\n", b"\n")
