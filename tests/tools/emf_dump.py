#!/usr/bin/env python3
"""Prints the records of enhanced metafiles, one line each, and checks their lengths.

Written from the published record layouts alone, so that it can judge what our own code writes.
Exit status: 0 well formed, 1 not well formed: the faults stand on standard error.
"""

import pathlib
import struct
import sys

# Those that our own code writes
NAMES = dict(zip((1, *range(9, 13), 14, 17, 18, 22, 24, 25, 27, 30, 33, 34, *range(37, 41), 43, 54, 70, 76, 77, 82, 84), """
    HEADER SETWINDOWEXTEX SETWINDOWORGEX SETVIEWPORTEXTEX SETVIEWPORTORGEX EOF SETMAPMODE SETBKMODE SETTEXTALIGN
    SETTEXTCOLOR SETBKCOLOR MOVETOEX INTERSECTCLIPRECT SAVEDC RESTOREDC SELECTOBJECT CREATEPEN CREATEBRUSHINDIRECT
    DELETEOBJECT RECTANGLE LINETO GDICOMMENT BITBLT STRETCHBLT EXTCREATEFONTINDIRECTW EXTTEXTOUTW
    """.split(), strict=True))


class Fault(Exception):
    pass


def ints(data, offset, count):
    """Signed 32-bit numbers, joined by commas."""
    return ",".join(str(v) for v in struct.unpack_from("<%di" % count, data, offset))


def dword(data, offset):
    return struct.unpack_from("<I", data, offset)[0]


def quoted(text):
    text = text.replace("\\", "\\u005c").replace('"', "\\u0022").replace("\0", "\\0")
    return '"%s"' % "".join(c if " " <= c <= "~" else "\\u%04x" % ord(c) for c in text)


def utf16(data, offset, units):
    if offset + 2 * units > len(data):
        raise Fault("text reaches over the record")
    return "".join(chr(v) for v in struct.unpack_from("<%dH" % units, data, offset))


def handle(value):
    return "stock%d" % (value & 0x7FFFFFFF) if value & 0x80000000 else str(value)


def header(d):
    if len(d) < 88:
        raise Fault("header of %d bytes" % len(d))
    units, offset = dword(d, 60), dword(d, 64)
    micro = ints(d, 100, 2) if len(d) >= 108 and offset not in range(88, 108) else "-"
    return "bounds=%s frame=%s device=%s mm=%s um=%s handles=%d version=%x pal=%d text=%s" % (
        ints(d, 8, 4), ints(d, 24, 4), ints(d, 72, 2), ints(d, 80, 2), micro,
        struct.unpack_from("<H", d, 56)[0], dword(d, 44), dword(d, 68),
        quoted(utf16(d, offset, units)) if units else "-")


def comment(d):
    count = dword(d, 8)
    if 12 + count > len(d):
        raise Fault("comment of %d bytes in a record of %d" % (count, len(d)))
    if len(d) != 12 + (count + 3) // 4 * 4 or any(d[12 + count:]):
        raise Fault("comment is not padded with zero bytes to the next multiple of four")
    return "bytes=%d data=%s" % (count, quoted(d[12:12 + count].decode("latin-1")))


def font(d):
    name = utf16(d, 40, 32).split("\0")[0]
    if any(d[40 + 2 * len(name):104]):
        raise Fault("bytes behind the face name")
    return ("handle=%d height=%d width=%d escapement=%d orientation=%d weight=%d italic=%d "
            "underline=%d strikeout=%d charset=%d out=%d clip=%d quality=%d pitch=%x face=%s" %
            (*struct.unpack_from("<I5i8B", d, 8), quoted(name)))


def text(d):
    count, offset, options = struct.unpack_from("<3I", d, 44)
    dx = dword(d, 72)
    if dx + 4 * count > len(d):
        raise Fault("advances reach over the record")
    return "bounds=%s mode=%d scale=%.6f,%.6f ref=%s options=%x rect=%s text=%s at=%d dx=%s at=%d" % (
        ints(d, 8, 4), *struct.unpack_from("<I2f", d, 24), ints(d, 36, 2), options, ints(d, 56, 4),
        quoted(utf16(d, offset, count)), offset, ints(d, dx, count), dx)


def blt(d):
    line = "bounds=%s dest=%s rop=%08x src=%s xform=%g,%g,%g,%g,%g,%g bk=%06x usage=%d" % (
        ints(d, 8, 4), ints(d, 24, 4), dword(d, 40), ints(d, 44, 2), *struct.unpack_from("<6f2I", d, 52))
    if dword(d, 0) == 77:
        line += " size=%s" % ints(d, 100, 2)
    off_info, info, off_bits, bits = struct.unpack_from("<4I", d, 84)
    if off_info + info > len(d) or off_bits + bits > len(d):
        raise Fault("bitmap reaches over the record")
    if info:
        size, wide, high, planes, depth = struct.unpack_from("<IiiHH", d, off_info)
        line += " dib=%d,%dx%dx%d info=%d bits=%d" % (size, wide, high, depth * planes, info, bits)
    return line


def fields(d):
    """Any other record: its 32-bit fields as they are."""
    return ints(d, 8, (len(d) - 8) // 4)


def one_handle(d):
    return handle(dword(d, 8)) + ("," + ints(d, 12, (len(d) - 12) // 4) if len(d) > 12 else "")


def colour(d):
    return "%06x" % dword(d, 8)


DETAILS = {1: header, 70: comment, 82: font, 84: text, 76: blt, 77: blt,
           24: colour, 25: colour, 37: one_handle, 38: one_handle, 39: one_handle, 40: one_handle}


def check_objects(kind, d, live, faults):
    """Follows which handles stand for an object; a selected one must be alive."""
    number = dword(d, 8) if len(d) >= 12 else 0
    if kind in (38, 39, 49, 82, 95):
        if number in live or number == 0:
            faults.append("handle %d made twice" % number)
        live.add(number)
    elif kind == 40 or kind == 37 and not number & 0x80000000:
        if number not in live:
            faults.append("handle %d used, but not alive" % number)
        live -= {number} if kind == 40 else set()


def dump(data, out):
    """Prints all records, returns the list of faults."""
    faults, live, top, count, at, kind = [], set(), 0, 0, 0, 0
    if len(data) < 88 or dword(data, 0) != 1 or data[40:44] != b" EMF":
        return ["no enhanced metafile"]
    while at + 8 <= len(data) and kind != 14:
        kind, size = struct.unpack_from("<II", data, at)
        if size < 8 or size % 4 or at + size > len(data):
            return faults + ["record %d at %d: size %d" % (count, at, size)]
        record = data[at:at + size]
        try:
            detail = DETAILS.get(kind, fields)(record)
        except (Fault, struct.error) as error:
            detail = "?"
            faults.append("record %d at %d: %s" % (count, at, error))
        print(("%s %d %s" % (NAMES.get(kind, "TYPE%d" % kind), size, detail)).rstrip(), file=out)
        check_objects(kind, record, live, faults)
        top = max([top] + list(live))
        at, count = at + size, count + 1
    if kind != 14:
        faults.append("no EOF record")
    elif dword(data, at - 4) != size:
        faults.append("last field of the EOF record is not its size")
    if dword(data, 48) != at or at != len(data):
        faults.append("%d bytes in the header, %d in records, %d in the file" %
                      (dword(data, 48), at, len(data)))
    if dword(data, 52) != count:
        faults.append("%d records in the header, %d in the file" % (dword(data, 52), count))
    if struct.unpack_from("<H", data, 56)[0] != top + 1:
        faults.append("%d handles in the header, %d in use" %
                      (struct.unpack_from("<H", data, 56)[0], top + 1))
    return faults


def main(names):
    if not names:
        sys.exit("usage: emf_dump.py FILE ...")
    faults = ["%s: %s" % (name, fault) for name in names
              for fault in dump(pathlib.Path(name).read_bytes(), sys.stdout)]
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main(sys.argv[1:])
