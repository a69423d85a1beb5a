// The command line program: finds the command, runs it, turns failures into an exit status.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "program.h"
#include "report.h"
#include "words/arguments.h"
#include "words/command_table.h"
#include "words/generate.h"

namespace
{
int PrintText(const std::string& strText)
{
    std::fwrite(strText.data(), 1, strText.size(), stdout);
    return STATUS_DONE;
}

// The build makes the page and the completions with this; it is no command for users.
int Generate(const std::string& strWhat)
{
    if (strWhat == "man")
        return PrintText(ManPage());
    if (strWhat == "bash")
        return PrintText(BashCompletion());
    if (strWhat == "zsh")
        return PrintText(ZshCompletion());
    throw CUsageError{ "--generate takes man, bash or zsh" };
}

// Letters that have to be put in, left out, exchanged or swapped with their neighbour.
size_t Distance(const std::string& strA, const std::string& strB)
{
    std::vector<std::vector<size_t>> aRows(strA.size() + 1, std::vector<size_t>(strB.size() + 1));
    for (size_t a = 0; a <= strA.size(); ++a)
    {
        for (size_t b = 0; b <= strB.size(); ++b)
        {
            size_t& nLeast = aRows[a][b];
            nLeast = std::max(a, b);
            if (a > 0 && b > 0)
            {
                nLeast = std::min({ aRows[a - 1][b] + 1, aRows[a][b - 1] + 1,
                                    aRows[a - 1][b - 1] + (strA[a - 1] != strB[b - 1]) });
            }
            if (a > 1 && b > 1 && strA[a - 1] == strB[b - 2] && strA[a - 2] == strB[b - 1])
                nLeast = std::min(nLeast, aRows[a - 2][b - 2] + 1);
        }
    }
    return aRows.back().back();
}

CUsageError UnknownCommand(const std::string& strName)
{
    if (strName.starts_with("-"))
    {
        return { "unknown option " + strName + "; see mivora --help" };
    }
    constexpr size_t nLongest = 20;  // no command's name is near a longer word
    const CCommand* pNearest = nullptr;
    size_t nNearest = 3;  // more letters are another word
    for (const CCommand& command : Commands())
    {
        const size_t nDistance =
            strName.size() > nLongest ? nNearest : Distance(strName, command.pszName);
        if (nDistance < nNearest && nDistance < std::strlen(command.pszName) / 2 + 1)
        {
            nNearest = nDistance;
            pNearest = &command;
        }
    }
    return { "unknown command " + strName +
             (pNearest != nullptr ? std::string("; did you mean ") + pNearest->pszName + "?"
                                  : "; see mivora --help") };
}

int RunProgram(int nWords, const char* const* apszWords)
{
    if (nWords == 0)
        throw CUsageError{ "a command is needed" };
    const std::string strFirst = apszWords[0];
    if (strFirst == "--help" || strFirst == "-h" || (strFirst == "help" && nWords == 1))
        return PrintText(ProgramHelp());
    if (strFirst == "--version")
        return PrintText("mivora " MIVORA_VERSION "\n");
    if (strFirst == "--generate" && nWords == 2)
        return Generate(apszWords[1]);

    const bool bHelp = strFirst == "help" && nWords == 2;
    const std::string strName = bHelp ? apszWords[1] : strFirst;
    const CCommand* pCommand = FindCommand(strName);
    if (pCommand == nullptr)
        throw UnknownCommand(strName);
    if (bHelp)
        return PrintText(CommandHelp(*pCommand));
    try
    {
        const CArguments arguments = CArguments::Parse(*pCommand, nWords - 1, apszWords + 1);
        return arguments.Has(OPT_HELP) ? PrintText(CommandHelp(*pCommand))
                                       : pCommand->pfnRun(arguments);
    }
    catch (const CUsageError& error)
    {
        throw CUsageError{ strName + ": " + error.strMessage + "; see mivora " + strName +
                           " --help" };
    }
}

int RunAndTell(int nWords, const char* const* apszWords)
{
    try
    {
        return RunProgram(nWords, apszWords);
    }
    catch (const CUsageError& error)
    {
        Tell(error.strMessage);
        return STATUS_USAGE;
    }
    catch (...)
    {
        Tell(CaughtReason());
        return STATUS_FAILED;
    }
}
}  // namespace

int RunMivora(int nWords, const char* const* apszWords)
{
    KeepLibraryMessages();
    const int nStatus = RunAndTell(nWords, apszWords);
    const std::string strMessages = TakeLibraryMessages();
    if (!strMessages.empty())
        Tell(strMessages);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
    {
        Tell(std::string("cannot write to standard output: ") + std::strerror(errno));
        return STATUS_FAILED;
    }
    return nStatus;
}
