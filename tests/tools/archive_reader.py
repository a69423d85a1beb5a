#!/usr/bin/python3
"""Reads a stored formula without any code of the library: archive_reader.py FILE.fml|FILE.bin

Written from the published order of the items in an archive, so that the library's writer and
reader have something else to agree with. Prints text, name, rectangle, tree, records and sizes.
"""
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

    def int32(self):
        return self.number("i")

    def text(self):
        """One byte a character behind a length of one, two or four bytes."""
        length = self.number("B")
        if length == 0xFF:
            length = self.number("H")
            if length == 0xFFFF:
                length = self.number("I")
        return self.bytes(length)

    def rect(self):
        return tuple(self.int32() for _ in range(4))


def read_node(archive, type_name):
    node = {"type": type_name, "left": None, "right": None}
    for side in ("left", "right"):
        child = archive.text().decode("ascii")
        if child:
            node[side] = read_node(archive, child)
    for field in ("flags", "priority", "level", "left_step", "right_step"):
        node[field] = archive.int32()
    node["stored_type"] = archive.text().decode("ascii")
    node["symbol"] = archive.text()
    node["description"] = archive.text()
    node["colour"] = archive.number("I")
    node["rect"] = archive.rect()
    node["baseline"] = archive.int32()
    if type_name not in NO_FONT:
        node["face"] = archive.text()
        node["italic"], node["bold"] = archive.int32(), archive.int32()
    if type_name in KIND_TYPES:
        node["kind"] = archive.int32()
    if type_name in VALUE_TYPES:
        node["value"] = archive.number("d")
        node["attributes"] = archive.int32(), archive.int32()
    return node


def read_tree(archive):
    tree = {"rect": archive.rect(), "name": archive.text(), "root": None}
    root = archive.text().decode("ascii")
    if root:
        tree["root"] = read_node(archive, root)
    else:
        # The rest of the 32-bit zero that marks an empty tree.
        assert archive.bytes(3) == b"\0\0\0"
    return tree


def read_format(archive):
    records = {}
    for name in RECORDS:
        records[name] = {
            "face": archive.text(), "colour": archive.number("I"), "bold": archive.int32(),
            "italic": archive.int32(), "charset": archive.number("B")}
    return {"records": records, "sizes": [archive.int32() for _ in range(5)]}


def read_formula(data, with_text=True):
    """Everything in the archive of a stored formula; nothing may be left behind it."""
    archive = Archive(data)
    formula = {"text": archive.text() if with_text else None}
    formula.update(read_tree(archive))
    formula["format"] = read_format(archive)
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
    print("text:", formula["text"].decode("cp1252", "replace"))
    print("name:", formula["name"].decode("cp1252", "replace"))
    print("rect:", *formula["rect"])
    print("tree:", tree_form(formula["root"]))
    for name, record in formula["format"]["records"].items():
        print(f"{name}:", record["face"].decode("cp1252"), f"{record['colour']:06X}",
              record["bold"], record["italic"], record["charset"])
    print("sizes:", *formula["format"]["sizes"])


if __name__ == "__main__":
    main()
