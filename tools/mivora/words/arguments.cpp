// Reads the words of a command by the tables of its options.
#include "words/arguments.h"

#include <algorithm>
#include <charconv>
#include <iterator>
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

struct CWords
{
    // An empty value for a switch.
    std::array<std::optional<std::string>, OPT_COUNT> astrValues;
    std::vector<COperandWord> operands;
};

std::string LongName(const COption& option)
{
    return std::string("--") + option.pszLong;
}

// The option of the command that a word names, with or without a value in it.
const COption* NamedOption(const CCommand& command, const std::string& strWord)
{
    for (EOption nId : command.aOptions)
    {
        const COption& option = OptionOf(nId);
        if (option.pszShort != nullptr && strWord == std::string("-") + option.pszShort)
            return &option;
        const std::string strLong = LongName(option);
        if (strWord == strLong || strWord.starts_with(strLong + "="))
            return &option;
    }
    return nullptr;
}

bool HasOption(const CWords& words, EOption nId)
{
    return words.astrValues[nId].has_value();
}

bool IsChoice(const std::string& strChoices, const std::string& strValue)
{
    std::istringstream stream(strChoices);
    return std::find(std::istream_iterator<std::string>(stream), {}, strValue) !=
           std::istream_iterator<std::string>();
}

std::string WithCommas(std::string strChoices)
{
    std::replace(strChoices.begin(), strChoices.end(), ' ', ',');
    return strChoices;
}

bool IsNumber(const COption& option, const std::string& strValue)
{
    int n = 0;
    const char* pEnd = strValue.data() + strValue.size();
    const auto [pRead, nError] = std::from_chars(strValue.data(), pEnd, n);
    return nError == std::errc() && pRead == pEnd && n >= option.nMin && n <= option.nMax;
}

void CheckValue(const COption& option, const std::string& strValue)
{
    const std::string strName = LongName(option);
    if (option.nValue == VALUE_NUMBER && !IsNumber(option, strValue))
    {
        throw CUsageError{ strName + ": " + strValue + " is no whole number from " +
                           std::to_string(option.nMin) + " to " + std::to_string(option.nMax) };
    }
    if (option.nValue == VALUE_CHOICE && !IsChoice(option.pfnChoices(), strValue) &&
        !(option.pfnRefusedChoices != nullptr && IsChoice(option.pfnRefusedChoices(), strValue)))
    {
        throw CUsageError{ strName + ": " + strValue + " not in {" +
                           WithCommas(option.pfnChoices()) + "}" };
    }
    const bool bFile = option.nValue == VALUE_FILE;
    if (strValue.empty() && (bFile || option.nValue == VALUE_FOLDER))
    {
        throw CUsageError{ strName + " needs the name of a " + (bFile ? "file" : "folder") +
                           ", not an empty word" };
    }
}

// Files and folders have names; a value that is named twice is none.
void AddOption(CWords& words, const COption& option, const std::string& strValue = {})
{
    if (option.nValue != VALUE_NONE)
    {
        if (HasOption(words, option.nId))
            throw CUsageError{ LongName(option) + " is given twice" };
        CheckValue(option, strValue);
    }
    words.astrValues[option.nId] = strValue;
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
        else if (pOption->nValue == VALUE_NONE && nEquals != std::string::npos)
            throw CUsageError{ LongName(*pOption) + " takes no value" };
        else if (pOption->nValue == VALUE_NONE)
            AddOption(words, *pOption);
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
                       [&](EOption nId) { return !HasOption(words, nId); });
}

// Such a word is a TEXT only where the command takes one that is nowhere else.
void TakeShortOptions(const CCommand& command, CWords& words)
{
    const bool bElsewhere = HasOption(words, OPT_LINES) || HasOption(words, OPT_FML);
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
            AddOption(words, *pOption);
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

// What has to be there, and what cannot stand together.
void CheckTogether(const CArguments& arguments)
{
    const CCommand& command = arguments.Command();
    const bool bLines = arguments.Has(OPT_LINES);
    if (bLines && arguments.Operand())
    {
        throw CUsageError{ "--lines and a " + std::string(command.pszOperand) +
                           " exclude each other" };
    }
    const bool bStored = arguments.Has(OPT_FML);
    if (bStored && (arguments.Operand() || bLines))
    {
        throw CUsageError{ std::string("--fml and ") + (bLines ? "--lines" : "a TEXT") +
                           " exclude each other" };
    }
    if (arguments.Has(OPT_HEX) && !bLines)
        throw CUsageError{ "--hex needs --lines" };
    if (command.nOperand != OPERAND_NONE && !arguments.Operand() && !bLines && !bStored)
        throw CUsageError{ std::string("a ") + command.pszOperand + " is needed" };
    for (EOption nId : command.aRequired)
    {
        if (!arguments.Has(nId))
        {
            throw CUsageError{ LongName(OptionOf(nId)) + " " + OptionOf(nId).pszValue +
                               " is needed" };
        }
    }
}
}  // namespace

std::string CArguments::Value(EOption nId, const std::string& strDefault) const
{
    return m_astrValues[nId].value_or(strDefault);
}

int CArguments::Number(EOption nId, int nDefault) const
{
    return Has(nId) ? std::stoi(*m_astrValues[nId]) : nDefault;
}

CArguments CArguments::Parse(const CCommand& command, int nWords, const char* const* apszWords)
{
    CWords words = SplitWords(command, nWords, apszWords);
    TakeShortOptions(command, words);
    CArguments arguments(command);

    arguments.m_astrValues = words.astrValues;
    if (arguments.Has(OPT_HELP))
        return arguments;

    CheckOperands(command, words.operands);
    if (!words.operands.empty())
        arguments.m_strOperand = words.operands.front().strWord;
    CheckTogether(arguments);
    return arguments;
}
