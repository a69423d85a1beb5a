// Scripts for bash and zsh, written from the tables of the commands.
#include "words/generate.h"

namespace
{
std::string LongName(const COption& option)
{
    return std::string("--") + option.pszLong;
}

// All spellings of an option, separated by strBetween.
std::string Names(const COption& option, const char* pszBetween)
{
    std::string strNames;
    if (option.pszShort != nullptr)
        strNames = std::string("-") + option.pszShort + pszBetween;
    return strNames + LongName(option);
}

// What compgen is asked for the value of an option; empty if the shell cannot help.
std::string BashValue(const COption& option)
{
    switch (option.nValue)
    {
        case VALUE_FILE:
            return "-f";
        case VALUE_FOLDER:
            return "-d";
        case VALUE_CHOICE:
            return "-W '" + option.pfnChoices() + "'";
        default:
            return {};
    }
}

// Only names of files are to be treated as such: a folder of the name of a command does not make
// that command a folder.
std::string BashAnswer(const std::string& strAsk, bool bFiles)
{
    return std::string(bFiles ? "compopt -o filenames; " : "") +
           "mapfile -t COMPREPLY < <(compgen " + strAsk + " -- \"$word\")";
}

// The cases for the words behind which a value stands.
std::string BashValueCases()
{
    std::string strCases;
    for (int n = 0; n < OPT_COUNT; ++n)
    {
        const COption& option = OptionOf(static_cast<EOption>(n));
        if (option.nValue == VALUE_NONE)
            continue;
        const std::string strAsk = BashValue(option);
        strCases += "        " + Names(option, "|") + ")\n";
        if (!strAsk.empty())
            strCases += "            " + BashAnswer(strAsk, option.nValue != VALUE_CHOICE) + "\n";
        strCases += "            return ;;\n";
    }
    return strCases;
}

std::string BashCommandCases()
{
    std::string strCases;
    for (const CCommand& command : Commands())
    {
        strCases += std::string("        ") + command.pszName + ") options='";
        for (EOption nId : command.aOptions)
            strCases += Names(OptionOf(nId), " ") + (nId == command.aOptions.back() ? "" : " ");
        strCases +=
            std::string("'; files=") + (command.nOperand == OPERAND_FILE ? "yes" : "no") + " ;;\n";
    }
    return strCases;
}

std::string CommandNames()
{
    std::string strNames;
    for (const CCommand& command : Commands())
        strNames += std::string(strNames.empty() ? "" : " ") + command.pszName;
    return strNames;
}

// Text inside single quotes and the brackets of an option's description.
std::string ZshText(const char* pszText)
{
    std::string strOut;
    for (const char* p = pszText; *p != '\0'; ++p)
    {
        if (*p == '\'')
            strOut += "'\\''";
        else if (*p == '[' || *p == ']' || *p == ':' || *p == '\\')
            strOut += std::string("\\") + *p;
        else
            strOut += *p;
    }
    return strOut;
}

std::string ZshValue(const COption& option)
{
    if (option.nValue == VALUE_NONE)
        return {};
    std::string strSpec = std::string(":") + option.pszValue + ":";
    if (option.nValue == VALUE_FILE)
        strSpec += "_files";
    if (option.nValue == VALUE_FOLDER)
        strSpec += "_files -/";
    if (option.nValue == VALUE_CHOICE)
        strSpec += "(" + option.pfnChoices() + ")";
    return strSpec;
}

// One argument of _arguments.
std::string ZshSpec(const COption& option)
{
    const std::string strTail = "[" + ZshText(option.pszHelp) + "]" + ZshValue(option) + "'";
    if (option.pszShort == nullptr)
        return "'" + LongName(option) + strTail;
    return "'(" + Names(option, " ") + ")'{" + Names(option, ",") + "}'" + strTail;
}

std::string ZshCommandCases()
{
    std::string strCases;
    for (const CCommand& command : Commands())
    {
        strCases += std::string("        ") + command.pszName + ")\n            _arguments -s";
        for (EOption nId : command.aOptions)
            strCases += " \\\n                " + ZshSpec(OptionOf(nId));
        if (command.nOperand == OPERAND_FILE)
            strCases += std::string(" \\\n                '1:") + command.pszOperand + ":_files'";
        if (command.nOperand == OPERAND_TEXT)
            strCases += std::string(" \\\n                '1:") + command.pszOperand + ":'";
        strCases += " ;;\n";
    }
    return strCases;
}
}  // namespace

std::string BashCompletion()
{
    return "# Completion of mivora for bash.\n"
           "_mivora()\n"
           "{\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
           "    local options='' files=no\n"
           "    COMPREPLY=()\n"
           "    if [ \"$word\" = '=' ]; then\n"
           "        word=''\n"
           "    elif [ \"$before\" = '=' ]; then\n"
           "        before=${COMP_WORDS[COMP_CWORD-2]}\n"
           "    fi\n"
           "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W '" +
           CommandNames() +
           " --help --version' -- \"$word\")\n"
           "        return\n"
           "    fi\n"
           "    case $before in\n" +
           BashValueCases() +
           "    esac\n"
           "    case ${COMP_WORDS[1]} in\n" +
           BashCommandCases() +
           "    esac\n"
           "    case $word in\n"
           "        -*) mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\") ;;\n"
           "        *) if [ $files = yes ]; then " +
           BashAnswer("-f", true) +
           "; fi ;;\n"
           "    esac\n"
           "}\n"
           "complete -F _mivora mivora\n";
}

std::string ZshCompletion()
{
    std::string strOut =
        "#compdef mivora\n"
        "# Completion of mivora for zsh.\n"
        "_mivora()\n"
        "{\n"
        "    local -a commands\n"
        "    commands=(\n";
    for (const CCommand& command : Commands())
    {
        strOut +=
            std::string("        '") + command.pszName + ":" + ZshText(command.pszSummary) + "'\n";
    }
    strOut +=
        "    )\n"
        "    if (( CURRENT == 2 )); then\n"
        "        _describe command commands\n"
        "        _arguments '--help[Show help]' '--version[Show the version]'\n"
        "        return\n"
        "    fi\n"
        "    local command=$words[2]\n"
        "    shift words\n"
        "    (( CURRENT-- ))\n"
        "    case $command in\n" +
        ZshCommandCases() +
        "    esac\n"
        "}\n"
        "_mivora \"$@\"\n";
    return strOut;
}
