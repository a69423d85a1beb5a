#include "control/random_script.h"

#include <random>

#include "platform/base/input_codes.h"

namespace
{

constexpr const char* s_apszTexts[] = {
    "a+b",
    "a/b+c",
    "sum(i,i=1,n)",
    "(a+b)/sqr(x)=sum(i,i=1,n)",
    "x^2+y_1",
    "int(f(x),x=a,b)",
    "2",
    "",
    "sin(x)*cos(y)/(a/(b/c))",
    "greek a<=b",
    "-x",
    "root(3,a)+((a/b)/(c/d))",
};

// Lines by their weight. A capital stands for what is thrown: a Place, a Size, a Key, a Character,
// a code of a scroll Bar, a turn of the Wheel, Data.
struct CChance
{
    const char* pszLine;
    int nWeight;
};
constexpr CChance s_aChances[] = {
    { "press P", 28 },   { "release P", 16 },   { "double P", 10 },
    { "move P", 12 },    { "move P left", 12 }, { "key K", 37 },
    { "key K ctrl", 5 }, { "key K shift", 5 },  { "key K ctrl shift", 1 },
    { "char C", 20 },    { "size S", 8 },       { "paint", 2 },
    { "blur", 2 },       { "hscroll B 0", 6 },  { "vscroll B 0", 8 },
    { "wheel W", 4 },    { "cut", 6 },          { "copy", 8 },
    { "paste", 12 },     { "all", 4 },          { "delete", 6 },
    { "readonly 0", 2 }, { "readonly 1", 1 },   { "clip -", 1 },
    { "clip D", 1 },     { "enter P", 3 },      { "enter P ctrl", 1 },
    { "over P", 8 },     { "over P ctrl", 4 },  { "leave", 2 },
    { "drop P", 12 },
};

constexpr int s_anKeys[] = { VK_LEFT,  VK_RIGHT,  VK_UP,    VK_DOWN,   VK_DELETE, VK_DELETE,
                             VK_SPACE, VK_LEFT,   VK_RIGHT, VK_HOME,   VK_END,    VK_INSERT,
                             VK_PRIOR, VK_RETURN, VK_TAB,   VK_ESCAPE, 'A',       'B',
                             'C',      'V',       'X',      'Z',       '0',       '7',
                             96,       97,        107,      112,       123,       200 };
constexpr int s_anChars[] = { 'a', 'x', '1', ' ', 8, 8, 9, 13, 13, 27, 'W', '"', 228, 5, 127 };
constexpr int s_anDeltas[] = { 120, -120, 240, -360, 39, -40, 0 };
// Without thumbs, which need a mouse to have a tracking position in a real window.
constexpr UINT s_anBarCodes[] = { SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_TOP, SB_BOTTOM,
                                  SB_BOTTOM, SB_BOTTOM,   8 };

// Not the library's distributions: they differ between run-time libraries.
class CDice
{
public:
    explicit CDice(unsigned nSeed) : m_Engine(nSeed) {}
    int Below(int nEnd) { return static_cast<int>(m_Engine() % static_cast<unsigned>(nEnd)); }
    template <class T, size_t N>
    T One(const T (&values)[N])
    {
        return values[Below(static_cast<int>(N))];
    }

private:
    std::mt19937 m_Engine;
};

// Most places lie on the formula; some stand still for a while, as a hand does.
std::string RollPlace(CDice& dice, const std::string& strLast)
{
    if (!strLast.empty() && dice.Below(2) == 0)
        return strLast;
    const int x = dice.Below(8) == 0 ? dice.Below(320) - 10 : dice.Below(70);
    const int y = dice.Below(8) == 0 ? dice.Below(220) - 10 : dice.Below(60);
    return std::to_string(x) + ' ' + std::to_string(y);
}

std::string RollBytes(CDice& dice)
{
    std::string strBytes;
    for (int nBytes = 1 + dice.Below(30); nBytes > 0; nBytes--)
        strBytes += "01";
    return strBytes;
}

std::string RollSide(CDice& dice, int nMost)
{
    return std::to_string(dice.Below(6) == 0 ? dice.Below(20) : 20 + dice.Below(nMost));
}

const char* RollLine(CDice& dice)
{
    int nAll = 0;
    for (const CChance& chance : s_aChances)
        nAll += chance.nWeight;
    int nRoll = dice.Below(nAll);
    const CChance* pChance = s_aChances;
    for (; nRoll >= pChance->nWeight; pChance++)
        nRoll -= pChance->nWeight;
    return pChance->pszLine;
}

// What a letter of a line stands for, or the letter.
std::string Roll(CDice& dice, char ch, std::string& strPlace)
{
    switch (ch)
    {
        case 'P':
            return strPlace = RollPlace(dice, strPlace);
        case 'S':
            return RollSide(dice, 200) + ' ' + RollSide(dice, 150);
        case 'K':
            return std::to_string(dice.One(s_anKeys));
        case 'C':
            return std::to_string(dice.One(s_anChars));
        case 'B':
            return std::to_string(dice.One(s_anBarCodes));
        case 'W':
            return std::to_string(dice.One(s_anDeltas));
        case 'D':
            return RollBytes(dice);
        default:
            return { ch };
    }
}

}  // namespace

CRandomScript MakeRandomScript(unsigned nSeed)
{
    CDice dice(nSeed);
    CRandomScript script{ dice.One(s_apszTexts), dice.Below(2) == 0, {}, {} };
    script.size = CSize(40 + dice.Below(260), 30 + dice.Below(170));
    std::string strPlace;
    for (int nEvents = 5 + dice.Below(60); nEvents > 0; nEvents--)
    {
        for (const char* pch = RollLine(dice); *pch != '\0'; pch++)
            script.strLines += Roll(dice, *pch, strPlace);
        script.strLines += '\n';
    }
    return script;
}
