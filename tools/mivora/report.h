// What is told to the user on standard error.
#pragma once

#include <string>

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

// The message of a parse with, on two more lines, the typed text (UTF-8) and a caret under the
// place, if it lies in the text.
std::string SyntaxWarning(const CParseReport& report, const std::string& strTyped);
