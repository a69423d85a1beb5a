// The C function: whatever goes wrong inside, its caller sees a result, and a C program no
// exception.
#include <memory>
#include <new>

#include "platform/base/app.h"
#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"
#include "service/library_lock.h"

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

struct CDeleteException
{
    void operator()(CException* pException) const { pException->Delete(); }
};

// Tells in a message box what stopped the job.
template <class Job>
void RunAndTell(Job job)
{
    try
    {
        job();
    }
    catch (CException* pException)
    {
        const std::unique_ptr<CException, CDeleteException> pOwned(pException);
        pException->ReportError();
    }
    catch (const std::bad_alloc&)
    {
        CMemoryException().ReportError();
    }
    catch (...)
    {
        CException(FALSE).ReportError();
    }
}

// A box needs memory too, and its handler is the host's: what that throws has no way on.
template <class Job>
void RunSealed(Job job) noexcept
{
    try
    {
        RunAndTell(job);
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
    catch (...)
    {
    }
}

void SetZero(float* pfSize)
{
    if (pfSize != nullptr)
        *pfSize = 0;
}
}  // namespace

extern "C" int StringToEMFFormula(const char* pszFormula, const char* pszPath, float* pfWidth,
                                  float* pfHeight)
{
    const CLibraryLock lock;
    SetZero(pfWidth);
    SetZero(pfHeight);
    RunSealed(
        [=]
        {
            if (pszFormula == nullptr || pszPath == nullptr || pfWidth == nullptr ||
                pfHeight == nullptr)
                AfxThrowInvalidArgException();
            WriteWithSizes(pszFormula, pszPath, pfWidth, pfHeight);
        });
    return 1;
}
