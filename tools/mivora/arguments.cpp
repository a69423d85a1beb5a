#include "arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

namespace
{
// A word that is no name of an option. Behind "--" it is none in any case.
struct COperandWord
{
    std::string strWord;
    bool bPlain = false;
};

// The words in a normal form: "--name" or "--name=value" for options, and the rest.
struct CWords
{
    std::vector<std::string> astrOptions;
    std::vector<COperandWord> operands;
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

bool HasOption(const CWords& words, const COption& option)
{
    const std::string strLong = std::string("--") + option.pszLong;
    return std::any_of(words.astrOptions.begin(), words.astrOptions.end(),
                       [&](const std::string& strOption)
                       { return strOption == strLong || strOption.starts_with(strLong + "="); });
}

// Files and folders have names; a value that is named twice is none.
void AddOption(CWords& words, const COption& option, const std::string& strValue)
{
    const std::string strName = std::string("--") + option.pszLong;
    if (HasOption(words, option))
        throw CUsageError{ strName + " is given twice" };
    if (strValue.empty() && (option.nValue == VALUE_FILE || option.nValue == VALUE_FOLDER))
        throw CUsageError{ strName + " needs the name of a " +
                           (option.nValue == VALUE_FILE ? "file" : "folder") +
                           ", not an empty word" };
    words.astrOptions.push_back(strName + "=" + strValue);
}

// A text such as -x+y is no option: only the whole name of one counts.
CWords SplitWords(const CCommand& command, int nWords, const char* const* apszWords)
{
    CWords words;
    bool bPlain = false;
    for (int n = 0; n < nWords; ++n)
    {
        const std::string strWord = apszWords[n];
        const COption* pOption = bPlain ? nullptr : NamedOption(command, strWord);
        const size_t nEquals = strWord.find('=');
        if (strWord == "--" && !bPlain)
            bPlain = true;
        else if (pOption == nullptr)
            words.operands.push_back({ strWord, bPlain });
        else if (pOption->nValue == VALUE_NONE)
            words.astrOptions.push_back(strWord);
        else if (nEquals != std::string::npos)
            AddOption(words, *pOption, strWord.substr(nEquals + 1));
        else if (n + 1 < nWords)
            AddOption(words, *pOption, apszWords[++n]);
        else
            throw CUsageError{ strWord + " needs a value: " + pOption->pszValue };
    }
    return words;
}

// The option that a word is if it is no TEXT: "-h", or a short one with its value in the same word.
const COption* ShortOption(const CCommand& command, const std::string& strWord)
{
    if (strWord == "-h")
        return &OptionOf(OPT_HELP);
    for (EOption nId : command.aOptions)
    {
        const COption& option = OptionOf(nId);
        if (option.pszShort != nullptr && option.nValue != VALUE_NONE && strWord.size() > 2 &&
            strWord.starts_with(std::string("-") + option.pszShort))
            return &option;
    }
    return nullptr;
}

// Whether nothing can be done without one of the required options.
bool LacksOption(const CCommand& command, const CWords& words)
{
    return std::any_of(command.aRequired.begin(), command.aRequired.end(),
                       [&](EOption nId) { return !HasOption(words, OptionOf(nId)); });
}

// Such a word is a TEXT only where the command takes one that is nowhere else.
void TakeShortOptions(const CCommand& command, CWords& words)
{
    const bool bElsewhere =
        HasOption(words, OptionOf(OPT_LINES)) || HasOption(words, OptionOf(OPT_FML));
    const bool bMayBeText = command.nOperand == OPERAND_TEXT && words.operands.size() == 1 &&
                            !bElsewhere && !LacksOption(command, words);
    std::vector<COperandWord> rest;
    for (const COperandWord& word : words.operands)
    {
        const COption* pOption =
            word.bPlain || bMayBeText ? nullptr : ShortOption(command, word.strWord);
        if (pOption == nullptr)
            rest.push_back(word);
        else if (pOption->nValue == VALUE_NONE)
            words.astrOptions.push_back(std::string("--") + pOption->pszLong);
        else
            AddOption(words, *pOption, word.strWord.substr(2));
    }
    words.operands = rest;
}

void CheckOperands(const CCommand& command, const std::vector<COperandWord>& operands)
{
    const size_t nAllowed = command.nOperand == OPERAND_NONE ? 0 : 1;
    for (const COperandWord& word : operands)
    {
        const bool bDash = !word.bPlain && word.strWord.size() > 1 && word.strWord[0] == '-';
        if (bDash && (command.nOperand != OPERAND_TEXT || operands.size() > nAllowed))
            throw CUsageError{ "unknown option " + word.strWord };
    }
    if (operands.size() <= nAllowed)
        return;
    throw CUsageError{ "unexpected word " + operands[nAllowed].strWord +
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
    TakeShortOptions(command, words);
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

    CheckOperands(command, words.operands);
    if (!words.operands.empty())
        arguments.m_strOperand = words.operands.front().strWord;
    CheckTogether(arguments);
    return arguments;
}
