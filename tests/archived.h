// An object as the bytes of its archive and back, how a damaged archive is refused, and what
// archives hold, byte for byte.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

inline std::string BytesOf(CMemFile& file)
{
    return { reinterpret_cast<const char*>(file.GetData()),
             static_cast<std::size_t>(file.GetLength()) };
}

template <class F>
std::string StoredBy(F store, int nBuffer = 4096)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store, nBuffer);
    store(ar);
    ar.Close();
    return BytesOf(file);
}

// Bytes that are left behind what was read.
template <class F>
ULONGLONG LoadBy(std::string strBytes, F load, int nBuffer = 4096)
{
    CMemFile file(reinterpret_cast<BYTE*>(strBytes.data()), static_cast<UINT>(strBytes.size()));
    CArchive ar(&file, CArchive::load, nBuffer);
    load(ar);
    ar.Close();
    return file.GetLength() - file.GetPosition();
}

template <class T>
std::string Stored(T& object)
{
    return StoredBy([&](CArchive& ar) { object.Serialize(ar); });
}

template <class T>
ULONGLONG Load(T& object, const std::string& strBytes)
{
    return LoadBy(strBytes, [&](CArchive& ar) { object.Serialize(ar); });
}

// The cause of the archive exception that a job throws, or -1.
template <class T>
int CauseOf(T job)
{
    try
    {
        job();
    }
    catch (CArchiveException* pException)
    {
        const int nCause = pException->m_cause;
        pException->Delete();
        return nCause;
    }
    return -1;
}

inline std::string Bits32(std::initializer_list<int> numbers)
{
    std::string strBytes;
    for (const int n : numbers)
    {
        for (int nShift = 0; nShift < 32; nShift += 8)
            strBytes += static_cast<char>(static_cast<unsigned>(n) >> nShift);
    }
    return strBytes;
}

inline std::string ShortText(const std::string& str)
{
    return static_cast<char>(str.size()) + str;
}

// The format that documents and trees start with: face, colour, bold, italic and character set of
// each record (in the system's black for window text), then the sizes.
inline std::string DefaultFormatBytes()
{
    const auto record = [](const char* pszFace, int nBold, int nItalic, char nCharSet)
    {
        return ShortText(pszFace) + Bits32({ 0, nBold, nItalic }) + nCharSet;
    };
    const char* const TNR = "Times New Roman";
    return record(TNR, 0, 0, 0) + record(TNR, 0, 1, 0) + record(TNR, 0, 1, 0) +
           record(TNR, 0, 0, 0) + record(TNR, 1, 0, 0) + record("Symbol", 0, 0, 2) +
           record("Symbol", 0, 0, 2) + Bits32({ -12, -10, -8, -16, -12 });
}
