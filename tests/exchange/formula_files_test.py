#!/usr/bin/python3
"""Files of formulas are the same from run to run, and stored ones mean the same on each system.

    formula_files_test.py --formulas FILE --program PROGRAM [--runner COMMAND]
                          [--other PROGRAM_OF_THE_OTHER_SYSTEM]
"""
import argparse
import os
import subprocess
import sys
import tempfile


class Program:
    def __init__(self, path, runner=None):
        self.command = ([runner] if runner else []) + [path]

    def run(self, *arguments, **environment):
        done = subprocess.run(self.command + list(arguments), stdout=subprocess.PIPE, timeout=300,
                              env={**os.environ, **environment})
        if done.returncode != 0:
            sys.exit(f"{' '.join(self.command + list(arguments))}: status {done.returncode}")
        return done.stdout.replace(b"\r\n", b"\n")


def contents(folder, suffix):
    found = {}
    for name in sorted(os.listdir(folder)):
        if name.endswith(suffix):
            with open(os.path.join(folder, name), "rb") as file:
                found[name] = file.read()
    return found


def expect_equal(first, second, what):
    if not first or first.keys() != second.keys():
        sys.exit(f"{what}: {len(first)} and {len(second)} files")
    for name in first:
        if first[name] != second[name]:
            place = next((i for i, (a, b) in enumerate(zip(first[name], second[name])) if a != b),
                         min(len(first[name]), len(second[name])))
            sys.exit(f"{what}: {name} differs from byte {place} on")


def main():
    parser = argparse.ArgumentParser()
    for option in ("--formulas", "--program", "--runner", "--other"):
        parser.add_argument(option)
    options = parser.parse_args()
    program = Program(options.program, options.runner)
    with tempfile.TemporaryDirectory() as work:
        folders = [os.path.join(work, name) for name in ("first", "second", "other")]
        for folder in folders:
            os.mkdir(folder)
        first, second, foreign = folders
        program.run("write", first, options.formulas)
        # Another layout of the memory.
        program.run("write", second, options.formulas, MIVORA_TEST_PADDING="x" * 5000)
        for suffix in (".wmf", ".bmp", ".fml"):
            expect_equal(contents(first, suffix), contents(second, suffix), "two runs")
        read = program.run("read", first)
        if options.other:
            other = Program(options.other)
            other.run("write", foreign, options.formulas)
            if program.run("read", foreign) != read or other.run("read", first) != read:
                sys.exit("the systems read stored formulas differently")
            expect_equal(contents(first, ".content"), contents(foreign, ".content"),
                         "two systems")
        print(f"{len(contents(first, '.fml'))} formulas")


if __name__ == "__main__":
    main()
