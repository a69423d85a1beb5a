#!/usr/bin/env python3
"""Prints the records of enhanced metafiles, one line each, and checks their lengths.

Written from the published record layouts alone, so that it can judge what our own code writes.
Exit status: 0 well formed, 1 not well formed (the faults stand on standard error), 2 wrong usage.
"""

import struct
import sys

NAMES = {
    1: "HEADER", 2: "POLYBEZIER", 3: "POLYGON", 4: "POLYLINE", 5: "POLYBEZIERTO",
    6: "POLYLINETO", 7: "POLYPOLYLINE", 8: "POLYPOLYGON", 9: "SETWINDOWEXTEX",
    10: "SETWINDOWORGEX", 11: "SETVIEWPORTEXTEX", 12: "SETVIEWPORTORGEX", 13: "SETBRUSHORGEX",
    14: "EOF", 15: "SETPIXELV", 16: "SETMAPPERFLAGS", 17: "SETMAPMODE", 18: "SETBKMODE",
    19: "SETPOLYFILLMODE", 20: "SETROP2", 21: "SETSTRETCHBLTMODE", 22: "SETTEXTALIGN",
    23: "SETCOLORADJUSTMENT", 24: "SETTEXTCOLOR", 25: "SETBKCOLOR", 26: "OFFSETCLIPRGN",
    27: "MOVETOEX", 28: "SETMETARGN", 29: "EXCLUDECLIPRECT", 30: "INTERSECTCLIPRECT",
    31: "SCALEVIEWPORTEXTEX", 32: "SCALEWINDOWEXTEX", 33: "SAVEDC", 34: "RESTOREDC",
    35: "SETWORLDTRANSFORM", 36: "MODIFYWORLDTRANSFORM", 37: "SELECTOBJECT", 38: "CREATEPEN",
    39: "CREATEBRUSHINDIRECT", 40: "DELETEOBJECT", 41: "ANGLEARC", 42: "ELLIPSE",
    43: "RECTANGLE", 44: "ROUNDRECT", 45: "ARC", 46: "CHORD", 47: "PIE", 48: "SELECTPALETTE",
    49: "CREATEPALETTE", 54: "LINETO", 55: "ARCTO", 57: "SETARCDIRECTION", 58: "SETMITERLIMIT",
    59: "BEGINPATH", 60: "ENDPATH", 61: "CLOSEFIGURE", 62: "FILLPATH", 63: "STROKEANDFILLPATH",
    64: "STROKEPATH", 67: "SELECTCLIPPATH", 70: "GDICOMMENT", 75: "EXTSELECTCLIPRGN",
    76: "BITBLT", 77: "STRETCHBLT", 81: "STRETCHDIBITS", 82: "EXTCREATEFONTINDIRECTW",
    83: "EXTTEXTOUTA", 84: "EXTTEXTOUTW", 85: "POLYBEZIER16", 86: "POLYGON16", 87: "POLYLINE16",
    88: "POLYBEZIERTO16", 89: "POLYLINETO16", 90: "POLYPOLYLINE16", 91: "POLYPOLYGON16",
    95: "EXTCREATEPEN", 98: "SETICMMODE", 115: "SETLAYOUT",
}


class Fault(Exception):
    pass


def ints(data, offset, count):
    """Signed 32-bit numbers, joined by commas."""
    return ",".join(str(v) for v in struct.unpack_from("<%di" % count, data, offset))


def dword(data, offset):
    return struct.unpack_from("<I", data, offset)[0]


def quoted(text):
    out = []
    for unit in text:
        code = ord(unit)
        plain = 0x20 <= code < 0x7F and unit not in '"\\'
        out.append(unit if plain else "\\0" if code == 0 else "\\u%04x" % code)
    return '"' + "".join(out) + '"'


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
    height, width, escapement, orientation, weight = struct.unpack_from("<5i", d, 12)
    flags = struct.unpack_from("<8B", d, 32)
    face = utf16(d, 40, 32)
    name = face.split("\0")[0]
    if any(d[40 + 2 * len(name):104]):
        raise Fault("bytes behind the face name")
    return ("handle=%d height=%d width=%d escapement=%d orientation=%d weight=%d italic=%d "
            "underline=%d strikeout=%d charset=%d out=%d clip=%d quality=%d pitch=%x face=%s" %
            ((dword(d, 8), height, width, escapement, orientation, weight) + flags +
             (quoted(name),)))


def text(d):
    bounds, mode = ints(d, 8, 4), dword(d, 24)
    scale = struct.unpack_from("<2f", d, 28)
    count, offset, options = struct.unpack_from("<3I", d, 44)
    dx = dword(d, 72)
    if dx + 4 * count > len(d):
        raise Fault("advances reach over the record")
    return "bounds=%s mode=%d scale=%.6f,%.6f ref=%s options=%x rect=%s text=%s at=%d dx=%s at=%d" % (
        bounds, mode, scale[0], scale[1], ints(d, 36, 2), options, ints(d, 56, 4),
        quoted(utf16(d, offset, count)), offset, ints(d, dx, count), dx)


def blt(d):
    line = "bounds=%s dest=%s rop=%08x src=%s xform=%g,%g,%g,%g,%g,%g bk=%06x usage=%d" % (
        (ints(d, 8, 4), ints(d, 24, 4), dword(d, 40), ints(d, 44, 2)) +
        struct.unpack_from("<6f", d, 52) + (dword(d, 76), dword(d, 80)))
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
    if kind in (38, 39, 49, 82, 95):
        if dword(d, 8) in live or dword(d, 8) == 0:
            faults.append("handle %d made twice" % dword(d, 8))
        live.add(dword(d, 8))
    elif kind == 37 and not dword(d, 8) & 0x80000000 and dword(d, 8) not in live:
        faults.append("handle %d selected, but not alive" % dword(d, 8))
    elif kind == 40:
        if dword(d, 8) not in live:
            faults.append("handle %d deleted, but not alive" % dword(d, 8))
        live.discard(dword(d, 8))


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


def main(arguments):
    if not arguments:
        print("usage: emf_dump.py FILE ...", file=sys.stderr)
        return 2
    status = 0
    for name in arguments:
        with open(name, "rb") as file:
            faults = dump(file.read(), sys.stdout)
        for fault in faults:
            print("emf_dump.py: %s: %s" % (name, fault), file=sys.stderr)
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
