// Bytes to and from another process.
#pragma once

#include <cstddef>

class CBytePipe
{
public:
    virtual ~CBytePipe() = default;

    // All of it; false if the other side has gone.
    virtual bool Write(const void* pData, std::size_t nSize) = 0;
    virtual bool Read(void* pData, std::size_t nSize) = 0;

    // Whether the other side will write no more, and all that it wrote has been read.
    virtual bool IsEnded() = 0;
};
