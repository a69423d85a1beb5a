// The manual page in roff, written from the tables of the commands.
#include <sstream>

#include "words/generate.h"

namespace
{
// Text as the formatter has to see it: no hyphens, no requests, no escapes of its own.
std::string Roff(const std::string& strText)
{
    std::string strOut;
    bool bLineStart = true;
    for (char ch : strText)
    {
        if (bLineStart && (ch == '.' || ch == '\''))
            strOut += "\\&";
        if (ch == '-')
            strOut += "\\-";
        else if (ch == '\\')
            strOut += "\\e";
        else if (ch == '\'')
            strOut += "\\(aq";
        else if (ch == '^')
            strOut += "\\(ha";
        else if (ch == '~')
            strOut += "\\(ti";
        else
            strOut += ch;
        bLineStart = ch == '\n';
    }
    return strOut;
}

std::string Paragraphs(const char* pszText)
{
    std::istringstream stream(pszText);
    std::string strLine;
    std::string strOut;
    while (std::getline(stream, strLine))
        strOut += (strOut.empty() ? "" : ".PP\n") + Roff(strLine) + "\n";
    return strOut;
}

void AppendCommand(std::string& strPage, const CCommand& command)
{
    strPage += ".SS mivora " + Roff(UsageOf(command)) + "\n";
    strPage += Paragraphs(command.pszDescription);
    for (EOption nId : command.aOptions)
    {
        const COption& option = OptionOf(nId);
        strPage += ".TP\n.B " + Roff(OptionForms(option)) + "\n" + Roff(option.pszHelp) + ".\n";
    }
}
}  // namespace

std::string ManPage()
{
    std::string strPage =
        ".TH MIVORA 1 \"\" \"Mivora " MIVORA_VERSION
        "\" \"User Commands\"\n"
        ".SH NAME\n"
        "mivora \\- mathematical formulas, from one line of text to a picture\n"
        ".SH SYNOPSIS\n"
        ".B mivora\n.I COMMAND\n[\\fIOPTION\\fR]... [\\fITEXT\\fR or \\fIFILE\\fR]\n"
        ".br\n.B mivora\n.I COMMAND\n.B \\-\\-help\n"
        ".br\n.B mivora \\-\\-version\n"
        ".SH COMMANDS\n";
    for (const CCommand& command : Commands())
        AppendCommand(strPage, command);
    for (const CManualSection& section : ManualSections())
        strPage += std::string(".SH ") + section.pszTitle + "\n" + Paragraphs(section.pszText);
    strPage += ".SH EXAMPLES\n";
    for (const CCommand& command : Commands())
    {
        for (const CExample& example : command.aExamples)
            strPage += ".TP\n.B " + Roff(example.pszCommand) + "\n" + Roff(example.pszWhat) + ".\n";
    }
    return strPage;
}
