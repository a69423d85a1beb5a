"""Pictures taken apart without the library: PNG and PDF by hand."""
import re
import struct
import zlib


def png_chunks(data):
    """Pairs of type and data."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    at = 8
    while at < len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        body = data[at + 8:at + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack_from(">I", data, at + 8 + length)[0]
        yield kind, body
        at += 12 + length


def _unfiltered(raw, size, step):
    """The lines of an image without their filters; a line has so many bytes, a pixel a step."""
    above = bytes(size)
    for start in range(0, len(raw), size + 1):
        method, line = raw[start], bytearray(raw[start + 1:start + 1 + size])
        for i in range(size if method else 0):
            left, corner = (line[i - step], above[i - step]) if i >= step else (0, 0)
            guess = left + above[i] - corner
            paeth = min((left, above[i], corner), key=lambda n: abs(guess - n))
            line[i] = (line[i] + (0, left, above[i], (left + above[i]) // 2, paeth)[method]) & 0xFF
        above = line
        yield line


def pixels_of_png(data):
    """Width, height and rows of (red, green, blue, opacity) of a PNG of eight bits."""
    chunks = list(png_chunks(data))
    width, height, depth, colour = struct.unpack_from(">IIBB", chunks[0][1])
    assert depth == 8
    step = {0: 1, 2: 3, 4: 2, 6: 4}[colour]
    raw = zlib.decompress(b"".join(body for kind, body in chunks if kind == b"IDAT"))
    grey, opaque = colour in (0, 4), colour in (0, 2)
    rows = []
    for line in _unfiltered(raw, width * step, step):
        planes = [line[n::step] for n in range(step)]
        red_green_blue = planes[:1] * 3 if grey else planes[:3]
        rows.append(list(zip(*red_green_blue, b"\xff" * width if opaque else planes[-1])))
    return width, height, rows


def pdf_content(data):
    """What is painted on a page: the first stream."""
    start = re.search(rb"stream\r?\n", data).end()
    return zlib.decompressobj().decompress(data[start:]).decode("latin-1")
