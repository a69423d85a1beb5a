// What is told to the user on standard error.
#pragma once

#include <string>
#include <vector>

#include "service/form_tree.h"

// An operation that failed: one line for the user, exit status 1.
struct CFailure
{
    std::string strMessage;
};

// "mivora: ..." on standard error, control characters made harmless.
void Tell(const std::string& strMessage);

// From now on the message boxes of the library are kept instead of shown.
void KeepLibraryMessages();
// Those that came since the last call, as UTF-8, separated by "; ".
std::string TakeLibraryMessages();

// The system's words for the last error of an operation on a file.
std::string LastErrorText();

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

// A warning, with the typed text and marks under the places on two more lines.
void Warn(const CFinding& finding, const std::string& strTyped);
// Warns of all that there is; false if that is nothing.
bool WarnOfFindings(const CParseReport& report, const std::string& strTyped);
