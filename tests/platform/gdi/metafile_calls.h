// Drawing calls as a metafile holds them, read back through the drawing interface: a line a record.
#pragma once

#include "platform/gdi/metafile_records.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The numbers of a record, of 32 bits, from an offset on; none beyond its end.
inline std::string RecordNumbers(const ENHMETARECORD& record, std::size_t nOffset,
                                 std::size_t nCount)
{
    std::string strNumbers;
    for (std::size_t n = nOffset; n < nOffset + 4 * nCount && n + 4 <= record.nSize; n += 4)
    {
        LONG nNumber;
        std::memcpy(&nNumber, reinterpret_cast<const char*>(&record) + n, sizeof nNumber);
        strNumbers += ' ' + std::to_string(nNumber);
    }
    return strNumbers;
}

// The calls of a metafile, which it deletes. Records whose kind has no word here are left out.
inline std::vector<std::string> TakeMetafileCalls(HENHMETAFILE hMetaFile)
{
    const ENHMFENUMPROC visit =
        [](HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM lParam)
    {
        static constexpr struct
        {
            DWORD nType;
            const char* pszWord;
            std::size_t nOffset;  // of the numbers that count
            std::size_t nCount;
        } s_aWords[] = {
            { EMR_SETBKCOLOR, "bkcolor", 8, 1 },
            { EMR_MOVETOEX, "move", 8, 2 },
            { EMR_SELECTOBJECT, "select", 0, 0 },
            { EMR_CREATEPEN, "pen", 24, 1 },
            { EMR_CREATEBRUSHINDIRECT, "hatch", 16, 2 },
            { EMR_RECTANGLE, "rectangle", 8, 4 },
            { EMR_LINETO, "line", 8, 2 },
            { EMR_BITBLT, "patblt", 24, 5 },
        };
        auto& lines = *reinterpret_cast<std::vector<std::string>*>(lParam);
        for (const auto& word : s_aWords)
        {
            if (pRecord->iType == word.nType)
                lines.push_back(word.pszWord + RecordNumbers(*pRecord, word.nOffset, word.nCount));
        }
        // Reference point and options of a text; the rectangle of a fill, which has no characters.
        if (pRecord->iType == EMR_EXTTEXTOUTW && RecordNumbers(*pRecord, 44, 1) == " 0")
        {
            lines.push_back("fill" + RecordNumbers(*pRecord, 56, 4));
        }
        else if (pRecord->iType == EMR_EXTTEXTOUTW)
        {
            lines.push_back("text" + RecordNumbers(*pRecord, 36, 2) +
                            RecordNumbers(*pRecord, 52, 1));
        }
        return 1;
    };
    std::vector<std::string> lines;
    EXPECT_TRUE(EnumEnhMetaFile(nullptr, hMetaFile, visit, &lines, nullptr));
    EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
    return lines;
}
