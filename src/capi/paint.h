// Options of C callers as those of pictures.
#pragma once

#include <cstring>

#include "capi/call.h"
#include "mivora/mivora_c.h"
#include "picture/picture.h"

// The caller's options, those that an older one does not know at their defaults. Throws
// CCallFailure for a size that no version has had.
template <class T>
T OptionsOf(const T* pOptions)
{
    T options{};
    if (pOptions == nullptr)
        return options;
    if (pOptions->struct_size < sizeof(size_t) || pOptions->struct_size > sizeof(T))
        RefuseArgument("struct_size is not the size of the structure");
    std::memcpy(&options, pOptions, pOptions->struct_size);
    return options;
}

// A null name is a failure too. Throw CCallFailure.
const CPictureFormat& FormatOf(const char* pszName);
CPictureOptions PaintOptions(const mivora_paint& paint, const CPictureFormat* pFormat);
