// Random formulas: source texts, and sketches of trees that only stored formulas have. Two that
// differ are shown differently: what looks the same by design is made in one way only. The same
// seed gives the same formulas.
#pragma once

#include <algorithm>
#include <iterator>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

class CRandomFormula
{
public:
    using CRows = std::span<const std::string_view>;
    struct CLanguage
    {
        CRows aRows;
        CRows aLeaves;
    };
    static const CLanguage TEXTS;     // source texts
    static const CLanguage SKETCHES;  // in the form of examples/gallery/sketch.h

    explicit CRandomFormula(unsigned nSeed) : m_random(nSeed) {}

    // A formula with at most so many levels of operators.
    std::string Make(const CLanguage& language, int nLevels)
    {
        if (nLevels == 0 || m_random() % 5 == 0)
            return std::string(Pick(language.aLeaves, 3, 1));
        return Expand(Pick(language.aRows, 0, 3), [&](int) { return Make(language, nLevels - 1); });
    }

    // From now on formulas are made of three operators and one leaf, chosen anew: they are more
    // alike than those of all operators.
    void Narrow()
    {
        for (std::size_t& nChoice : m_aChoices)
            nChoice = m_random();
        m_bNarrow = true;
    }

    // Every operator in every place of every other one, with one leaf everywhere else.
    std::vector<std::string> Pairs(const CLanguage& language, const std::string& strLeaf)
    {
        std::vector<std::string> pairs;
        for (const std::string_view outer : language.aRows)
        {
            for (int nPlace = 0; nPlace < std::count(outer.begin(), outer.end(), '%'); ++nPlace)
            {
                for (const std::string_view inner : language.aRows)
                {
                    const std::string strInner = Expand(inner, [&](int) { return strLeaf; });
                    pairs.push_back(
                        Expand(outer, [&](int n) { return n == nPlace ? strInner : strLeaf; }));
                }
            }
        }
        return pairs;
    }

private:
    // % stands for another formula, # for one of the kinds behind the bar.
    static constexpr std::string_view s_aTexts[] = {
        "%+%",
        "%-%",
        "(%)-(%)",
        "(%)*(%)",
        "%*%",
        "%**%",
        "(%)/(%)",
        "%=%",
        "%<=%",
        "(%)!=(%)",
        "(%)^(%)",
        "(%)~(%)",
        "(%)^2",
        "x^(%)",
        "-(%)",
        "(%)!",
        "sqr(%)",
        "nsqr(%,3)",
        "nsqr(%,n+1)",
        "abs(%)",
        "sin(%)",
        "exp(%)",
        "ln(%)",
        "arcosh(%)",
        "sum(%,i=1,n)",
        "sum(%,%,%)",
        "int(%,0,%)",
        "int(%)",
        "mark(x,%,)",
        "mark(x,%,%)",
        "mark((%)/(%),%,2)",
        "f(%)",
        "f(%,%)",
        "brace([,],%)",
        "brace(|,,%)",
        "brace(<,>,%)",
        "greek a^(%)",
    };
    static constexpr std::string_view s_aTextLeaves[] = {
        "a",       "b",       "x",       "A",  "velocity",       "plus",     "2", "3", "1.25",
        "greek a", "greek G", "greek J", "x'", "str(two words)", "str(end)", "x", "y",
    };
    static constexpr std::string_view s_aSketches[] = {
        "(PLUS % %)",
        "(PLUS - %)",
        "(PLUS % -)",
        "(MINUS % %)",
        "(MINUS - %)",
        "(TIMES % %)",
        "(TIMES \"\" % %)",
        "(CROSS % %)",
        "(EQUATION[#] % %)|0 1 5 6 8 19",
        "(DIVISION[#] % %)|0 1 2",
        "(ROOT %)",
        "(NTHROOT % %)",
        "(NTHROOT % 3)",
        "(POWERTO % %)",
        "(POWERTO % 2)",
        "(POWERTO - %)",
        "(BRACE[#] %)|0 1 3 4 6 7 8 9 10 11 12 16 17 18 19 23 24",
        "(PARTDERIVE % %)",
        "(DERIVE % %)",
        "(DERIVE x %)",
        "(SUM (RANGE % %) %)",
        "(SUM (RANGE n (EQUATION i %)) %)",
        "(SUM (RANGE - %) %)",
        "(SUM (RANGE % -) %)",
        "(SUM - %)",
        "(PROD (RANGE % %) %)",
        "(INTEGRAL[#] (RANGE % %) %)|0 1 3 6",
        "(INTEGRAL (RANGE b a) (INTEGRAND % %))",
        "(INTEGRAND % %)",
        "(RANGE % %)",
        "(FUNC[#] - %)|0 7 18 20 21",
        "(FUNC[#] - (BRACE %))|0 8 17",
        "(USERFUNC \"g\" - %)",
        "(EXTFUNC \"sgn\" - (BRACE %))",
        "(VARIABLE \"f\" - (BRACE %))",
        "(VARIABLE \",\" % %)",
        "(VARIABLE \"x\" - (INDEX % %))",
        "(VARIABLE \"x\" - (INDEX % -))",
        "(VARIABLE \"x\" - (INDEX - %))",
        "(BRACE % (INDEX - %))",
        "(VECTOR[#] %)|0 1 2 3 4 5 6 7",
        "(LIMES % %)",
        "(LIMES (OPERATOR x %) %)",
        "(OPERATOR % %)",
        "(ARROWS[#] % %)|0 5 11",
        "(BINOMIAL % %)",
        "(MATRIX (ELEMENT % %) (ELEMENT % %))",
        "(MATRIX (ELEMENT % x) (ROOT %))",
        "(LINE (ROOT %) (ELEMENT % a))",
        "(NABLA - %)",
        "(LAPLACE - %)",
        "(STANDARD \"!\" % -)",
    };
    static constexpr std::string_view s_aSketchLeaves[] = {
        "a",
        "b",
        "f",
        "x",
        "plus",
        "2",
        "3",
        "(INFINITY)",
        "(PLANCK)",
        "(LAMBDA)",
        "(NABLA)",
        "(LABEL)",
        "(PLACEHOLDER)",
        "(USERFUNC \"g\")",
        "(CONSTANT \"two words\")",
    };

    // When formulas are narrow, one of nCount choices from nFirst on.
    std::string_view Pick(CRows aRows, std::size_t nFirst, std::size_t nCount)
    {
        return aRows[(m_bNarrow ? m_aChoices[nFirst + m_random() % nCount] : m_random()) %
                     aRows.size()];
    }

    // The row with what operand(0), operand(1), ... give in its places.
    template <class F>
    std::string Expand(std::string_view row, F operand)
    {
        const std::size_t nBar = row.starts_with("brace") ? row.npos : row.find('|');
        std::string strFormula;
        int nPlace = 0;
        for (const char ch : row.substr(0, nBar))
        {
            if (ch == '%')
                strFormula += operand(nPlace++);
            else if (ch == '#')
                strFormula += Kind(std::string(row.substr(nBar + 1)));
            else
                strFormula += ch;
        }
        return strFormula;
    }

    std::string Kind(const std::string& strKinds)
    {
        std::istringstream in(strKinds);
        const std::vector<std::string> kinds{ std::istream_iterator<std::string>(in), {} };
        return kinds[m_random() % kinds.size()];
    }

    std::mt19937 m_random;
    bool m_bNarrow = false;
    std::size_t m_aChoices[4] = {};  // of three operators and a leaf
};

inline const CRandomFormula::CLanguage CRandomFormula::TEXTS = { s_aTexts, s_aTextLeaves };
inline const CRandomFormula::CLanguage CRandomFormula::SKETCHES = { s_aSketches, s_aSketchLeaves };
