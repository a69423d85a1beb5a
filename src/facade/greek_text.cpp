// Reads a typed text as far as Greek letters need it: names, keywords, the words of STR.
#include "facade/greek_text.h"

#include <cctype>
#include <string_view>
#include <vector>

#include "facade/failure.h"
#include "parser/keywords.h"
#include "parser/token.h"
#include "platform/base/code_page.h"

namespace
{
// Rows of the face by Unicode: U+0391 to U+03A9, U+03B1 to U+03C9. A blank stands for no letter.
constexpr std::string_view s_strCapitals = "ABGDEZHQIKLMNXOPR STUFCYW";
constexpr std::string_view s_strSmall = "abgdezhqiklmnxoprVstufcyw";

struct CLetter
{
    char32_t nCharacter;
    char chSymbol;
};
constexpr CLetter s_aOthers[] = {
    { 0x03D1, 'J' },  // theta
    { 0x03D5, 'j' },  // phi
    { 0x03D6, 'v' },  // pi
    { 0x2206, 'D' },  // increment
    { 0x2126, 'W' },  // ohm
};

struct CCharacter
{
    std::string strUtf8;
    char chSymbol;  // 0: no Greek letter
};

std::vector<CCharacter> CharactersOf(const std::string& strUtf8)
{
    std::vector<CCharacter> characters;
    for (std::size_t nPlace = 0; nPlace < strUtf8.size();)
    {
        const std::size_t nStart = nPlace;
        const char32_t nCharacter = NextUtf8(strUtf8, nPlace);
        if (nPlace == nStart)
            ++nPlace;  // a byte out of place, which the conversion tells
        characters.push_back({ strUtf8.substr(nStart, nPlace - nStart), SymbolLetter(nCharacter) });
    }
    return characters;
}

bool IsNameCharacter(const CCharacter& character)
{
    const CString strToken(character.strUtf8.c_str());
    return character.strUtf8.size() == 1 && IsName(&strToken);
}

bool IsBlank(const CCharacter& character)
{
    return character.strUtf8 == " ";
}

// Copies a text, and writes what is Greek in it.
class CGreekWriter
{
public:
    explicit CGreekWriter(const std::string& strTyped) : m_characters(CharactersOf(strTyped)) {}

    std::string Written()
    {
        while (m_n < m_characters.size())
        {
            if (m_characters[m_n].chSymbol != 0)
                WriteLetters();
            else if (IsNameCharacter(m_characters[m_n]))
                CopyName();
            else
                m_strWritten += m_characters[m_n++].strUtf8;
        }
        return m_strWritten;
    }

private:
    [[noreturn]] void Refuse(std::size_t n, const char* pszReason) const
    {
        throw CFailure{ "position " + std::to_string(n + 1) + ": the Greek letter " +
                            m_characters[n].strUtf8 + pszReason,
                        n + 1 };
    }

    // Letters up to the next sign. Blanks do not end a name.
    void CopyName()
    {
        std::string strName;
        for (; m_n < m_characters.size(); ++m_n)
        {
            if (!IsNameCharacter(m_characters[m_n]) && !IsBlank(m_characters[m_n]))
                break;
            strName += m_characters[m_n].strUtf8;
        }
        m_strWritten += strName;
        if (m_n == m_characters.size())
            return;
        const CKeyword* pLast = nullptr;
        const bool bKeywords = IsKeywords(strName, pLast);
        if (m_characters[m_n].chSymbol != 0 && !bKeywords)
            Refuse(m_n, " stands beside another letter: write an operator between them");
        m_bWrittenGreek = bKeywords && pLast->GetNumber() == KW_GREEK;
        if (bKeywords && pLast->form == EKeywordForm::Text && m_characters[m_n].strUtf8 == "(")
            CopyWords();
    }

    // Whether a name is nothing but keywords, one behind the other.
    static bool IsKeywords(const std::string& strName, const CKeyword*& pLast)
    {
        for (std::size_t n = strName.find_first_not_of(' '); n < strName.size();
             n = strName.find_first_not_of(' ', n))
        {
            pLast = FindKeyword(strName.c_str() + n);
            if (pLast == nullptr)
                return false;
            n += static_cast<std::size_t>(pLast->GetLength());
        }
        return pLast != nullptr;
    }

    // What stands in the brackets of STR is no formula.
    void CopyWords()
    {
        for (bool bTaken = false; m_n < m_characters.size(); ++m_n)
        {
            const CCharacter& character = m_characters[m_n];
            if (character.chSymbol != 0)
                Refuse(m_n, " cannot stand among the words of str");
            m_strWritten += character.strUtf8;
            if (character.strUtf8 == ")" && !bTaken)
            {
                ++m_n;
                return;
            }
            bTaken = character.strUtf8 == "\\" && !bTaken;
        }
    }

    // A run of Greek letters is one name.
    void WriteLetters()
    {
        const std::size_t nFirst = m_n;
        std::string strLetters;
        std::string strBlanks;
        for (; m_n < m_characters.size(); ++m_n)
        {
            if (IsBlank(m_characters[m_n]))
            {
                strBlanks += ' ';
                continue;
            }
            if (m_characters[m_n].chSymbol == 0)
                break;
            strLetters += strBlanks + m_characters[m_n].chSymbol;
            strBlanks.clear();
        }
        if (m_n < m_characters.size() && IsNameCharacter(m_characters[m_n]))
            Refuse(nFirst, " stands beside another letter: write an operator between them");
        if (m_n < m_characters.size() && m_characters[m_n].strUtf8 == "(")
            Refuse(nFirst, " cannot be called: what is in the brackets would be Greek too");
        // More letters than one could begin with a keyword.
        m_strWritten += m_bWrittenGreek ? "" : "greek ";
        m_strWritten += strLetters.size() > 1 ? "str(" + strLetters + ")" : strLetters;
        m_strWritten += strBlanks;
        m_bWrittenGreek = false;
    }

    std::vector<CCharacter> m_characters;
    std::size_t m_n = 0;
    bool m_bWrittenGreek = false;  // the keyword stands there already
    std::string m_strWritten;
};
}  // namespace

char SymbolLetter(char32_t nCharacter)
{
    const auto letter = [=](std::string_view strRow, char32_t nFirst) -> char
    {
        const char ch = nCharacter >= nFirst && nCharacter - nFirst < strRow.size()
                            ? strRow[nCharacter - nFirst]
                            : ' ';
        return ch == ' ' ? '\0' : ch;
    };
    if (const char ch = letter(s_strCapitals, 0x0391); ch != 0)
        return ch;
    if (const char ch = letter(s_strSmall, 0x03B1); ch != 0)
        return ch;
    for (const CLetter& row : s_aOthers)
    {
        if (row.nCharacter == nCharacter)
            return row.chSymbol;
    }
    return 0;
}

std::string WithGreekWritten(const std::string& strTyped)
{
    return CGreekWriter(strTyped).Written();
}
