// Speech as one line: control characters of a name would end it.
#include "facade/formula_words.h"

#include "exchange/speech.h"

std::string WordsOf(CFormulaOut& formula)
{
    std::string strWords = SpokenText(formula.m_Tree.GetRootNode());
    for (char& ch : strWords)
    {
        if (static_cast<unsigned char>(ch) < 0x20 || ch == '\x7F')
            ch = ' ';
    }
    return strWords;
}
