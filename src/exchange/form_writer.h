// Writes a tree by templates, one for each form, without recursion: trees can be deep.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/reading.h"

// How firmly a form holds together. An operand that holds less firmly than its place needs is put
// into a group.
enum ERank : unsigned char
{
    RANK_ANY,
    RANK_LIST,
    RANK_SUM,  // relations too: the language gives them the same precedence
    RANK_TERM,
    RANK_PREFIX,
    RANK_OVER,
    RANK_POWER,
    RANK_CLOSED,  // has its own end
    RANK_LEAF
};

// Text up to an operand, %1 to %4, or to a part that the dialect writes itself, % and a letter.
struct CPiece
{
    const char* pchText = nullptr;
    std::uint16_t nLength = 0;
    char chCode = 0;  // 0 at the end of the template

    std::string_view Text() const { return { pchText, nLength }; }
};

class CTemplate
{
public:
    consteval CTemplate(const char* pszText) : m_aPieces()
    {
        int nPiece = 0;
        m_aPieces[0].pchText = pszText;
        for (; *pszText != 0; ++pszText)
        {
            if (*pszText == '%')
            {
                m_aPieces[nPiece++].chCode = *++pszText;
                m_aPieces[nPiece].pchText = pszText + 1;  // fails to compile beyond the last piece
            }
            else
            {
                ++m_aPieces[nPiece].nLength;
            }
        }
    }

    const CPiece* Pieces() const { return m_aPieces; }

private:
    CPiece m_aPieces[7];
};

struct CFormRow
{
    EForm nForm;
    ERank nRank;
    ERank anNeeded[4];  // by operand
    CTemplate text;
};

// Finds mistakes of a table of rows while it is compiled.
template <std::size_t N>
consteval bool RowsAreForms(const CFormRow (&aRows)[N])
{
    for (std::size_t i = 0; i < N; ++i)
    {
        if (aRows[i].nForm != i)
        {
            return false;
        }
    }
    return N == FORM_COUNT;
}

// A dialect gives:
//     const CFormRow& RowOf(CReading&)                   the row of a form; may change operands
//     void AppendNothing(ERank nNeeded)                  what stands for a part that shows nothing
//     void AppendText(std::string_view)                  text of templates
//     void AppendOwn(const CReading&, char chCode)       the part of a template that is no operand
//     void OpenGroup(), void CloseGroup()
template <class CDialect>
class CFormWriter
{
public:
    explicit CFormWriter(CDialect& dialect) : m_dialect(dialect) {}

    void Write(const CNode* pRoot, ERank nNeeded)
    {
        m_frames.reserve(32);
        Begin({ pRoot, 0 }, nNeeded);
        while (!m_frames.empty())
        {
            Continue();
        }
    }

private:
    struct CFrame
    {
        CReading reading;
        const CFormRow* pRow;
        const CPiece* pNext;
        bool bGroup;
    };

    void Begin(const CPart& part, ERank nNeeded)
    {
        CReading reading = ReadPart(part);
        if (reading.nForm == FORM_NOTHING)
        {
            m_dialect.AppendNothing(nNeeded);
            return;
        }
        const CFormRow& row = m_dialect.RowOf(reading);
        const bool bGroup = row.nRank < nNeeded;
        if (bGroup)
        {
            m_dialect.OpenGroup();
        }
        m_frames.push_back({ reading, &row, row.text.Pieces(), bGroup });
    }

    // Writes the topmost frame up to its next operand or to its end.
    void Continue()
    {
        CFrame& frame = m_frames.back();
        for (;;)
        {
            const CPiece& piece = *frame.pNext;
            m_dialect.AppendText(piece.Text());
            if (piece.chCode == 0)
            {
                break;
            }
            ++frame.pNext;
            if (piece.chCode <= '9')
            {
                const int nOperand = piece.chCode - '1';
                Begin(CPart(frame.reading.aOperands[nOperand]), frame.pRow->anNeeded[nOperand]);
                return;
            }
            m_dialect.AppendOwn(frame.reading, piece.chCode);
        }
        if (frame.bGroup)
        {
            m_dialect.CloseGroup();
        }
        m_frames.pop_back();
    }

    CDialect& m_dialect;
    std::vector<CFrame> m_frames;
};
