"""Pictures taken apart without the library: PNG, PDF and paths of SVG by hand."""
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


def polygons(data):
    """The contours of a path of relative steps, curves in eighths."""
    contours, pen, step = [], (0, 0), None
    words = re.findall(r"[A-Za-z]|-?\d+", data)
    counts = {"M": 1, "m": 1, "l": 1, "h": 1, "v": 1, "q": 2, "c": 3}
    while words:
        if words[0].isalpha():
            step = words.pop(0)
        if step == "z":
            pen = contours[-1][0]
            continue
        points = [pen]
        for _ in range(counts[step]):
            x = int(words.pop(0)) if step != "v" else 0
            y = int(words.pop(0)) if step != "h" else 0
            points.append((x, y) if step == "M" else (pen[0] + x, pen[1] + y))
        pen = points[-1]
        if step in "Mm":
            contours.append([pen])
            continue
        for part in range(1, 9):
            row = points
            while len(row) > 1:
                row = [tuple(a + (b - a) * part / 8 for a, b in zip(*two)) for two in zip(row, row[1:])]
            contours[-1].append(row[0])
    return contours


def inside(contours, width, height, unit=100):
    """The pixels whose middles lie inside, by the winding of the contours around them."""
    found = set()
    for y in range(height):
        middle, crossings = (y + 0.5) * unit, []
        for contour in contours:
            for (x1, y1), (x2, y2) in zip(contour, contour[1:] + contour[:1]):
                if (y1 <= middle) != (y2 <= middle):
                    crossings.append((x1 + (middle - y1) * (x2 - x1) / (y2 - y1), 1 if y2 > y1 else -1))
        for x in range(width):
            if sum(turn for place, turn in crossings if place <= (x + 0.5) * unit):
                found.add((x, y))
    return found
