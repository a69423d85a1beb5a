#!/usr/bin/env python3
"""Makes docs/c-interface.md: what stands there above a mark, and below it every declaration of
include/mivora/mivora_c.h with its comment. With --check nothing is written: status 1 if the page
would change."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).parents[1]
HEADER = ROOT / "include/mivora/mivora_c.h"
PAGE = ROOT / "docs/c-interface.md"
MARK = "<!-- From here on made by scripts/c_reference.py of include/mivora/mivora_c.h. -->\n"

COMMENT = re.compile(r"/\*(.*?)\*/\n+", re.DOTALL)
TITLE = re.compile(r"(?:typedef (?:enum|struct) (\w+)|#define (\w+)|\b(\w+)\()")


def plain(comment):
    """The words of a comment, without what marks its lines."""
    return "\n".join(re.sub(r"^ \* ?", "", line).strip() for line in comment.strip().splitlines())


def with_code(text):
    """Names of the interface as code."""
    return re.sub(r"(?<![\w`])((?:mivora_|MIVORA_)\w+)", r"`\1`", text)


def declaration_at(text, start):
    """What follows a comment: up to the semicolon outside of braces, or a line of the preprocessor."""
    if text.startswith("#", start):
        return text[start:text.index("\n", start)]
    depth = 0
    for place in range(start, len(text)):
        depth += {"{": 1, "}": -1}.get(text[place], 0)
        if text[place] == ";" and depth == 0:
            return text[start:place + 1]
    raise ValueError("a comment without a declaration: " + text[start:start + 60])


def reference(text):
    """The part of the page that the header gives."""
    pieces = []
    place = text.index("/* # ")
    while match := COMMENT.search(text, place):
        comment, place = plain(match.group(1)), match.end()
        if comment.startswith("# "):
            pieces.append(f"## {comment[2:]}\n")
            continue
        declaration = declaration_at(text, place)
        place += len(declaration)
        name = next(filter(None, TITLE.search(declaration).groups()))
        pieces.append(f"### {name}\n\n{with_code(comment)}\n\n```c\n{declaration}\n```\n")
    return "\n".join(pieces)


def main():
    written = PAGE.read_text().split(MARK)[0]
    page = written + MARK + "\n" + reference(HEADER.read_text())
    if "--check" in sys.argv[1:]:
        return 0 if page == PAGE.read_text() else f"{PAGE.name} is not what its header says: run {__file__}"
    PAGE.write_text(page)
    return 0


if __name__ == "__main__":
    sys.exit(main())
