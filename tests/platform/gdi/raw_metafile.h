// Metafiles put together record by record, as any program might.
#pragma once

#include "platform/gdi/metafile_records.h"

#include <string>
#include <vector>

inline void PutDword(std::string& strBytes, std::size_t nOffset, DWORD dwValue)
{
    std::memcpy(strBytes.data() + nOffset, &dwValue, sizeof dwValue);
}

inline DWORD GetDword(const std::string& strBytes, std::size_t nOffset)
{
    DWORD dwValue;
    std::memcpy(&dwValue, strBytes.data() + nOffset, sizeof dwValue);
    return dwValue;
}

// A record of any type; the data are filled up to a multiple of four.
inline std::string RawRecord(DWORD nType, std::string strData)
{
    strData.resize(RoundUp4(strData.size()));
    std::string strRecord(sizeof(EMR), '\0');
    PutDword(strRecord, 0, nType);
    PutDword(strRecord, 4, static_cast<DWORD>(sizeof(EMR) + strData.size()));
    return strRecord + strData;
}

inline std::string CommentRecord(const std::string& strText)
{
    std::string strCount(4, '\0');
    PutDword(strCount, 0, static_cast<DWORD>(strText.size()));
    return RawRecord(EMR_GDICOMMENT, strCount + strText);
}

// A whole metafile around some records. nHeader bytes of header fields, strBehind behind them.
inline std::string MetafileOf(const std::vector<std::string>& records, std::size_t nHeader = 108,
                              const std::string& strBehind = "")
{
    std::string strBytes = RawRecord(EMR_HEADER, std::string(nHeader - 8, '\0') + strBehind);
    for (const std::string& strRecord : records)
        strBytes += strRecord;
    std::string strEnd(12, '\0');
    PutDword(strEnd, 8, 20);
    strBytes += RawRecord(EMR_EOF, strEnd);
    PutDword(strBytes, 40, ENHMETA_SIGNATURE);
    PutDword(strBytes, 44, 0x10000);
    PutDword(strBytes, 48, static_cast<DWORD>(strBytes.size()));
    PutDword(strBytes, 52, static_cast<DWORD>(records.size() + 2));
    PutDword(strBytes, 56, 1);
    return strBytes;
}

// With a description behind nHeader bytes of header fields: 88, 100 or 108, by version.
inline std::string DescribedMetafile(std::size_t nHeader)
{
    std::string strBytes =
        MetafileOf({ CommentRecord("abc") }, nHeader, std::string("d\0e\0\0\0\0\0", 8));
    PutDword(strBytes, 60, 4);
    PutDword(strBytes, 64, static_cast<DWORD>(nHeader));
    return strBytes;
}

// Kinds of records that we never write, comments of other programs, a long text with a NUL in it.
inline std::string SampleMetafile()
{
    return MetafileOf({ CommentRecord("qvmrzfirst"), RawRecord(2, std::string(40, 'p')),
                        RawRecord(998, ""), CommentRecord("EMF+other"),
                        RawRecord(EMR_EXTTEXTOUTW, std::string(70, 't')), CommentRecord("qvmrzx=1"),
                        CommentRecord(std::string("a\0b", 3)) });
}
