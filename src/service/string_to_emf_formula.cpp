// The C function: whatever goes wrong inside, its caller sees a result, and a C program no
// exception.
#include <memory>
#include <new>

#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "service/caught_exception.h"
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

// Runs a job, and what answers whatever it threw.
template <class Job, class Answer>
void Guard(Job job, Answer answer)
{
    try
    {
        job();
    }
    catch (CException* pException)
    {
        const CCaughtException pOwned(pException);
        answer(*pException);
    }
    catch (const std::bad_alloc&)
    {
        CMemoryException exception;
        answer(exception);
    }
    catch (...)
    {
        CException exception(FALSE);
        answer(exception);
    }
}

// Tells in a message box what stopped the job. A box needs memory too, and its handler is the
// host's: what that throws has no way on.
template <class Job>
void RunSealed(Job job) noexcept
{
    const auto tell = [](CException& exception)
    {
        exception.ReportError();
    };
    Guard([&] { Guard(job, tell); }, [](CException&) {});
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
