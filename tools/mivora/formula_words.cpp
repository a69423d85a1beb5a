#include "formula_words.h"

#include "text_input.h"

std::string WordsOf(CFormulaOut& formula)
{
    std::string strWords = Utf8FromText(formula.m_strFormula);
    for (char& ch : strWords)
    {
        if (static_cast<unsigned char>(ch) < 0x20 || ch == '\x7F')
            ch = ' ';
    }
    return strWords;
}
