// Calls of the C interface as tests write them.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "mivora/mivora_c.h"

struct CEndFormula
{
    void operator()(mivora_formula* p) const { mivora_formula_free(p); }
};
using CFormulaHandle = std::unique_ptr<mivora_formula, CEndFormula>;

// What a call gave. Its bytes are ended here; behind them has to be a NUL.
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
    if (pBytes != nullptr && pBytes[nSize] != '\0')
        std::abort();
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

inline CFormulaHandle FromText(std::string_view strText, const mivora_look* pLook = nullptr)
{
    mivora_formula* pFormula = nullptr;
    mivora_formula_from_text(strText.data(), strText.size(), pLook, &pFormula);
    return CFormulaHandle(pFormula);
}

inline CFormulaHandle FromFml(std::string_view strBytes, const mivora_look* pLook = nullptr)
{
    mivora_formula* pFormula = nullptr;
    mivora_formula_from_fml(strBytes.data(), strBytes.size(), pLook, &pFormula);
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

inline CAnswer SourceOf(std::string_view strBytes)
{
    return Answer(mivora_picture_source, strBytes.data(), strBytes.size());
}
