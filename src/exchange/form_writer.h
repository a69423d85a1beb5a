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
            return false;
    }
    return N == FORM_COUNT;
}

// A form that is being written.
struct COpenForm
{
    CReading reading;
    const CFormRow* pRow;
    const CPiece* pNext;  // of the row's template
    bool bGroup;          // to be closed behind it
};

// What writing needs memory for. It is kept from one formula to the next: the system's allocator
// would give the pages of a long one back each time, and fetch them again.
class CWriterMemory
{
public:
    CWriterMemory();
    ~CWriterMemory();
    CWriterMemory(const CWriterMemory&) = delete;
    CWriterMemory& operator=(const CWriterMemory&) = delete;

    std::vector<COpenForm>& m_open;  // empty at first
    std::string& m_text;             // empty at first
};

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
    CFormWriter(CDialect& dialect, std::vector<COpenForm>& open) : m_dialect(dialect), m_open(open)
    {
    }

    void Write(const CNode* pRoot, ERank nNeeded)
    {
        Begin({ pRoot, 0 }, nNeeded);
        while (!m_open.empty())
        {
            COpenForm& form = m_open.back();
            const int nOperand = WriteToOperand(form.reading, form.pNext);
            if (nOperand != s_nEnd)
            {
                Begin(form.reading.Operand(nOperand), form.pRow->anNeeded[nOperand]);
                continue;
            }
            EndGroup(form.bGroup);
            m_open.pop_back();
        }
    }

private:
    static constexpr int s_nEnd = -1;

    // Goes down along first operands; what has operands stays open.
    void Begin(CPart part, ERank nNeeded)
    {
        for (;;)
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
                m_dialect.OpenGroup();
            const CPiece* pNext = row.text.Pieces();
            const int nOperand = WriteToOperand(reading, pNext);
            if (nOperand == s_nEnd)
            {
                EndGroup(bGroup);
                return;
            }
            m_open.push_back({ reading, &row, pNext, bGroup });
            part = reading.Operand(nOperand);
            nNeeded = row.anNeeded[nOperand];
        }
    }

    // Writes pieces of the template up to an operand, whose number it gives, or to the end.
    int WriteToOperand(const CReading& reading, const CPiece*& pNext)
    {
        for (;;)
        {
            const CPiece& piece = *pNext;
            m_dialect.AppendText(piece.Text());
            if (piece.chCode == 0)
                return s_nEnd;
            ++pNext;
            if (piece.chCode <= '9')
                return piece.chCode - '1';
            m_dialect.AppendOwn(reading, piece.chCode);
        }
    }

    void EndGroup(bool bGroup)
    {
        if (bGroup)
            m_dialect.CloseGroup();
    }

    CDialect& m_dialect;
    std::vector<COpenForm>& m_open;
};
