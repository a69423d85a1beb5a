#!/usr/bin/env python3
"""Runs backend_report of two builds over the same formulas and compares what they say: the
rectangles of each formula, the records of its metafile, and its drawing in SVG.

Equal means equal type, rectangle, text, spacing, font and colour of every record, in the same
order. Left out are sizes of records and what follows from them: the opaque fill has four more
bytes in ours, and the scale of a text record may differ in its last bit.
"""

import argparse
import io
import itertools
import re
import subprocess
import sys
import tempfile
from pathlib import Path

from formula_list import formula_list

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tools"))
import emf_dump  # noqa: E402

TREES = 400
LEFT_OUT = re.compile(r"^(\S+) \d+|(?<= )scale=\S+ |(?<= )at=\d+ ?")


def records(path):
    """The metafile's records as lines without what may differ; faults are told."""
    out = io.StringIO()
    faults = emf_dump.dump(path.read_bytes(), out)
    lines = [LEFT_OUT.sub(lambda m: m.group(1) or "", line) for line in
             out.getvalue().splitlines()]
    return [line for line in lines if not line.startswith("EOF")], faults


def compare_metafiles(names, first, second):
    for name in names:
        ours, our_faults = records(first / (name + ".wmf"))
        theirs, their_faults = records(second / (name + ".wmf"))
        if our_faults or their_faults:
            yield "%s: not well formed: %s" % (name, our_faults or their_faults)
        elif ours != theirs:
            pairs = itertools.zip_longest(ours, theirs)
            yield "%s: record %d\n    %s\n    %s" % next(
                (name, number, a, b) for number, (a, b) in enumerate(pairs) if a != b)


def numbers_and_rest(path):
    """An SVG's numbers, and all else but the names of glyphs, which come from their numbers. A line
    that is upright on one system only is a line all the same."""
    text = re.sub("g[0-9a-f]{16}", "", path.read_text())
    text = re.sub(r"v(-?\d+)", r"l0 \1 ", re.sub(r"h(-?\d+)", r"l\1 0 ", text))
    return [int(n) for n in re.findall(r"-?\d+", text)], re.sub(r"[-\dl ]+", " ", text)


def compare_drawings(first, second):
    """Signs that a system slants or thickens itself may differ by a hundredth of a pixel."""
    for path in sorted(first.glob("*.svg")):
        ours, our_rest = numbers_and_rest(path)
        theirs, their_rest = numbers_and_rest(second / path.name)
        near = len(ours) == len(theirs) and all(abs(a - b) <= 2 for a, b in zip(ours, theirs))
        if not near or our_rest != their_rest:
            yield "%s differs" % path.name


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", type=Path, required=True)
    parser.add_argument("--first", required=True, help="backend_report of one build")
    parser.add_argument("--second", required=True, help="backend_report of the other build")
    parser.add_argument("--runner", default="", help="what runs the second one")
    parser.add_argument("--keep", type=Path, help="folder to leave the metafiles in")
    arguments = parser.parse_args()
    if not Path(arguments.first).exists():
        sys.exit("%s is missing: build the Linux side first" % arguments.first)

    with tempfile.TemporaryDirectory() as temporary:
        folder = arguments.keep or Path(temporary)
        texts = folder / "texts.txt"
        first, second = folder / "first", folder / "second"
        first.mkdir(parents=True, exist_ok=True)
        second.mkdir(exist_ok=True)
        formulas = formula_list(arguments.source)
        texts.write_text("".join(text.hex() + "\n" for text in formulas))
        # Wine is given native paths, which it knows.
        ours, theirs = (
            subprocess.run([*command, texts, folder, str(TREES)], stdout=subprocess.PIPE, text=True,
                           timeout=600, check=True).stdout.splitlines()
            for command, folder in (([arguments.first], first),
                                    ([*arguments.runner.split(), arguments.second], second)))
        unequal = ["%s\n    %s" % pair for pair in itertools.zip_longest(ours, theirs)
                   if pair[0] != pair[1]]
        if len(ours) != len(formulas) + TREES:
            unequal.append("%d lines" % len(ours))
        written = [line.split()[0] for line in ours if line.endswith("written=1")]
        if len(written) < len(ours) * 9 // 10:
            unequal.append("only %d of %d metafiles written" % (len(written), len(ours)))
        differing = [*compare_metafiles(written, first, second), *compare_drawings(first, second)]

    for line in unequal[:20] + differing[:20]:
        print(line)
    print("%d formulas and trees, %d with other rectangles, %d with other records or drawings" %
          (len(ours), len(unequal), len(differing)))
    return 1 if unequal or differing else 0


if __name__ == "__main__":
    sys.exit(main())
