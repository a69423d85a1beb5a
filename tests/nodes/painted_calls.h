// What a node does to a device context when it paints, as lines of text in the order of the calls.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "nodes/node_fixture.h"
#include "platform/gdi/metafile_calls.h"

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

    // Ends the painting. What selects and sets colours is left out.
    std::vector<std::string> TakeCalls()
    {
        std::vector<std::string> calls;
        std::size_t nTexts = 0;
        for (const std::string& strLine : TakeMetafileCalls(CloseEnhanced()))
        {
            const std::string strWord = strLine.substr(0, strLine.find(' '));
            if (strWord == "text")
            {
                calls.push_back(nTexts < m_texts.size() ? m_texts[nTexts] : "unknown text");
                ++nTexts;
            }
            else if (strWord != "select" && strWord != "bkcolor" && strWord != "patblt")
            {
                calls.push_back(strLine);
            }
        }
        EXPECT_EQ(nTexts, m_texts.size()) << "records of texts";
        return calls;
    }

private:
    LOGFONT m_font{};
    std::vector<std::string> m_texts;
};

using CCalls = std::vector<std::string>;
