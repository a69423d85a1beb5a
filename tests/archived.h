// An object as the bytes of its archive and back, and how a damaged archive is refused.
#pragma once

#include <string>

#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

inline std::string BytesOf(CMemFile& file)
{
    return { reinterpret_cast<const char*>(file.GetData()),
             static_cast<std::size_t>(file.GetLength()) };
}

template <class T>
std::string Stored(T& object)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    object.Serialize(ar);
    ar.Close();
    return BytesOf(file);
}

// Bytes that are left behind what the object read.
template <class T>
ULONGLONG Load(T& object, std::string strBytes)
{
    CMemFile file(reinterpret_cast<BYTE*>(strBytes.data()), static_cast<UINT>(strBytes.size()));
    CArchive ar(&file, CArchive::load);
    object.Serialize(ar);
    ar.Close();
    return file.GetLength() - file.GetPosition();
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
