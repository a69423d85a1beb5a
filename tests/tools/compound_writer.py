"""Makes a compound file with one stream, from the published description of the format; the library
and its container library have no part in it."""
import struct

SECTOR = 512
MINI = 64
MINI_LIMIT = 4096  # shorter streams live in the mini stream
FREE, END, FAT = 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD


def padded(data, size, fill=b"\0"):
    return data + fill * (-len(data) % size)


def chain(first, count):
    return [first + n + 1 for n in range(count - 1)] + ([END] if count else [])


def entry(name, kind, child, start, size):
    text = name.encode("utf-16-le") + b"\0\0" if name else b""
    return (text.ljust(64, b"\0") + struct.pack("<HBB", len(text), kind, 1)
            + struct.pack("<III", FREE, FREE, child) + bytes(36)
            + struct.pack("<IQ", start, size))


def compound_file(name, content):
    """Sectors in this order: FAT, directory, mini FAT, then the stream or the mini stream."""
    mini = len(content) < MINI_LIMIT
    data = padded(padded(content, MINI), SECTOR) if mini else padded(content, SECTOR)
    data_count = len(data) // SECTOR
    mini_count = -(-len(content) // MINI) if mini else 0
    mini_fat = padded(struct.pack(f"<{mini_count}I", *chain(0, mini_count)), SECTOR, b"\xff")
    mini_fat_count = len(mini_fat) // SECTOR
    others = 1 + mini_fat_count + data_count
    fat_count = 1
    while fat_count * (SECTOR // 4) < others + fat_count:
        fat_count += 1
    directory_at = fat_count
    mini_fat_at = directory_at + 1
    data_at = mini_fat_at + mini_fat_count
    fat = ([FAT] * fat_count + [END] + chain(mini_fat_at, mini_fat_count)
           + chain(data_at, data_count))
    start = data_at if data_count else END
    root = entry("Root Entry", 5, 1, start if mini else END, mini_count * MINI)
    stream = entry(name, 2, FREE, (0 if content else END) if mini else start, len(content))
    unused = entry("", 0, FREE, 0, 0)
    header = (b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1" + bytes(16)
              + struct.pack("<HHHHH", 0x3E, 3, 0xFFFE, 9, 6) + bytes(6)
              + struct.pack("<IIIII", 0, fat_count, directory_at, 0, MINI_LIMIT)
              + struct.pack("<IIII", mini_fat_at if mini_fat_count else END, mini_fat_count, END, 0)
              + struct.pack("<109I", *(list(range(fat_count)) + [FREE] * (109 - fat_count))))
    assert len(header) == SECTOR and fat_count <= 109
    return (header + padded(struct.pack(f"<{len(fat)}I", *fat), SECTOR, b"\xff")
            + root + stream + unused + unused + mini_fat + data)
