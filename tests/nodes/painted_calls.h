// What a node does to a device context when it paints, as lines of text in the order of the calls.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "nodes/node_fixture.h"
#include "platform/gdi/metafile_calls.h"

// A metafile tells lines, shapes and fills; texts are noted with the arguments of DrawText.
class CPaintDC : public CSizedTextDC<CMetaFileDC>
{
public:
    CPaintDC() { CreateEnhanced(nullptr, nullptr, nullptr, nullptr); }

    // text SIGN @FACE HEIGHT WIDTH in RECT FLAGS
    using CDC::DrawText;
    int DrawText(LPCSTR pszText, int nCount, LPRECT pRect, UINT nFormat) override
    {
        if (nCount != 0)
        {
            std::ostringstream line;
            line << "text " << std::string(pszText, static_cast<std::size_t>(nCount)) << " @"
                 << m_font.lfFaceName << ' ' << std::abs(m_font.lfHeight) << ' ' << m_font.lfWidth
                 << " in " << pRect->left << ' ' << pRect->top << ' ' << pRect->right << ' '
                 << pRect->bottom << ' ' << std::hex << std::uppercase << nFormat;
            m_texts.push_back(line.str());
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
    std::vector<std::string> m_texts;
};

using CCalls = std::vector<std::string>;
