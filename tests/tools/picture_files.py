"""Pictures taken apart without the library: PNG by hand."""
import struct
import zlib

CHANNELS = {0: 1, 2: 3, 4: 2, 6: 4}


def png_chunks(data):
    """Pairs of type and data."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    chunks, at = [], 8
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack(">I", data[at + 8 + length:at + 12 + length])[0]
        chunks.append((kind, body))
        at += 12 + length
    return chunks


def _unfiltered(raw, width, height, step):
    """The lines of an image without their filters."""
    above = bytes(width * step)
    for y in range(height):
        line = bytearray(raw[y * (width * step + 1):(y + 1) * (width * step + 1)])
        method, line = line[0], line[1:]
        for i in range(len(line) if method else 0):
            left = line[i - step] if i >= step else 0
            corner = above[i - step] if i >= step else 0
            up = above[i]
            guess = left + up - corner
            paeth = min((left, up, corner), key=lambda n: abs(guess - n))
            line[i] = (line[i] + (0, left, up, (left + up) // 2, paeth)[method]) & 0xFF
        above = bytes(line)
        yield above


def _pixel(values):
    """Red, green, blue, opacity."""
    if len(values) <= 2:
        values = values[:1] * 3 + values[1:]
    return values if len(values) == 4 else values + (255,)


def pixels_of_png(data):
    """Width, height and rows of (red, green, blue, opacity) of a PNG of eight bits."""
    chunks = png_chunks(data)
    width, height, depth, colour = struct.unpack(">IIBB", chunks[0][1][:10])
    assert depth == 8
    step = CHANNELS[colour]
    raw = zlib.decompress(b"".join(body for kind, body in chunks if kind == b"IDAT"))
    rows = [[_pixel(tuple(line[i:i + step])) for i in range(0, len(line), step)]
            for line in _unfiltered(raw, width, height, step)]
    return width, height, rows
