// What a node does to a device context when it paints, as lines of text in the order of the calls.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "nodes/node_fixture.h"

// A metafile tells lines, shapes and fills; texts are noted with the arguments of DrawText. Sizes
// of texts are as in CTestDC.
class CPaintDC : public CMetaFileDC
{
public:
    CPaintDC() { CreateEnhanced(nullptr, nullptr, nullptr, nullptr); }

    using CDC::SelectObject;
    CFont* SelectObject(CFont* pFont) override
    {
        CFont* pOld = CMetaFileDC::SelectObject(pFont);
        GetCurrentFont()->GetLogFont(&m_font);
        return pOld;
    }

    using CDC::GetOutputTextExtent;
    CSize GetOutputTextExtent(LPCSTR, int nCount) const override
    {
        return CSize(8 * nCount, std::abs(m_font.lfHeight));
    }

    // text SIGN @FACE HEIGHT WIDTH in RECT FLAGS
    using CDC::DrawText;
    int DrawText(LPCSTR pszText, int nCount, LPRECT pRect, UINT nFormat) override
    {
        char szRest[160];
        std::snprintf(szRest, sizeof(szRest), " @%s %d %d in %d %d %d %d %X", m_font.lfFaceName,
                      static_cast<int>(std::abs(m_font.lfHeight)), static_cast<int>(m_font.lfWidth),
                      static_cast<int>(pRect->left), static_cast<int>(pRect->top),
                      static_cast<int>(pRect->right), static_cast<int>(pRect->bottom), nFormat);
        if (nCount != 0)
        {
            m_texts.push_back("text " + std::string(pszText, static_cast<std::size_t>(nCount)) +
                              szRest);
        }
        return CMetaFileDC::DrawText(pszText, nCount, pRect, nFormat);
    }

    // Ends the painting.
    std::vector<std::string> TakeCalls()
    {
        const HENHMETAFILE hMetaFile = CloseEnhanced();
        EnumEnhMetaFile(nullptr, hMetaFile, &CPaintDC::OnRecord, this, nullptr);
        DeleteEnhMetaFile(hMetaFile);
        return m_calls;
    }

private:
    // Names and numbers of the records that count; the rest is state.
    void AddRecord(const ENHMETARECORD& record)
    {
        constexpr DWORD nText = 84;
        constexpr int nLength = 9;     // number of characters
        constexpr int nFillRect = 12;  // rectangle of the text's fill
        static const struct
        {
            DWORD nType;
            const char* pszName;
            int nFirst;
            int nCount;
        } s_aRecords[] = { { 27, "move", 0, 2 },  { 38, "pen", 4, 1 },
                           { 39, "hatch", 2, 2 }, { 43, "rectangle", 0, 4 },
                           { 54, "line", 0, 2 },  { nText, "fill", nFillRect, 4 } };
        if (record.iType == nText && record.dParm[nLength] != 0)
        {
            m_calls.push_back(m_nTexts < m_texts.size() ? m_texts[m_nTexts] : "unknown text");
            ++m_nTexts;
            return;
        }
        for (const auto& row : s_aRecords)
        {
            if (record.iType == row.nType)
            {
                m_calls.emplace_back(row.pszName);
                for (int i = row.nFirst; i < row.nFirst + row.nCount; ++i)
                    m_calls.back() += ' ' + std::to_string(static_cast<int>(record.dParm[i]));
            }
        }
    }

    static int CALLBACK OnRecord(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int,
                                 LPARAM lParam)
    {
        reinterpret_cast<CPaintDC*>(lParam)->AddRecord(*pRecord);
        return 1;
    }

    LOGFONT m_font{};
    std::vector<std::string> m_texts;
    std::size_t m_nTexts = 0;  // of those that a record was found for
    std::vector<std::string> m_calls;
};

using CCalls = std::vector<std::string>;
