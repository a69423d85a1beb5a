// Turns positions of the parser into sentences and marks under the typed line.
#include "facade/findings.h"

#include <algorithm>
#include <cstring>

#include "platform/base/code_page.h"

namespace
{
constexpr char s_szErrorAt[] = "Error at Position ";  // as the parser begins

// White space that the parser trims.
bool IsBlank(char ch)
{
    return std::strchr(" \t\n\v\f\r", ch) != nullptr && ch != '\0';
}

// Offset of the nIndex-th character (from 0); the length of the text if there is none.
size_t OffsetOf(const std::string& strText, size_t nIndex)
{
    for (size_t n = 0; n < strText.size(); ++n)
    {
        if (!IsUtf8Tail(strText[n]) && nIndex-- == 0)
            return n;
    }
    return strText.size();
}

size_t CountOf(const std::string& strText)
{
    return static_cast<size_t>(
        std::count_if(strText.begin(), strText.end(), [](char ch) { return !IsUtf8Tail(ch); }));
}

// Blanks that the parser trims in front.
size_t LeadingBlanks(const std::string& strTyped)
{
    return static_cast<size_t>(std::find_if_not(strTyped.begin(), strTyped.end(), IsBlank) -
                               strTyped.begin());
}

// Characters of the trimmed text.
size_t TrimmedLength(const std::string& strTyped)
{
    size_t nEnd = strTyped.size();
    while (nEnd > 0 && IsBlank(strTyped[nEnd - 1]))
        --nEnd;
    const size_t nStart = std::min(LeadingBlanks(strTyped), nEnd);
    return CountOf(strTyped.substr(nStart, nEnd - nStart));
}

// Marks under the characters of a line whose first one has an index (from 0) in the trimmed text.
// Tabs stay, so that the marks stand under their characters.
std::string MarksUnder(const std::string& strLine, long nIndex,
                       const std::vector<CDroppedText>& places)
{
    std::string strMarks;
    for (char ch : strLine)
    {
        if (IsUtf8Tail(ch))
            continue;
        const long nPosition = ++nIndex;
        const bool bMarked = std::any_of(places.begin(), places.end(),
                                         [=](const CDroppedText& place) {
                                             return nPosition >= place.nPosition &&
                                                    nPosition < place.nPosition + place.nLength;
                                         });
        strMarks += bMarked ? '^' : ch == '\t' ? '\t' : ' ';
    }
    return strMarks.substr(0, strMarks.rfind('^') + 1);
}

bool IsControl(char ch)
{
    const auto nCode = static_cast<unsigned char>(ch);
    return nCode < 0x20 || nCode == 0x7F;
}

std::string Harmless(std::string strText)
{
    for (char& ch : strText)
    {
        if (IsControl(ch) && ch != '\t')
            ch = ' ';
    }
    return strText;
}

// A line and the marks under it, cut to so many characters around the first mark.
std::string Window(const std::string& strLine, const std::string& strMarks, size_t nWidth)
{
    const size_t nMark = strMarks.find('^');
    const size_t nFirst = nMark > nWidth / 2 ? nMark - nWidth / 2 : 0;
    const size_t nStart = OffsetOf(strLine, nFirst);
    const size_t nEnd = OffsetOf(strLine, nFirst + nWidth);
    return "  " + strLine.substr(nStart, nEnd - nStart) + "\n  " +
           (nFirst < strMarks.size() ? strMarks.substr(nFirst, nWidth) : "");
}

// A keyword that fails goes back from its place, perhaps to 0 or around to a number behind the
// text.
CFinding ErrorOf(const CParseReport& report, size_t nLength)
{
    CFinding finding{ report.strMessage.GetString(), {}, true };
    if (report.nPosition != 0 && report.nPosition <= nLength)
        finding.places.push_back({ report.nPosition, 1 });
    else if (finding.strText.starts_with(s_szErrorAt))
        finding.strText = "Error near the beginning!";
    return finding;
}

std::string PlaceText(const CDroppedText& place)
{
    const std::string strPosition = std::to_string(place.nPosition);
    return place.nLength == 1
               ? strPosition
               : strPosition + " to " + std::to_string(place.nPosition + place.nLength - 1);
}

CFinding DroppedOf(const std::vector<CDroppedText>& places)
{
    std::string strPlaces;
    for (const CDroppedText& place : places)
        strPlaces += (strPlaces.empty() ? "" : ", ") + PlaceText(place);
    const bool bOne = places.size() == 1 && places[0].nLength == 1;
    return { std::string("a part of the text is not in the picture (") +
                 (bOne ? "position " : "positions ") + strPlaces + ")",
             places };
}
}  // namespace

std::vector<CFinding> FindingsOf(const CParseReport& report, const std::string& strTyped)
{
    std::vector<CFinding> findings;
    if (report.HasError())
        findings.push_back(ErrorOf(report, TrimmedLength(strTyped)));
    std::vector<CDroppedText> places = report.dropped;
    if (const size_t nNul = strTyped.find('\0'); nNul != std::string::npos)
    {
        const size_t nStart = LeadingBlanks(strTyped);
        const size_t nPosition = CountOf(strTyped.substr(nStart, nNul - nStart)) + 1;
        findings.push_back({ "the text ends at a NUL (position " + std::to_string(nPosition) + ")",
                             { { static_cast<WORD>(nPosition), 1 } } });
        std::erase_if(places,
                      [=](const CDroppedText& place) { return place.nPosition == nPosition; });
    }
    if (!places.empty())
        findings.push_back(DroppedOf(places));
    return findings;
}

std::string Joined(const std::vector<CFinding>& findings)
{
    std::string strText;
    for (const CFinding& finding : findings)
    {
        strText += (strText.empty() ? "" : "; ") + finding.strText;
    }
    return strText;
}

std::string ExcerptOf(const CFinding& finding, const std::string& strTyped, size_t nWidth)
{
    if (finding.places.empty())
        return {};
    // Of a text with line breaks, the line in question.
    const size_t nBlanks = LeadingBlanks(strTyped);
    const size_t nPlace = OffsetOf(strTyped, nBlanks + finding.places[0].nPosition - 1);
    const size_t nStart = nPlace == 0 ? 0 : strTyped.rfind('\n', nPlace - 1) + 1;
    const std::string strLine = strTyped.substr(nStart, strTyped.find('\n', nPlace) - nStart);
    const long nIndex =
        static_cast<long>(CountOf(strTyped.substr(0, nStart))) - static_cast<long>(nBlanks);
    return Window(Harmless(strLine), MarksUnder(strLine + ' ', nIndex, finding.places), nWidth);
}
