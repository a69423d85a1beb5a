// The lock and the ladder around every call, and the last error of each thread.
#include "capi/call.h"

#include <cstring>
#include <new>
#include <string_view>

#include "facade/failure.h"
#include "picture/failure.h"
#include "platform/base/app.h"
#include "platform/base/code_page.h"
#include "service/caught_exception.h"
#include "service/library_lock.h"

namespace
{
// Telling an error takes no memory: there may be none.
template <size_t nSize>
struct CShortText
{
    void Set(std::string_view text)
    {
        size_t nLength = text.size() < nSize ? text.size() : nSize - 1;
        while (nLength < text.size() && nLength > 0 && IsUtf8Tail(text[nLength]))
            --nLength;  // whole characters
        sz[text.copy(sz, nLength)] = '\0';
    }

    char sz[nSize];
};

struct CLastError
{
    mivora_status nStatus;
    size_t nPosition;
    CShortText<512> message;
    CShortText<1024> excerpt;
};
constinit thread_local CLastError t_error{};

mivora_status Fail(mivora_status nStatus, std::string_view message, size_t nPosition = 0,
                   std::string_view excerpt = {})
{
    t_error.nStatus = nStatus;
    t_error.nPosition = nPosition;
    t_error.message.Set(message);
    t_error.excerpt.Set(excerpt);
    return nStatus;
}

mivora_status FailForMemory()
{
    return Fail(MIVORA_OUT_OF_MEMORY, "there is not enough memory");
}

mivora_status Succeed()
{
    t_error.nStatus = MIVORA_OK;
    t_error.nPosition = 0;
    t_error.message.sz[0] = t_error.excerpt.sz[0] = '\0';
    return MIVORA_OK;
}

mivora_status FailFor(CException* pException)
{
    const CCaughtException pOwned(pException);
    if (dynamic_cast<const CMemoryException*>(pException) != nullptr)
        return FailForMemory();
    if (dynamic_cast<const CArchiveException*>(pException) != nullptr)
        return Fail(MIVORA_INVALID_DATA, "the bytes are no stored formula, or they are damaged");
    // Of nodes whose kind lies outside its table, which only stored formulas have.
    const bool bData = dynamic_cast<const CInvalidArgException*>(pException) != nullptr;
    char szText[256] = "";
    pException->GetErrorMessage(szText, sizeof szText);
    std::string_view text = szText;
    if (text.ends_with('.'))
        text.remove_suffix(1);
    return Fail(bData ? MIVORA_INVALID_DATA : MIVORA_FAILED, text);
}

// What a box would say comes back as the status of its call.
int TakeMessage(const char*, unsigned, void*)
{
    return IDOK;
}

mivora_status RunAndTell(void (*pfn)(void*), void* pContext)
{
    try
    {
        const CLibraryLock lock;
        static const bool s_bQuiet = (AfxSetMessageBoxHandler(TakeMessage, nullptr), true);
        static_cast<void>(s_bQuiet);
        pfn(pContext);
        return Succeed();
    }
    catch (const CCallFailure& failure)
    {
        return Fail(failure.nStatus, failure.strMessage, failure.nPosition, failure.strExcerpt);
    }
    catch (const CFailure& failure)
    {
        return Fail(MIVORA_INVALID_TEXT, failure.strMessage, failure.nPosition);
    }
    catch (const CPictureFailure& failure)
    {
        return Fail(failure.bNoMemory ? MIVORA_OUT_OF_MEMORY : MIVORA_FAILED, failure.strReason);
    }
    catch (CException* pException)
    {
        return FailFor(pException);
    }
    catch (const std::bad_alloc&)
    {
        return FailForMemory();
    }
}
}  // namespace

mivora_status RunCall(void (*pfn)(void*), void* pContext) noexcept
{
    try
    {
        return RunAndTell(pfn, pContext);
    }
    catch (...)
    {
        return Fail(MIVORA_FAILED, "an unknown error");
    }
}

void TellLastError(mivora_error& error)
{
    error = { t_error.nStatus, t_error.nPosition, t_error.message.sz, t_error.excerpt.sz };
}

void RefuseArgument(std::string strMessage)
{
    throw CCallFailure{ MIVORA_INVALID_ARGUMENT, std::move(strMessage) };
}

void Give(const std::string& strBytes, char** ppBytes, size_t* pnSize)
{
    auto* pBytes = static_cast<char*>(::operator new(strBytes.size() + 1));
    std::memcpy(pBytes, strBytes.c_str(), strBytes.size() + 1);
    *ppBytes = pBytes;
    *pnSize = strBytes.size();
}
