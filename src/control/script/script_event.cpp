// Lines of a script read by a table of events.
#include "control/script/script_event.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace
{

// The words that an event can have behind its numbers.
constexpr unsigned s_nWordLeft = 1;
constexpr unsigned s_nWordCtrl = 2;
constexpr unsigned s_nWordShift = 4;

struct CEventRow
{
    EScriptEvent nType;
    std::string_view strName;
    int nLeastNumbers;
    int nMostNumbers;
    unsigned nWords;
};
constexpr CEventRow s_aEvents[] = {
    { EVENT_SIZE, "size", 2, 2, 0 },
    { EVENT_PAINT, "paint", 0, 0, 0 },
    { EVENT_MOVE, "move", 2, 2, s_nWordLeft },
    { EVENT_PRESS, "press", 2, 2, 0 },
    { EVENT_RELEASE, "release", 2, 2, 0 },
    { EVENT_DOUBLE, "double", 2, 2, 0 },
    { EVENT_KEY, "key", 1, 1, s_nWordCtrl | s_nWordShift },
    { EVENT_CHAR, "char", 1, 1, 0 },
    { EVENT_BLUR, "blur", 0, 0, 0 },
    { EVENT_HSCROLL, "hscroll", 1, 2, 0 },
    { EVENT_VSCROLL, "vscroll", 1, 2, 0 },
    { EVENT_WHEEL, "wheel", 1, 1, 0 },
    { EVENT_CUT, "cut", 0, 0, 0 },
    { EVENT_COPY, "copy", 0, 0, 0 },
    { EVENT_PASTE, "paste", 0, 0, 0 },
    { EVENT_ALL, "all", 0, 0, 0 },
    { EVENT_DELETE, "delete", 0, 0, 0 },
    { EVENT_READONLY, "readonly", 1, 1, 0 },
    { EVENT_CLIP, "clip", 0, 0, 0 },  // has a word of its own
    { EVENT_ENTER, "enter", 2, 2, s_nWordCtrl },
    { EVENT_OVER, "over", 2, 2, s_nWordCtrl },
    { EVENT_LEAVE, "leave", 0, 0, 0 },
    { EVENT_DROP, "drop", 2, 2, 0 },
};
static_assert(std::size(s_aEvents) == EVENT_COUNT);

struct CFlagRow
{
    unsigned nWord;
    std::string_view strName;
    bool CScriptEvent::*pFlag;
};
constexpr CFlagRow s_aFlags[] = {
    { s_nWordLeft, "left", &CScriptEvent::bLeft },
    { s_nWordCtrl, "ctrl", &CScriptEvent::bControl },
    { s_nWordShift, "shift", &CScriptEvent::bShift },
};

constexpr std::string_view s_strBlanks = " \t\r";
constexpr std::string_view s_strNoBytes = "-";

std::vector<std::string_view> Words(std::string_view strLine)
{
    std::vector<std::string_view> words;
    while (true)
    {
        strLine.remove_prefix(std::min(strLine.find_first_not_of(s_strBlanks), strLine.size()));
        if (strLine.empty())
            return words;
        const size_t nEnd = std::min(strLine.find_first_of(s_strBlanks), strLine.size());
        words.push_back(strLine.substr(0, nEnd));
        strLine.remove_prefix(nEnd);
    }
}

template <class T>
bool ParseWhole(std::string_view strWord, T& nValue, int nBase)
{
    const auto [pEnd, error] =
        std::from_chars(strWord.data(), strWord.data() + strWord.size(), nValue, nBase);
    return error == std::errc() && pEnd == strWord.data() + strWord.size();
}

bool ParseBytes(std::string_view strWord, CScriptEvent& event)
{
    if (strWord == s_strNoBytes)
        return true;
    if (strWord.size() % 2 != 0)
        return false;
    std::vector<BYTE>& bytes = event.bytes.emplace();
    for (size_t i = 0; i < strWord.size(); i += 2)
    {
        BYTE nByte = 0;
        if (!ParseWhole(strWord.substr(i, 2), nByte, 16))
            return false;
        bytes.push_back(nByte);
    }
    return true;
}

bool ParseFlag(std::string_view strWord, unsigned nAllowed, CScriptEvent& event)
{
    const auto* pRow = std::ranges::find(s_aFlags, strWord, &CFlagRow::strName);
    if (pRow == std::end(s_aFlags) || (pRow->nWord & nAllowed) == 0 || event.*pRow->pFlag)
        return false;
    event.*pRow->pFlag = true;
    return true;
}

bool ParseWords(const CEventRow& row, const std::vector<std::string_view>& words,
                CScriptEvent& event)
{
    int nNumbers = 0;
    int CScriptEvent::*const apNumbers[] = { &CScriptEvent::nFirst, &CScriptEvent::nSecond };
    size_t i = 1;
    while (i < words.size() && nNumbers < row.nMostNumbers &&
           ParseWhole(words[i], event.*apNumbers[nNumbers], 10))
    {
        nNumbers++;
        i++;
    }
    for (; i < words.size(); i++)
    {
        if (!ParseFlag(words[i], row.nWords, event))
            return false;
    }
    return nNumbers >= row.nLeastNumbers;
}

}  // namespace

std::optional<CScriptEvent> ParseScriptEvent(std::string_view strLine)
{
    const std::vector<std::string_view> words = Words(strLine);
    if (words.empty())
        return std::nullopt;
    const auto* pRow = std::ranges::find(s_aEvents, words[0], &CEventRow::strName);
    if (pRow == std::end(s_aEvents))
        return std::nullopt;
    CScriptEvent event;
    event.nType = pRow->nType;
    const bool bTaken = pRow->nType == EVENT_CLIP ? words.size() == 2 && ParseBytes(words[1], event)
                                                  : ParseWords(*pRow, words, event);
    const bool bSwitch = pRow->nType != EVENT_READONLY || (event.nFirst | 1) == 1;
    return bTaken && bSwitch ? std::optional(event) : std::nullopt;
}

bool IsSkippedScriptLine(std::string_view strLine)
{
    const size_t nFirst = strLine.find_first_not_of(s_strBlanks);
    return nFirst == std::string_view::npos || strLine[nFirst] == '#';
}
