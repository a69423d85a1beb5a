// Unpacking by zlib; packing is each system's own file.
#include "picture/deflate.h"

#include <zlib.h>

#include <algorithm>
#include <new>

std::string Inflate(std::string_view bytes, size_t nLimit)
{
    constexpr size_t nPart = 16384;
    std::string strOut;
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK)
        throw std::bad_alloc();
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));  // is only read
    stream.avail_in = static_cast<uInt>(std::min<size_t>(bytes.size(), 1U << 30));
    int nState = Z_OK;
    while (nState == Z_OK && strOut.size() < nLimit)
    {
        const size_t nStart = strOut.size();
        strOut.resize(std::min(nStart + nPart, nLimit));
        stream.next_out = reinterpret_cast<Bytef*>(&strOut[nStart]);
        stream.avail_out = static_cast<uInt>(strOut.size() - nStart);
        nState = inflate(&stream, Z_NO_FLUSH);
        strOut.resize(strOut.size() - stream.avail_out);
    }
    inflateEnd(&stream);
    return strOut;
}

unsigned long Crc32(std::string_view bytes)
{
    return crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size()));
}
