#include "arguments.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

namespace
{
// The words in a normal form: "--name" or "--name=value" for options, and the rest.
struct CWords
{
    std::vector<std::string> astrOptions;
    std::vector<std::string> astrOperands;
};

// The option of the command that a word names, with or without a value in it.
const COption* NamedOption(const CCommand& command, const std::string& strWord)
{
    for (EOption nId : command.aOptions)
    {
        const COption& option = OptionOf(nId);
        if (option.pszShort != nullptr && strWord == std::string("-") + option.pszShort)
            return &option;
        const std::string strLong = std::string("--") + option.pszLong;
        if (strWord == strLong || strWord.starts_with(strLong + "="))
            return &option;
    }
    return nullptr;
}

// A text such as -x+y is no option: only the whole name of one counts, and a short option has its
// value in the next word.
CWords SplitWords(const CCommand& command, int nWords, const char* const* apszWords)
{
    CWords words;
    for (int n = 0; n < nWords; ++n)
    {
        const std::string strWord = apszWords[n];
        if (strWord == "--")
        {
            words.astrOperands.insert(words.astrOperands.end(), apszWords + n + 1,
                                      apszWords + nWords);
            break;
        }
        const COption* pOption = NamedOption(command, strWord);
        if (pOption == nullptr)
        {
            words.astrOperands.push_back(strWord);
            continue;
        }
        std::string strOption = std::string("--") + pOption->pszLong;
        const size_t nEquals = strWord.find('=');
        if (nEquals != std::string::npos)
            strOption += strWord.substr(nEquals);
        else if (pOption->nValue != VALUE_NONE && n + 1 < nWords)
            strOption += std::string("=") + apszWords[++n];
        else if (pOption->nValue != VALUE_NONE)
            throw CUsageError{ strWord + " needs a value: " + pOption->pszValue };
        words.astrOptions.push_back(strOption);
    }
    return words;
}

void CheckOperands(const CCommand& command, const std::vector<std::string>& astrOperands)
{
    const size_t nAllowed = command.nOperand == OPERAND_NONE ? 0 : 1;
    for (const std::string& strWord : astrOperands)
    {
        const bool bDash = strWord.size() > 1 && strWord[0] == '-';
        if (bDash && (command.nOperand != OPERAND_TEXT || astrOperands.size() > nAllowed))
            throw CUsageError{ "unknown option " + strWord };
    }
    if (astrOperands.size() <= nAllowed)
        return;
    throw CUsageError{ "unexpected word " + astrOperands[nAllowed] +
                       (nAllowed == 1 ? ": one " + std::string(command.pszOperand) +
                                            " is taken, in quotes if it has blanks"
                                      : "") };
}

std::vector<std::string> Choices(const char* pszChoices)
{
    std::istringstream stream(pszChoices);
    return { std::istream_iterator<std::string>(stream), {} };
}

void Declare(CLI::App& app, const COption& option, std::string& strValue)
{
    const std::string strName = std::string("--") + option.pszLong;
    if (option.nValue == VALUE_NONE)
    {
        app.add_flag(strName);
        return;
    }
    CLI::Option* pOption = app.add_option(strName, strValue);
    if (option.nValue == VALUE_NUMBER)
        pOption->check(CLI::Range(option.nMin, option.nMax));
    if (option.nValue == VALUE_CHOICE)
    {
        const CLI::Validator offered = CLI::IsMember(Choices(option.pszChoices));
        const CLI::Validator refused = CLI::IsMember(Choices(option.pszRefusedChoices));
        pOption->check([=](const std::string& strChoice)
                       { return refused(strChoice).empty() ? "" : offered(strChoice); });
    }
}

// What has to be there, and what cannot stand together.
void CheckTogether(const CArguments& arguments)
{
    const CCommand& command = arguments.Command();
    const bool bLines = arguments.Has(OPT_LINES);
    if (bLines && arguments.Operand())
        throw CUsageError{ "--lines and a " + std::string(command.pszOperand) +
                           " exclude each other" };
    const bool bStored = arguments.Has(OPT_FML);
    if (bStored && (arguments.Operand() || bLines))
        throw CUsageError{ std::string("--fml and ") + (bLines ? "--lines" : "a TEXT") +
                           " exclude each other" };
    if (arguments.Has(OPT_HEX) && !bLines)
        throw CUsageError{ "--hex needs --lines" };
    if (command.nOperand != OPERAND_NONE && !arguments.Operand() && !bLines && !bStored)
        throw CUsageError{ std::string("a ") + command.pszOperand + " is needed" };
    for (EOption nId : command.aRequired)
    {
        if (!arguments.Has(nId))
            throw CUsageError{ std::string("--") + OptionOf(nId).pszLong + " " +
                               OptionOf(nId).pszValue + " is needed" };
    }
}
}  // namespace

std::string CArguments::Value(EOption nId, const std::string& strDefault) const
{
    return m_astrValues[nId].value_or(strDefault);
}

int CArguments::Number(EOption nId, int nDefault) const
{
    return Has(nId) ? std::atoi(m_astrValues[nId]->c_str()) : nDefault;
}

CArguments CArguments::Parse(const CCommand& command, int nWords, const char* const* apszWords)
{
    CWords words = SplitWords(command, nWords, apszWords);
    CArguments arguments(command);

    // Only the options of the command at hand are set up: start-up is part of every run.
    CLI::App app;
    app.set_help_flag();
    std::array<std::string, OPT_COUNT> astrValues;
    for (EOption nId : command.aOptions)
        Declare(app, OptionOf(nId), astrValues[nId]);
    try
    {
        std::vector<std::string> astrReversed(words.astrOptions.rbegin(), words.astrOptions.rend());
        app.parse(astrReversed);
    }
    catch (const CLI::ParseError& error)
    {
        throw CUsageError{ error.what() };
    }
    for (EOption nId : command.aOptions)
    {
        if (app.count(std::string("--") + OptionOf(nId).pszLong) > 0)
            arguments.m_astrValues[nId] = astrValues[nId];
    }
    if (arguments.Has(OPT_HELP))
        return arguments;

    CheckOperands(command, words.astrOperands);
    if (!words.astrOperands.empty())
        arguments.m_strOperand = words.astrOperands.front();
    CheckTogether(arguments);
    return arguments;
}
