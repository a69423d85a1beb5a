#include "control/random_script.h"

#include <iterator>
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

struct CChance
{
    EScriptEvent nType;
    int nWeight;
};
constexpr CChance s_aChances[] = {
    { EVENT_PRESS, 14 }, { EVENT_RELEASE, 8 },  { EVENT_DOUBLE, 5 },  { EVENT_MOVE, 12 },
    { EVENT_KEY, 24 },   { EVENT_CHAR, 10 },    { EVENT_SIZE, 4 },    { EVENT_PAINT, 1 },
    { EVENT_BLUR, 1 },   { EVENT_HSCROLL, 3 },  { EVENT_VSCROLL, 4 }, { EVENT_WHEEL, 2 },
    { EVENT_CUT, 3 },    { EVENT_COPY, 4 },     { EVENT_PASTE, 6 },   { EVENT_ALL, 2 },
    { EVENT_DELETE, 3 }, { EVENT_READONLY, 1 }, { EVENT_CLIP, 1 },    { EVENT_ENTER, 2 },
    { EVENT_OVER, 6 },   { EVENT_LEAVE, 1 },    { EVENT_DROP, 6 },
};

constexpr int s_anKeys[] = { VK_LEFT,  VK_RIGHT,  VK_UP,    VK_DOWN,   VK_DELETE, VK_DELETE,
                             VK_SPACE, VK_LEFT,   VK_RIGHT, VK_HOME,   VK_END,    VK_INSERT,
                             VK_PRIOR, VK_RETURN, VK_TAB,   VK_ESCAPE, 'A',       'B',
                             'C',      'V',       'X',      'Z',       '0',       '7',
                             96,       97,        107,      112,       123,       200 };
constexpr int s_anChars[] = { 'a', 'x', '1', ' ', 8, 8, 9, 13, 13, 27, 'W', '"', 228, 5, 127 };
constexpr int s_anDeltas[] = { 120, -120, 240, -360, 39, -40, 0 };

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

EScriptEvent RollType(CDice& dice)
{
    int nAll = 0;
    for (const CChance& chance : s_aChances)
        nAll += chance.nWeight;
    int nRoll = dice.Below(nAll);
    for (const CChance& chance : s_aChances)
    {
        nRoll -= chance.nWeight;
        if (nRoll < 0)
            return chance.nType;
    }
    return EVENT_PAINT;
}

// Most places lie on the formula; some stand still for a while, as a hand does.
void RollPlace(CDice& dice, CScriptEvent& event, const CScriptEvent* pLast)
{
    if (pLast != nullptr && dice.Below(2) == 0)
    {
        event.nFirst = pLast->nFirst;
        event.nSecond = pLast->nSecond;
        return;
    }
    event.nFirst = dice.Below(8) == 0 ? dice.Below(320) - 10 : dice.Below(70);
    event.nSecond = dice.Below(8) == 0 ? dice.Below(220) - 10 : dice.Below(60);
}

bool HasPlace(EScriptEvent nType)
{
    return (nType >= EVENT_MOVE && nType <= EVENT_DOUBLE) ||
           (IsDragEvent(nType) && nType != EVENT_LEAVE);
}

void RollNumbers(CDice& dice, CScriptEvent& event)
{
    switch (event.nType)
    {
        case EVENT_SIZE:
            event.nFirst = dice.Below(6) == 0 ? dice.Below(20) : 20 + dice.Below(200);
            event.nSecond = dice.Below(6) == 0 ? dice.Below(20) : 20 + dice.Below(150);
            break;
        case EVENT_KEY:
            event.nFirst = dice.One(s_anKeys);
            event.bControl = dice.Below(8) == 0;
            event.bShift = dice.Below(8) == 0;
            break;
        case EVENT_CHAR:
            event.nFirst = dice.One(s_anChars);
            break;
        // Thumbs need a mouse to have a tracking position in a real window.
        case EVENT_HSCROLL:
        case EVENT_VSCROLL:
            event.nFirst = dice.Below(9);
            if (event.nFirst == SB_THUMBPOSITION || event.nFirst == SB_THUMBTRACK)
                event.nFirst = SB_BOTTOM;
            break;
        case EVENT_WHEEL:
            event.nFirst = dice.One(s_anDeltas);
            break;
        case EVENT_READONLY:
            event.nFirst = dice.Below(4) == 0;
            break;
        case EVENT_CLIP:
            if (dice.Below(2) == 0)
                event.bytes.emplace(static_cast<size_t>(1 + dice.Below(30)), BYTE{ 1 });
            break;
        default:
            break;
    }
}

}  // namespace

CRandomScript MakeRandomScript(unsigned nSeed)
{
    CDice dice(nSeed);
    CRandomScript script{
        dice.One(s_apszTexts), dice.Below(2) == 0, 40 + dice.Below(260), 30 + dice.Below(170), {}
    };
    const int nEvents = 5 + dice.Below(60);
    const CScriptEvent* pLast = nullptr;
    script.events.reserve(static_cast<size_t>(nEvents));
    for (int i = 0; i < nEvents; i++)
    {
        CScriptEvent event;
        event.nType = RollType(dice);
        RollNumbers(dice, event);
        event.bLeft = event.nType == EVENT_MOVE && dice.Below(2) == 0;
        if (event.nType == EVENT_ENTER || event.nType == EVENT_OVER)
            event.bControl = dice.Below(3) == 0;
        if (HasPlace(event.nType))
            RollPlace(dice, event, pLast);
        script.events.push_back(event);
        if (HasPlace(event.nType))
            pLast = &script.events.back();
    }
    return script;
}

std::string ScriptText(const std::vector<CScriptEvent>& events)
{
    std::string strText;
    for (const CScriptEvent& event : events)
        strText += ScriptEventText(event) + "\n";
    return strText;
}
