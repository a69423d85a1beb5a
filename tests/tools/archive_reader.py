#!/usr/bin/python3
"""Reads a stored formula without any code of the library: archive_reader.py FILE.fml|FILE.bin

Written from the published order of the items in an archive, so that the library's writer and
reader have something else to agree with. Prints text, name, rectangle, tree, records and sizes.
"""
import json
import struct
import sys

VALUE_TYPES = {"NT_VARIABLE", "NT_CONSTANT", "NT_NUMBER", "NT_INFINITY", "NT_PLANCK", "NT_LAMBDA"}
KIND_TYPES = {
    "NT_DIVISION", "NT_BRACE", "NT_POISON", "NT_EQUATION", "NT_INTEGRAL", "NT_VECTOR",
    "NT_OPERATOR", "NT_ARROWS", "NT_PLUS", "NT_MINUS", "NT_TIMES", "NT_CROSS", "NT_FUNC",
    "NT_USERFUNC", "NT_EXTFUNC",
}
SHOWN_KINDS = {"NT_DIVISION", "NT_BRACE", "NT_POISON", "NT_EQUATION", "NT_INTEGRAL", "NT_VECTOR",
               "NT_ARROWS", "NT_FUNC"}
NO_FONT = {"NT_SUM", "NT_PROD", "NT_INTEGRAL"}
RECORDS = ("text", "variable", "constant", "number", "function", "operator", "symbol")


class Archive:
    def __init__(self, data):
        self.data, self.at = data, 0

    def bytes(self, count):
        piece = self.data[self.at:self.at + count]
        if len(piece) < count:
            raise EOFError(f"{count} bytes wanted at {self.at}")
        self.at += count
        return piece

    def number(self, form):
        return struct.unpack("<" + form, self.bytes(struct.calcsize("<" + form)))[0]

    def text(self):
        """One byte a character behind a length of one, two or four bytes."""
        length = self.number("B")
        if length == 0xFF:
            length = self.number("H")
            if length == 0xFFFF:
                length = self.number("I")
        return self.bytes(length)

    def int32s(self, count):
        return [self.number("i") for _ in range(count)]

    def items(self, forms, *names):
        """Items by their names: numbers in the forms of struct, and texts, t."""
        return {name: self.text() if form == "t" else self.number(form)
                for form, name in zip(forms, names, strict=True)}


def read_child(archive):
    """A node behind its type, or the empty text of one that is missing."""
    name = archive.text().decode("ascii")
    return read_node(archive, name) if name else None


def read_node(archive, type_name):
    node = {"type": type_name, "left": read_child(archive), "right": read_child(archive)}
    node |= archive.items("iiiiitttI", "flags", "priority", "level", "left_step", "right_step",
                          "stored_type", "symbol", "description", "colour")
    node["rect"] = archive.int32s(4)
    node |= archive.items("i", "baseline")
    if type_name not in NO_FONT:
        node |= archive.items("tii", "face", "italic", "bold")
    if type_name in KIND_TYPES:
        node |= archive.items("i", "kind")
    if type_name in VALUE_TYPES:
        node |= archive.items("dii", "value", "attribute", "second_attribute")
    return node


def read_tree(archive):
    tree = {"rect": archive.int32s(4), "name": archive.text(), "root": read_child(archive)}
    if tree["root"] is None:
        # The rest of the 32-bit zero that marks an empty tree.
        assert archive.bytes(3) == b"\0\0\0"
    return tree


def read_format(archive):
    records = {name: archive.items("tIiiB", "face", "colour", "bold", "italic", "charset") for name in RECORDS}
    return {"records": records, "sizes": archive.int32s(5)}


def read_formula(data):
    """Everything in the archive of a stored formula; nothing may be left behind it."""
    archive = Archive(data)
    formula = {"text": archive.text()} | read_tree(archive) | {"format": read_format(archive)}
    if archive.at != len(data):
        raise ValueError(f"{len(data) - archive.at} bytes behind the end")
    return formula


def escaped(text):
    return "".join(
        chr(byte) if 0x20 <= byte <= 0x7E and byte not in (0x22, 0x5C) else f"\\x{byte:02X}"
        for byte in text)


def tree_form(node):
    """The same one line that `mivora tree` prints."""
    if node is None:
        return "-"
    kind = f"[{node['kind']}]" if node["type"] in SHOWN_KINDS else ""
    face = " @Symbol" if node["type"] in VALUE_TYPES and node["face"] == b"Symbol" else ""
    return (f"({node['type'].removeprefix('NT_')}{kind} \"{escaped(node['symbol'])}\"{face} "
            f"{tree_form(node['left'])} {tree_form(node['right'])})")


def contents(path):
    """The archive of a stored formula: the stream of a compound file, or the bare bytes."""
    with open(path, "rb") as file:
        data = file.read()
    if data[:8] != b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1":
        return data
    import olefile
    with olefile.OleFileIO(path, raise_defects=olefile.DEFECT_INCORRECT) as compound:
        assert not compound.parsing_issues, compound.parsing_issues
        return compound.openstream("Contents").read()


def main():
    sys.setrecursionlimit(100000)
    formula = read_formula(contents(sys.argv[1]))
    formula["root"] = tree_form(formula["root"])
    print(json.dumps(formula, default=lambda text: text.decode("cp1252", "replace"), indent=2))


if __name__ == "__main__":
    main()
