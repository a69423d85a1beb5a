// A formula and a script for the control: the first line is a byte of choices and the text, each
// further one a gesture. What must hold is checked after every event.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "control/control_driver.h"
#include "quiet_host.h"

namespace
{
constexpr size_t s_nMaxText = 300;
constexpr int s_nMaxEvents = 200;
constexpr int s_nMaxSide = 400;  // larger windows are the same, and slower

std::string_view TakeLine(std::string_view& strLines)
{
    const size_t nEnd = std::min(strLines.find('\n'), strLines.size());
    const std::string_view strLine = strLines.substr(0, nEnd);
    strLines.remove_prefix(std::min(nEnd + 1, strLines.size()));
    return strLine;
}

std::optional<CScriptEvent> NextEvent(std::string_view& strLines)
{
    while (!strLines.empty())
    {
        const auto event = ParseScriptEvent(TakeLine(strLines));
        if (event && (event->nType != EVENT_SIZE ||
                      (event->nFirst <= s_nMaxSide && event->nSecond <= s_nMaxSide)))
            return event;
    }
    return std::nullopt;
}

void Play(const std::string& strText, std::string_view strScript)
{
    CControlDriver driver(strText.c_str());
    int nEvents = 0;
    CScriptPlayer(
        driver.m_Scripted,
        [&]() -> std::optional<CScriptEvent>
        { return nEvents++ < s_nMaxEvents ? NextEvent(strScript) : std::nullopt; },
        [&](const std::string& strState)
        {
            const std::string strBroken = BrokenRule(driver);
            if (strBroken.empty())
                return;
            std::fprintf(stderr, "%s\n%s\n", strBroken.c_str(), strState.c_str());
            std::abort();
        })
        .Play();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    std::string_view strLines(reinterpret_cast<const char*>(pData), nSize);
    std::string_view strHead = TakeLine(strLines);
    if (strHead.empty() || strHead.size() > s_nMaxText)
        return 0;
    const CBoxedPlaceholders boxed(strHead[0] & 1);
    Play(std::string(strHead.substr(1)), strLines);
    return 0;
}
