// The formula behind a handle.
#pragma once

#include <string>
#include <string_view>

#include "mivora/mivora_c.h"
#include "service/form_tree.h"
#include "service/formula_out.h"

struct mivora_formula
{
    // Throw CCallFailure and CFailure.
    void FormText(const std::string& strTyped, const mivora_look& look);
    void LoadStored(std::string_view bytes, const mivora_look& look);

    // All formulas share the gap of products: before this one is measured or painted.
    void TakeGap() const;

    CFormulaOut formula;
    CParseReport report;

    // What there is to be told about the text.
    mivora_status nProblem = MIVORA_OK;
    size_t nProblemPosition = 0;
    std::string strProblem;
    std::string strExcerpt;

private:
    void KeepProblem(const std::string& strTyped);

    int m_nTimesGap = 0;
};

// A text as the library has it. Throws CFailure, and CCallFailure if it is too long.
CString FormulaText(const std::string& strTyped);

// The value of a text; throws CCallFailure (MIVORA_SYNTAX_ERROR) after *pdValue is set.
void CalculateInto(const std::string& strTyped, double* pdValue);

// In the lock of the library; leaves the thread's last error as it is.
void EndFormula(mivora_formula* pFormula) noexcept;
