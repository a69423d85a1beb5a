// Calls of the C interface as tests write them.
#pragma once

#include <memory>
#include <string>

#include "mivora/mivora_c.h"

struct CEndFormula
{
    void operator()(mivora_formula* p) const { mivora_formula_free(p); }
};
using CFormulaHandle = std::unique_ptr<mivora_formula, CEndFormula>;

// What a call gave; its bytes are ended.
struct CAnswer
{
    mivora_status nStatus;
    std::string strBytes;

    bool operator==(const CAnswer&) const = default;
};

template <class Function, class... Arguments>
CAnswer Answer(Function function, Arguments... arguments)
{
    char* pBytes = nullptr;
    size_t nSize = 0;
    CAnswer answer{ function(arguments..., &pBytes, &nSize), {} };
    if (pBytes != nullptr)
        answer.strBytes.assign(pBytes, nSize);
    mivora_free(pBytes);
    return answer;
}

inline mivora_error LastError()
{
    mivora_error error{};
    mivora_last_error(&error);
    return error;
}

inline CFormulaHandle FromText(const std::string& strText, const mivora_look* pLook = nullptr)
{
    mivora_formula* pFormula = nullptr;
    mivora_formula_from_text(strText.data(), strText.size(), pLook, &pFormula);
    return CFormulaHandle(pFormula);
}

inline CFormulaHandle FromFml(const std::string& strBytes)
{
    mivora_formula* pFormula = nullptr;
    mivora_formula_from_fml(strBytes.data(), strBytes.size(), nullptr, &pFormula);
    return CFormulaHandle(pFormula);
}

inline CAnswer Picture(const CFormulaHandle& formula, const char* pszFormat,
                       const mivora_paint* pPaint = nullptr, mivora_size* pMeasured = nullptr)
{
    return Answer(
        [=](mivora_formula* p, char** ppBytes, size_t* pnSize)
        { return mivora_formula_picture(p, pszFormat, pPaint, ppBytes, pnSize, pMeasured); },
        formula.get());
}

inline CAnswer SourceOf(const std::string& strBytes)
{
    return Answer(mivora_picture_source, strBytes.data(), strBytes.size());
}
