// Small services of the system that the commands need.
#pragma once

#include <string>

// The system's words for the number of an error, as UTF-8, without the final point.
std::string SystemErrorText(long nError);

// Makes a folder, and those above it, if they are not there yet. Throws CFailure.
void MakeFolder(const std::string& strPath);

// Whether standard error is a terminal, on which a line can be written again and wiped ("\033[K").
bool IsErrorTerminal();
