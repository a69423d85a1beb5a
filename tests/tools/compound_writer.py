"""Makes a compound file with one stream, from the published description of the format; the library
and its container library have no part in it."""
import struct

SECTOR, MINI = 512, 64
MINI_LIMIT = 4096  # shorter streams live in the mini stream
FREE, END, FAT = 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD


def sectors(numbers):
    data = struct.pack(f"<{len(numbers)}I", *numbers)
    return data + b"\xff" * (-len(data) % SECTOR)


def chain(first, count):
    return [first + n + 1 for n in range(count - 1)] + ([END] if count else [])


def entry(name, kind, child, start, size):
    text = name.encode("utf-16-le") + b"\0\0" if name else b""
    return struct.pack("<64sHBBIII36xIQ", text, len(text), kind, 1, FREE, FREE, child, start, size)


def compound_file(name, content):
    """Sectors in this order: FAT, directory, mini FAT, then the stream or the mini stream."""
    in_mini = len(content) < MINI_LIMIT
    mini_count = -(-len(content) // MINI) if in_mini else 0
    mini_fat = sectors(chain(0, mini_count))
    mini_fat_count = len(mini_fat) // SECTOR
    data_count = -(-len(content) // SECTOR)
    fat_count = 1
    while fat_count * (SECTOR // 4) < fat_count + 1 + mini_fat_count + data_count:
        fat_count += 1
    assert fat_count <= 109
    mini_fat_at = fat_count + 1
    data_at = mini_fat_at + mini_fat_count
    start = data_at if data_count else END
    fat = [FAT] * fat_count + [END] + chain(mini_fat_at, mini_fat_count) + chain(data_at, data_count)
    header = struct.pack(
        "<Q16xHHHHH6xIIIIIIIII109I", 0xE11AB1A1E011CFD0, 0x3E, 3, 0xFFFE, 9, 6,
        0, fat_count, fat_count, 0, MINI_LIMIT, mini_fat_at if mini_fat_count else END, mini_fat_count, END, 0,
        *range(fat_count), *[FREE] * (109 - fat_count))
    directory = (entry("Root Entry", 5, 1, start if in_mini else END, mini_count * MINI)
                 + entry(name, 2, FREE, (0 if content else END) if in_mini else start, len(content))
                 + entry("", 0, FREE, 0, 0) * 2)
    return header + sectors(fat) + directory + mini_fat + content.ljust(data_count * SECTOR, b"\0")
