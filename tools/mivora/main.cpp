// The command line program: finds the command, runs it, turns failures into an exit status.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#include "arguments.h"
#include "command_table.h"
#include "generate.h"
#include "platform/base/exception.h"
#include "program.h"
#include "report.h"

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
        throw CUsageError{ (strName.starts_with("-") ? "unknown option " : "unknown command ") +
                           strName };
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

int TellException(CException* pException)
{
    char szText[256] = "";
    pException->GetErrorMessage(szText, sizeof szText);
    pException->Delete();
    Tell(szText);
    return STATUS_FAILED;
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
    catch (const CFailure& failure)
    {
        Tell(failure.strMessage);
    }
    catch (CException* pException)
    {
        return TellException(pException);
    }
    catch (const std::bad_alloc&)
    {
        Tell("out of memory");
    }
    return STATUS_FAILED;
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
