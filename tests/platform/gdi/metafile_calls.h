// Drawing calls as a metafile holds them, read back through the drawing interface: a line a record.
#pragma once

#include "platform/gdi/gdi.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

// A device context whose calls are kept.
class CRecordedCalls
{
public:
    CRecordedCalls() : m_hDC(CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr)) {}
    ~CRecordedCalls()
    {
        if (m_hDC)
            Lines();
    }
    CRecordedCalls(const CRecordedCalls&) = delete;
    CRecordedCalls& operator=(const CRecordedCalls&) = delete;

    operator HDC() const { return m_hDC; }

    // Ends the recording. Records whose kind has no word here are left out.
    std::vector<std::string> Lines()
    {
        std::vector<std::string> lines;
        const HENHMETAFILE hMetaFile = CloseEnhMetaFile(m_hDC);
        m_hDC = nullptr;
        EXPECT_TRUE(EnumEnhMetaFile(nullptr, hMetaFile, Visit, &lines, nullptr));
        EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
        return lines;
    }

private:
    static LONG NumberAt(const ENHMETARECORD& record, std::size_t nOffset)
    {
        LONG n = 0;
        if (nOffset + sizeof n <= record.nSize)
            std::memcpy(&n, reinterpret_cast<const char*>(&record) + nOffset, sizeof n);
        return n;
    }

    static std::string Numbers(const ENHMETARECORD& record, std::size_t nOffset, std::size_t nCount)
    {
        std::string strNumbers;
        for (std::size_t n = 0; n < nCount; ++n)
            strNumbers += ' ' + std::to_string(NumberAt(record, nOffset + 4 * n));
        return strNumbers;
    }

    // Reference point, options, rectangle, distances and UTF-16 units.
    static std::string Text(const ENHMETARECORD& record)
    {
        const auto nChars = static_cast<std::size_t>(NumberAt(record, 44));
        std::string strLine = "text" + Numbers(record, 36, 2) + Numbers(record, 52, 1);
        if (NumberAt(record, 64) >= NumberAt(record, 56) || NumberAt(record, 52) != 0)
            strLine += " rect" + Numbers(record, 56, 4);
        strLine += " dx" + Numbers(record, static_cast<std::size_t>(NumberAt(record, 72)), nChars);
        strLine += " codes";
        for (std::size_t n = 0; n < nChars; ++n)
        {
            char16_t unit;
            std::memcpy(
                &unit,
                reinterpret_cast<const char*>(&record) + NumberAt(record, 48) + n * sizeof unit,
                sizeof unit);
            strLine += ' ' + std::to_string(unsigned{ unit });
        }
        return strLine;
    }

    static int CALLBACK Visit(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM lParam)
    {
        auto& lines = *reinterpret_cast<std::vector<std::string>*>(lParam);
        switch (pRecord->iType)
        {
            case 25:
                lines.push_back("bkcolor" + Numbers(*pRecord, 8, 1));
                break;
            case 27:
                lines.push_back("move" + Numbers(*pRecord, 8, 2));
                break;
            case 37:
                lines.push_back("select");
                break;
            case 43:
                lines.push_back("rectangle" + Numbers(*pRecord, 8, 4));
                break;
            case 54:
                lines.push_back("line" + Numbers(*pRecord, 8, 2));
                break;
            case 76:
                lines.push_back("patblt" + Numbers(*pRecord, 24, 5));
                break;
            case 84:
                lines.push_back(Text(*pRecord));
                break;
            default:
                break;
        }
        return 1;
    }

    HDC m_hDC;
};
