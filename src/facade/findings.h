// What a user is told about a text that was read: errors, and what its picture does not show.
#pragma once

#include <string>
#include <vector>

#include "service/form_tree.h"

// Something about a text that its picture does not show.
struct CFinding
{
    std::string strText;               // one sentence, without its final point
    std::vector<CDroppedText> places;  // in the trimmed text; none: the text alone tells it
    bool bError = false;               // the error of the report
};

// What a parse or a calculation could not use or left out of a text that was typed like this
// (UTF-8); none of a sound one.
std::vector<CFinding> FindingsOf(const CParseReport& report, const std::string& strTyped);

// In one line, separated by "; ".
std::string Joined(const std::vector<CFinding>& findings);

// The typed line and marks under the places, as two indented lines; empty without a place. Of a
// longer line, nWidth characters around the first mark.
std::string ExcerptOf(const CFinding& finding, const std::string& strTyped,
                      size_t nWidth = std::string::npos);
