// The program behind the entry point that each system has.
#pragma once

// Runs the command that the words (UTF-8, without the program's name) ask for. Gives the exit
// status.
int RunMivora(int nWords, const char* const* apszWords);
