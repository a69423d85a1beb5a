// Random formulas: source texts, and sketches of trees that only stored formulas have. Two that
// differ are shown differently: what looks the same by design is made in one way only. The same
// seed gives the same formulas.
#pragma once

#include <algorithm>
#include <random>
#include <sstream>
#include <string>
#include <vector>

// The parts of a text between separators and blanks.
inline std::vector<std::string> Split(const std::string& strText, char chSeparator = ';')
{
    std::vector<std::string> parts;
    std::istringstream text(strText);
    for (std::string strPart; std::getline(text >> std::ws, strPart, chSeparator);)
        parts.push_back(strPart);
    return parts;
}

class CRandomFormula
{
public:
    struct CLanguage
    {
        std::vector<std::string> rows;  // % stands for another formula, # for a kind behind the bar
        std::vector<std::string> leaves;
    };

    // Source texts.
    static inline const CLanguage TEXTS = {
        Split("%+%; %-%; (%)-(%); (%)*(%); %*%; %**%; (%)/(%); %=%; %<=%; (%)!=(%); (%)^(%); "
              "(%)~(%); (%)^2; x^(%); -(%); (%)!; sqr(%); nsqr(%,3); nsqr(%,n+1); abs(%); sin(%); "
              "exp(%); ln(%); arcosh(%); sum(%,i=1,n); sum(%,%,%); int(%,0,%); int(%); mark(x,%,); "
              "mark(x,%,%); mark((%)/(%),%,2); f(%); f(%,%); brace([,],%); brace(|,,%); "
              "brace(<,>,%); greek a^(%)"),
        Split("a; b; x; A; velocity; plus; 2; 3; 1.25; greek a; greek G; greek J; x'; "
              "str(two words); str(end); x; y")
    };
    // In the form of examples/gallery/sketch.h.
    static inline const CLanguage SKETCHES = {
        Split("(PLUS % %); (PLUS - %); (PLUS % -); (MINUS % %); (MINUS - %); (TIMES % %); "
              "(TIMES \"\" % %); (CROSS % %); (EQUATION[#] % %)|0 1 5 6 8 19; "
              "(DIVISION[#] % %)|0 1 2; (ROOT %); (NTHROOT % %); (NTHROOT % 3); (POWERTO % %); "
              "(POWERTO % 2); (POWERTO - %); "
              "(BRACE[#] %)|0 1 3 4 6 7 8 9 10 11 12 16 17 18 19 23 24; (PARTDERIVE % %); "
              "(DERIVE % %); (DERIVE x %); (SUM (RANGE % %) %); (SUM (RANGE n (EQUATION i %)) %); "
              "(SUM (RANGE - %) %); (SUM (RANGE % -) %); (SUM - %); (PROD (RANGE % %) %); "
              "(INTEGRAL[#] (RANGE % %) %)|0 1 3 6; (INTEGRAL (RANGE b a) (INTEGRAND % %)); "
              "(INTEGRAND % %); (RANGE % %); (FUNC[#] - %)|0 7 18 20 21; "
              "(FUNC[#] - (BRACE %))|0 8 17; (USERFUNC \"g\" - %); (EXTFUNC \"sgn\" - (BRACE %)); "
              "(VARIABLE \"f\" - (BRACE %)); (VARIABLE \",\" % %); (VARIABLE \"x\" - (INDEX % %)); "
              "(VARIABLE \"x\" - (INDEX % -)); (VARIABLE \"x\" - (INDEX - %)); "
              "(BRACE % (INDEX - %)); (VECTOR[#] %)|0 1 2 3 4 5 6 7; (LIMES % %); "
              "(LIMES (OPERATOR x %) %); (OPERATOR % %); (ARROWS[#] % %)|0 5 11; (BINOMIAL % %); "
              "(MATRIX (ELEMENT % %) (ELEMENT % %)); (MATRIX (ELEMENT % x) (ROOT %)); "
              "(LINE (ROOT %) (ELEMENT % a)); (NABLA - %); (LAPLACE - %); (STANDARD \"!\" % -)"),
        Split("a; b; f; x; plus; 2; 3; (INFINITY); (PLANCK); (LAMBDA); (NABLA); (LABEL); "
              "(PLACEHOLDER); (USERFUNC \"g\"); (CONSTANT \"two words\")")
    };

    explicit CRandomFormula(unsigned nSeed) : m_random(nSeed) {}

    // A formula with at most so many levels of operators.
    std::string Make(const CLanguage& language, int nLevels)
    {
        if (nLevels == 0 || m_random() % 5 == 0)
            return Pick(language.leaves, 3, 1);
        return Expand(Pick(language.rows, 0, 3), [&](int) { return Make(language, nLevels - 1); });
    }

    // Narrow formulas are made of three operators and one leaf, chosen anew at each call: they are
    // more alike than those of all operators.
    void Narrow(bool bNarrow)
    {
        m_bNarrow = bNarrow;
        for (std::size_t& nChoice : m_aChoices)
            nChoice = m_random();
    }

    // Every operator in every place of every other one, with one leaf everywhere else.
    std::vector<std::string> Pairs(const CLanguage& language, const std::string& strLeaf)
    {
        std::vector<std::string> pairs;
        for (const std::string& strOuter : language.rows)
        {
            for (int nPlace = 0; nPlace < std::ranges::count(strOuter, '%'); ++nPlace)
            {
                for (const std::string& strInner : language.rows)
                {
                    const std::string strIn = Expand(strInner, [&](int) { return strLeaf; });
                    pairs.push_back(
                        Expand(strOuter, [&](int n) { return n == nPlace ? strIn : strLeaf; }));
                }
            }
        }
        return pairs;
    }

private:
    // When formulas are narrow, one of nCount choices from nFirst on.
    const std::string& Pick(const std::vector<std::string>& rows, std::size_t nFirst,
                            std::size_t nCount)
    {
        const std::size_t n = m_bNarrow ? m_aChoices[nFirst + m_random() % nCount] : m_random();
        return rows[n % rows.size()];
    }

    // The row with what operand(0), operand(1), ... give in its places.
    template <class F>
    std::string Expand(const std::string& strRow, F operand)
    {
        const std::size_t nBar = strRow.find(")|") + 1;  // 0: no kinds
        std::string strFormula;
        int nPlace = 0;
        for (const char ch : nBar == 0 ? strRow : strRow.substr(0, nBar))
        {
            if (ch == '%')
                strFormula += operand(nPlace++);
            else if (ch == '#')
                strFormula += Kind(Split(strRow.substr(nBar + 1), ' '));
            else
                strFormula += ch;
        }
        return strFormula;
    }

    std::string Kind(const std::vector<std::string>& kinds)
    {
        return kinds[m_random() % kinds.size()];
    }

    std::mt19937 m_random;
    bool m_bNarrow = false;
    std::size_t m_aChoices[4] = {};  // of three operators and a leaf
};
