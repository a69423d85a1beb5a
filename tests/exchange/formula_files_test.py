#!/usr/bin/python3
"""Files of formulas are the same from run to run, and stored ones mean the same on each system.

    formula_files_test.py --formulas FILE --program PROGRAM [--runner COMMAND]
                          [--other PROGRAM_OF_THE_OTHER_SYSTEM]
"""
import argparse
import pathlib
import sys
import tempfile

from run_program import Program


def expect_equal(first, second, suffix):
    """Files of two folders."""
    names = sorted(path.name for path in first.glob("*" + suffix))
    if not names or names != sorted(path.name for path in second.glob("*" + suffix)):
        sys.exit(f"{first} and {second}: not the same files *{suffix}")
    for name in names:
        pair = (first / name).read_bytes(), (second / name).read_bytes()
        if pair[0] != pair[1]:
            place = next((i for i, (a, b) in enumerate(zip(*pair)) if a != b), "the end")
            sys.exit(f"{first} and {second}: {name} differs from byte {place} on")
    return len(names)


def main():
    parser = argparse.ArgumentParser()
    for option in ("--formulas", "--program", "--runner", "--other"):
        parser.add_argument(option)
    options = parser.parse_args()
    program = Program(options.program, options.runner)
    with tempfile.TemporaryDirectory() as work:
        first, second, foreign = (pathlib.Path(work, name) for name in ("1", "2", "other"))
        for folder in (first, second, foreign):
            folder.mkdir()
        program.run("write", first, options.formulas)
        # Another layout of the memory.
        program.run("write", second, options.formulas, MIVORA_TEST_PADDING="x" * 5000)
        for suffix in (".wmf", ".bmp", ".fml"):
            count = expect_equal(first, second, suffix)
        read = program.run("read", first)
        if options.other:
            other = Program(options.other)
            other.run("write", foreign, options.formulas)
            if program.run("read", foreign) != read or other.run("read", first) != read:
                sys.exit("the systems read stored formulas differently")
            expect_equal(first, foreign, ".content")
        print(f"{count} formulas")


if __name__ == "__main__":
    main()
