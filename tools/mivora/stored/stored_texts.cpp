// What a stored formula holds, for people and for programs.
#include <cstdio>
#include <nlohmann/json.hpp>

#include "nodes/node.h"
#include "stored/stored_formula.h"
#include "texts/text_input.h"
#include "tree/tree_form.h"

namespace
{
// In the order of the file.
struct CRecordRow
{
    const char* pszName;
    CFormatInfoOb* CBinTreeFormat::*pRecord;
};

constexpr CRecordRow s_aRecords[] = {
    { "text", &CBinTreeFormat::m_pText },         { "variable", &CBinTreeFormat::m_pVariable },
    { "constant", &CBinTreeFormat::m_pConstant }, { "number", &CBinTreeFormat::m_pNumber },
    { "function", &CBinTreeFormat::m_pFunction }, { "operator", &CBinTreeFormat::m_pOperator },
    { "symbol", &CBinTreeFormat::m_pSymbol },
};

// UTF-8 that stays in its line: control characters and the backslash as in the form of a tree.
std::string OneLine(const CString& strText)
{
    std::string strLine;
    for (char ch : strText.View())
    {
        const auto nCode = static_cast<unsigned char>(ch);
        const CString strOne(&ch, 1);
        strLine += nCode < 0x20 || nCode == 0x7F || ch == '\\'
                       ? std::string(EscapeSymbol(strOne).View())
                       : Utf8FromText(strOne);
    }
    return strLine;
}

std::string Colour(COLORREF nColour)
{
    char szColour[16];
    std::snprintf(szColour, sizeof szColour, "0x%08X", static_cast<unsigned>(nColour));
    return szColour;
}

std::string FormatLine(const CBinTreeFormat& format)
{
    std::string strLine;
    for (const CRecordRow& row : s_aRecords)
    {
        const CFormatInfoOb& record = *(format.*row.pRecord);
        strLine += std::string(row.pszName) + " \"" + OneLine(record.m_strFontName) + "\" " +
                   Colour(record.m_crColour) + " bold " + std::to_string(record.m_Style[0]) +
                   " italic " + std::to_string(record.m_Style[1]) + " charset " +
                   std::to_string(record.m_nCharSet) + "; ";
    }
    strLine += "sizes";
    for (int nSize : format.m_nSizes)
        strLine += " " + std::to_string(nSize);
    return strLine;
}

nlohmann::ordered_json FormatJson(const CBinTreeFormat& format)
{
    nlohmann::ordered_json json;
    for (const CRecordRow& row : s_aRecords)
    {
        const CFormatInfoOb& record = *(format.*row.pRecord);
        json[row.pszName] = { { "face", Utf8FromText(record.m_strFontName) },
                              { "colour", record.m_crColour },
                              { "bold", record.m_Style[0] },
                              { "italic", record.m_Style[1] },
                              { "charset", record.m_nCharSet } };
    }
    json["sizes"] = format.m_nSizes;
    return json;
}

std::string TreeText(CFormulaOut& formula)
{
    return std::string(TreeForm(formula.m_Tree.GetRootNode()).View());
}
}  // namespace

std::string DescribeStored(CFormulaOut& formula)
{
    const CRect& rect = formula.m_Tree.m_rectFormula;
    return "text: " + OneLine(formula.m_strFormula) + "\nrectangle: " + std::to_string(rect.left) +
           " " + std::to_string(rect.top) + " " + std::to_string(rect.right) + " " +
           std::to_string(rect.bottom) + "\nname: " + OneLine(formula.m_Tree.GetName()) +
           "\ntree: " + TreeText(formula) + "\nformat: " + FormatLine(formula.m_Format) + "\n";
}

std::string DescribeStoredAsJson(CFormulaOut& formula)
{
    const CRect& rect = formula.m_Tree.m_rectFormula;
    nlohmann::ordered_json json;
    json["text"] = Utf8FromText(formula.m_strFormula);
    json["rectangle"] = { rect.left, rect.top, rect.right, rect.bottom };
    json["name"] = Utf8FromText(formula.m_Tree.GetName());
    json["tree"] = TreeText(formula);
    json["format"] = FormatJson(formula.m_Format);
    return json.dump() + "\n";
}
