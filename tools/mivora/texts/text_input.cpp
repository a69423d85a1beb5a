// Where texts come from: an operand, standard input, lines of a file.
#include "texts/text_input.h"

#include <cstdio>
#include <cstring>

#include "facade/greek_text.h"
#include "report.h"

namespace
{
constexpr size_t s_nBufferSize = 65536;

// Some programs put one in front of UTF-8.
void SkipByteOrderMark(std::string& strText)
{
    if (strText.starts_with("\xEF\xBB\xBF"))
        strText.erase(0, 3);
}

int HexDigit(char ch)
{
    if (ch >= '0' && ch <= '9')
        return ch - '0';
    if (ch >= 'A' && ch <= 'F')
        return ch - 'A' + 10;
    if (ch >= 'a' && ch <= 'f')
        return ch - 'a' + 10;
    return -1;
}

std::string ReadAll(CLineReader& reader)
{
    std::string strAll;
    std::string strLine;
    while (reader.NextRaw(strLine))
        strAll += strLine;
    return strAll;
}

void CutLineBreak(std::string& strLine)
{
    if (!strLine.empty() && strLine.back() == '\n')
    {
        strLine.pop_back();
        if (!strLine.empty() && strLine.back() == '\r')
            strLine.pop_back();
    }
}
}  // namespace

CString TextFromHex(const std::string& strHex)
{
    std::string strText;
    for (size_t n = 0; n < strHex.size(); n += 2)
    {
        const int nHigh = HexDigit(strHex[n]);
        const int nLow = n + 1 < strHex.size() ? HexDigit(strHex[n + 1]) : -1;
        if (nHigh < 0 || nLow < 0)
        {
            throw CFailure{ "position " + std::to_string(n + (nHigh < 0 ? 1 : 2)) +
                            ": a hexadecimal digit is missing" };
        }
        strText += static_cast<char>(nHigh << 4 | nLow);
    }
    return CString(strText.data(), static_cast<int>(strText.size()));
}

std::string TypedText(const CArguments& arguments)
{
    std::string strText = *arguments.Operand();
    if (strText == "-")
    {
        CLineReader reader("-");
        strText = ReadAll(reader);
        CutLineBreak(strText);
    }
    SkipByteOrderMark(strText);
    return arguments.Has(OPT_GREEK) ? WithGreekWritten(strText) : strText;
}

CLineReader::CLineReader(const std::string& strPath)
    : m_pFile(strPath == "-" ? std::make_unique<CInputFile>()
                             : std::make_unique<CInputFile>(strPath)),
      m_nSize(m_pFile->Size()),
      m_achBuffer(s_nBufferSize)
{
}

bool CLineReader::Next(std::string& strLine)
{
    if (!NextRaw(strLine))
        return false;
    CutLineBreak(strLine);
    SkipByteOrderMark(strLine);
    return true;
}

bool CLineReader::NextRaw(std::string& strLine)
{
    strLine.clear();
    while (m_nNext < m_nFilled || Fill())
    {
        const char* pchStart = m_achBuffer.data() + m_nNext;
        const void* pBreak = std::memchr(pchStart, '\n', m_nFilled - m_nNext);
        const size_t nCount =
            pBreak == nullptr
                ? m_nFilled - m_nNext
                : static_cast<size_t>(static_cast<const char*>(pBreak) - pchStart) + 1;
        strLine.append(pchStart, nCount);
        m_nNext += nCount;
        m_nTaken += nCount;
        if (pBreak != nullptr)
            return true;
    }
    return !strLine.empty();
}

bool CLineReader::Fill()
{
    std::fflush(stdout);
    m_nNext = 0;
    m_nFilled = m_pFile->Read(m_achBuffer.data(), m_achBuffer.size());
    return m_nFilled > 0;
}
