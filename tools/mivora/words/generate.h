// Texts made from the command table.
#pragma once

#include <string>

#include "words/command_table.h"

// Help for the terminal, at most 80 columns wide.
std::string ProgramHelp();
std::string CommandHelp(const CCommand& command);

// "-o, --output FILE", and "-o FILE" in short.
std::string OptionForms(const COption& option);
// The line of use, behind "mivora": "render [OPTION]... TEXT -o FILE".
std::string UsageOf(const CCommand& command);

// A page for man(1).
std::string ManPage();

// Completions, to be sourced by the shell or put into its search path.
std::string BashCompletion();
std::string ZshCompletion();
