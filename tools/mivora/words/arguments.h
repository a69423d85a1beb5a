// The words of a command line, checked against a row of the command table.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "words/command_table.h"

// What a command was called with.
class CArguments
{
public:
    bool Has(EOption nId) const { return m_astrValues[nId].has_value(); }

    // The value of an option that was given; what stands in strDefault otherwise.
    std::string Value(EOption nId, const std::string& strDefault = {}) const;
    int Number(EOption nId, int nDefault) const;

    // The TEXT or FILE; empty if there is none.
    const std::optional<std::string>& Operand() const { return m_strOperand; }

    const CCommand& Command() const { return *m_pCommand; }

    // Checks and takes the words behind the command's name. Throws CUsageError.
    static CArguments Parse(const CCommand& command, int nWords, const char* const* apszWords);

private:
    explicit CArguments(const CCommand& command) : m_pCommand(&command) {}

    const CCommand* m_pCommand;
    std::array<std::optional<std::string>, OPT_COUNT> m_astrValues;
    std::optional<std::string> m_strOperand;
};

// Wrong usage: one line for the user.
struct CUsageError
{
    std::string strMessage;
};
