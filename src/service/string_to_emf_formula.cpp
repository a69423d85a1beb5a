#include <memory>

#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"

namespace
{
constexpr float s_fScale = 22.0F;  // callers divide by it

float Scaled(int nPixels)
{
    return static_cast<float>(nPixels) * s_fScale;
}

void WriteWithSizes(const char* pszFormula, const char* pszPath, float* pfWidth, float* pfHeight)
{
    const auto pFormula = std::make_unique<CFormulaOut>();
    pFormula->FormTree(pszFormula);
    CClientDC screen(nullptr);
    *pfWidth = Scaled(pFormula->GetFormulaRect(&screen).Width());
    *pfHeight = Scaled(pFormula->GetFormulaRect(&screen).Height());
    pFormula->WriteFormulaToWMF(pszPath);
}
}  // namespace

extern "C" int StringToEMFFormula(const char* pszFormula, const char* pszPath, float* pfWidth,
                                  float* pfHeight)
{
    *pfWidth = 0;
    *pfHeight = 0;
    try
    {
        WriteWithSizes(pszFormula, pszPath, pfWidth, pfHeight);
    }
    catch (CException* pException)  // a C program could not catch it
    {
        pException->ReportError();
        pException->Delete();
    }
    return 1;
}
