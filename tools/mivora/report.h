// What is told to the user on standard error.
#pragma once

#include <string>

#include "facade/failure.h"
#include "facade/findings.h"

// Why something was not done, for a user; called while what was thrown is handled. What no part of
// the library throws goes on.
std::string CaughtReason();

// "mivora: ..." on standard error, control characters made harmless.
void Tell(const std::string& strMessage);

// From now on the message boxes of the library are kept instead of shown.
void KeepLibraryMessages();
// Those that came since the last call, as UTF-8, separated by "; ".
std::string TakeLibraryMessages();

// The system's words for the last error of an operation on a file.
std::string LastErrorText();

// A warning, with the typed text and marks under the places on two more lines.
void Warn(const CFinding& finding, const std::string& strTyped);
// Warns of all that there is; false if that is nothing.
bool WarnOfFindings(const CParseReport& report, const std::string& strTyped);
