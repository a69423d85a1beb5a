// Why something that a user asked for was not done.
#pragma once

#include <cstddef>
#include <string>

// Thrown by value: one line for the user, in UTF-8.
struct CFailure
{
    std::string strMessage;
    std::size_t nPosition = 0;  // in the text that was typed, from 1; 0: in none
};
