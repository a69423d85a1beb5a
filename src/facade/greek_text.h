// Greek letters, which the language of formulas writes with Latin ones: "greek a".
#pragma once

#include <string>

// The letter of the face "Symbol" that shows a Greek one; 0 if it is none.
char SymbolLetter(char32_t nCharacter);

// A text (UTF-8) with its Greek letters as the language writes them. Throws CFailure where one
// stands so close to others that they would change too.
std::string WithGreekWritten(const std::string& strTyped);
