// What the compound file module offers. It is loaded when the first compound file is touched: the
// library behind it doubles the time that a process takes to start.
#pragma once

#include <cstddef>

// Hears bytes; 0 stops whoever gives them.
using PFN_SINK = int (*)(void* pContext, const void* pBytes, std::size_t nBytes);

struct CCompoundModule
{
    // 1, or 0 if the sink stopped it or memory ran out.
    int (*pfnPack)(const char* pszStream, const void* pBytes, std::size_t nBytes, PFN_SINK pfnSink,
                   void* pContext);
    // 1, or 0 if these bytes are no compound file with such a stream.
    int (*pfnUnpack)(const void* pFile, std::size_t nFile, const char* pszStream, PFN_SINK pfnSink,
                     void* pContext);
};

// The one name that the module exports.
#define COMPOUND_MODULE_SYMBOL "g_mivoraCompoundModule"
