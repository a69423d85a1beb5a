// Help texts, written from the tables of the commands.
#include <cstring>
#include <sstream>

#include "words/generate.h"

namespace
{
constexpr size_t s_nWidth = 79;       // columns
constexpr size_t s_nHelpColumn = 26;  // where the text of an option begins
constexpr size_t s_nNameColumn = 12;  // where the summary of a command begins

// Breaks a paragraph at blanks; the first line goes on at nColumn, the others begin at nIndent.
void AppendWrapped(std::string& strOut, const std::string& strText, size_t nColumn, size_t nIndent)
{
    std::istringstream words(strText);
    std::string strWord;
    bool bFirst = true;
    while (words >> strWord)
    {
        if (!bFirst && nColumn + 1 + strWord.size() > s_nWidth)
        {
            strOut += '\n' + std::string(nIndent, ' ');
            nColumn = nIndent;
        }
        else if (!bFirst)
        {
            strOut += ' ';
            ++nColumn;
        }
        strOut += strWord;
        nColumn += strWord.size();
        bFirst = false;
    }
    strOut += '\n';
}

void AppendParagraphs(std::string& strOut, const char* pszText, size_t nIndent)
{
    std::istringstream paragraphs(pszText);
    std::string strParagraph;
    while (std::getline(paragraphs, strParagraph))
    {
        strOut += std::string(nIndent, ' ');
        AppendWrapped(strOut, strParagraph, nIndent, nIndent);
    }
}

// "  name   text", the text on the next line if the name is too long.
void AppendItem(std::string& strOut, const std::string& strName, const char* pszText,
                size_t nColumn)
{
    std::string strHead = "  " + strName;
    if (strHead.size() + 2 > nColumn)
        strHead += '\n' + std::string(nColumn, ' ');
    else
        strHead.resize(nColumn, ' ');
    strOut += strHead;
    AppendWrapped(strOut, pszText, nColumn, nColumn);
}

bool IsRequired(const CCommand& command, EOption nId)
{
    for (EOption nRequired : command.aRequired)
    {
        if (nRequired == nId)
            return true;
    }
    return false;
}
}  // namespace

std::string OptionForms(const COption& option)
{
    std::string strForms;
    if (option.pszShort != nullptr)
        strForms = std::string("-") + option.pszShort + ", ";
    strForms += std::string("--") + option.pszLong;
    if (option.pszValue != nullptr)
        strForms += std::string(" ") + option.pszValue;
    return strForms;
}

std::string UsageOf(const CCommand& command)
{
    std::string strUsage = command.pszName;
    for (EOption nId : command.aRequired)
    {
        const COption& option = OptionOf(nId);
        strUsage += option.pszShort != nullptr ? std::string(" -") + option.pszShort
                                               : std::string(" --") + option.pszLong;
        strUsage += std::string(" ") + option.pszValue;
    }
    strUsage += " [OPTION]...";
    bool bLines = false;
    for (EOption nId : command.aOptions)
        bLines = bLines || (nId == OPT_LINES && !IsRequired(command, nId));
    if (command.nOperand != OPERAND_NONE)
        strUsage += std::string(" ") + command.pszOperand;
    if (bLines)
        strUsage += " | --lines";
    for (EOption nId : command.aOptions)
        strUsage += nId == OPT_FML ? " | --fml FILE" : "";
    return strUsage;
}

std::string ProgramHelp()
{
    std::string strHelp =
        "Mathematical formulas: from one line of text to a picture.\n\n"
        "Usage: mivora COMMAND [OPTION]... [TEXT or FILE]\n"
        "       mivora COMMAND --help\n"
        "       mivora --version\n\n"
        "Commands:\n";
    for (const CCommand& command : Commands())
        AppendItem(strHelp, command.pszName, command.pszSummary, s_nNameColumn);
    for (const CManualSection& section : ManualSections())
    {
        strHelp += std::string("\n") + section.pszTitle + "\n";
        AppendParagraphs(strHelp, section.pszText, 2);
    }
    return strHelp;
}

std::string CommandHelp(const CCommand& command)
{
    std::string strHelp = "Usage: mivora " + UsageOf(command) + "\n\n";
    AppendParagraphs(strHelp, command.pszDescription, 0);
    strHelp += "\nOptions:\n";
    for (EOption nId : command.aOptions)
        AppendItem(strHelp, OptionForms(OptionOf(nId)), OptionOf(nId).pszHelp, s_nHelpColumn);
    if (!command.aExamples.empty())
        strHelp += "\nExamples:\n";
    for (const CExample& example : command.aExamples)
        strHelp += std::string("  ") + example.pszCommand + "\n      " + example.pszWhat + "\n";
    return strHelp;
}
