// Compression as PNG and PDF use it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// A zlib stream. Throws std::bad_alloc.
std::string Deflate(std::string_view bytes);

// The content of a zlib stream at the start of some bytes, up to nLimit bytes of it; what came
// before a fault where it is damaged.
std::string Inflate(std::string_view bytes, size_t nLimit);

// As PNG sums up its chunks.
unsigned long Crc32(std::string_view bytes);
