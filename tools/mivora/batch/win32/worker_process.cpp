// Workers are processes of the same program. Results come through pipes that can be waited for
// together: the system has no such wait for more than 64 things but a completion port.
#include "batch/worker_process.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>

#include "batch/win32/worker_entry.h"
#include "batch/worker_messages.h"
#include "platform/base/win32/wide_text.h"
#include "report.h"
#include "system/interruption.h"
#include "system/system_calls.h"
#include "words/arguments.h"

namespace
{
constexpr DWORD s_nPipeBuffer = 65536;

class CHandle
{
public:
    explicit CHandle(HANDLE h = nullptr) : m_h(h == INVALID_HANDLE_VALUE ? nullptr : h) {}
    ~CHandle() { Close(); }
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;
    void Close()
    {
        if (m_h != nullptr)
            CloseHandle(m_h);
        m_h = nullptr;
    }
    HANDLE Get() const { return m_h; }
    HANDLE* Place() { return &m_h; }

private:
    HANDLE m_h;
};

bool WriteAll(HANDLE hPipe, const void* pData, size_t nSize)
{
    const char* p = static_cast<const char*>(pData);
    while (nSize > 0)
    {
        DWORD nWritten = 0;
        const auto nPiece = static_cast<DWORD>(std::min<size_t>(nSize, 1U << 30));
        if (!WriteFile(hPipe, p, nPiece, &nWritten, nullptr))
            return false;
        p += nWritten;
        nSize -= nWritten;
    }
    return true;
}

[[noreturn]] void Fail(const char* pszWhat)
{
    throw CFailure{ std::string(pszWhat) + ": " + LastErrorText() };
}

HANDLE CompletionPort()
{
    static const HANDLE s_hPort = CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 1);
    return s_hPort;
}

std::string EndText(DWORD nStatus)
{
    constexpr DWORD nLeastException = 0x80000000;
    char szStatus[16];
    std::snprintf(szStatus, sizeof szStatus, nStatus < nLeastException ? "%lu" : "0x%08lX",
                  nStatus);
    return std::string("the process that drew it ended with status ") + szStatus;
}

std::wstring ProgramPath()
{
    constexpr DWORD nMost = 32768;  // of any path
    std::wstring path(nMost, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), nMost));
    return path;
}

std::wstring HandleWord(HANDLE h)
{
    return L" " + std::to_wstring(reinterpret_cast<ULONG_PTR>(h));
}

// Starts this program as a worker that inherits the two pipes. Null if that fails.
HANDLE StartProgram(HANDLE hFrom, HANDLE hTo)
{
    const std::wstring program = ProgramPath();
    std::wstring line = L"\"" + program + L"\" " + ToWide(WORKER_WORD, CP_UTF8) +
                        HandleWord(hFrom) + HandleWord(hTo);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    // No other process is started meanwhile: none gets a pipe that is not its own.
    SetHandleInformation(hFrom, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    SetHandleInformation(hTo, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &start, &process))
        return nullptr;
    CloseHandle(process.hThread);
    return process.hProcess;
}

bool IsClosed(HANDLE hPipe)
{
    return !PeekNamedPipe(hPipe, nullptr, 0, nullptr, nullptr, nullptr);
}

// The worker's side.
class CPipeToParent : public CBytePipe
{
public:
    CPipeToParent(HANDLE hFrom, HANDLE hTo) : m_from(hFrom), m_to(hTo) {}
    bool Write(const void* pData, size_t nSize) override
    {
        return WriteAll(m_to.Get(), pData, nSize);
    }
    bool Read(void* pData, size_t nSize) override
    {
        char* p = static_cast<char*>(pData);
        while (nSize > 0)
        {
            DWORD nRead = 0;
            const auto nPiece = static_cast<DWORD>(std::min<size_t>(nSize, 1U << 30));
            if (!ReadFile(m_from.Get(), p, nPiece, &nRead, nullptr) || nRead == 0)
                return false;
            p += nRead;
            nSize -= nRead;
        }
        return true;
    }
    bool IsEnded() override { return IsClosed(m_from.Get()); }

private:
    CHandle m_from;
    CHandle m_to;
};

HANDLE InheritedHandle(const char* pszNumber)
{
    return reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(std::strtoull(pszNumber, nullptr, 10)));
}

std::string OptionsMessage(const CBatchOptions& options)
{
    std::string strMessage;
    AppendText(strMessage, std::to_string(options.astrWords.size()));
    for (const std::string& strWord : options.astrWords)
        AppendText(strMessage, strWord);
    return strMessage;
}

// The parent has checked the words; none if it is gone.
std::optional<CBatchOptions> ReceiveOptions(CBytePipe& pipe)
{
    std::string strCount;
    if (!ReceiveText(pipe, strCount))
        return std::nullopt;
    std::vector<std::string> astrWords(std::strtoul(strCount.c_str(), nullptr, 10));
    std::vector<const char*> apszWords;
    for (std::string& strWord : astrWords)
    {
        if (!ReceiveText(pipe, strWord))
            return std::nullopt;
        apszWords.push_back(strWord.c_str());
    }
    apszWords.push_back("-");  // a batch needs an input
    return BatchOptionsOf(CArguments::Parse(*FindCommand("batch"),
                                            static_cast<int>(apszWords.size()), apszWords.data()));
}
}  // namespace

struct CWorkerProcess::CNative
{
    CHandle process;
    CHandle to;             // blocks
    CHandle from;           // results; its reads can be waited for
    CHandle readDone;       // event of those reads that are waited for at once
    ULONG_PTR nKey = 0;     // at the completion port; never used again
    OVERLAPPED awaited{};   // the read of the first byte that is waited for together with others
    bool bAwaited = false;  // it is under way
    bool bArrived = false;  // it is done, and chFirst has not been read yet
    bool bGone = false;     // instead of a byte there was the end
    char chFirst = 0;

    ~CNative() { ClosePipes(); }
    void ClosePipes();
    void MakePipes(CHandle& childFrom, CHandle& childTo);
    void AwaitFirst();
    bool ReadPiece(char* pchData, DWORD nSize, DWORD& nRead);
};

void CWorkerProcess::CNative::ClosePipes()
{
    to.Close();
    DWORD nRead = 0;
    if (bAwaited && CancelIo(from.Get()))  // it must not write into memory that is gone
        GetOverlappedResult(from.Get(), &awaited, &nRead, TRUE);
    bAwaited = false;
    from.Close();
}

void CWorkerProcess::CNative::MakePipes(CHandle& childFrom, CHandle& childTo)
{
    static ULONG_PTR s_nLastKey = 0;
    nKey = ++s_nLastKey;
    const std::wstring name = L"\\\\.\\pipe\\mivora-" + std::to_wstring(GetCurrentProcessId()) +
                              L"-" + std::to_wstring(nKey);
    *from.Place() = CreateNamedPipeW(
        name.c_str(), PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_REJECT_REMOTE_CLIENTS, 1, s_nPipeBuffer, s_nPipeBuffer, 0, nullptr);
    if (from.Get() == INVALID_HANDLE_VALUE)
        *from.Place() = nullptr;
    if (from.Get() != nullptr)
    {
        *childTo.Place() =
            CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    }
    if (childTo.Get() == INVALID_HANDLE_VALUE)
        *childTo.Place() = nullptr;
    *readDone.Place() = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (childTo.Get() == nullptr || readDone.Get() == nullptr ||
        CreateIoCompletionPort(from.Get(), CompletionPort(), nKey, 0) == nullptr ||
        !CreatePipe(childFrom.Place(), to.Place(), nullptr, s_nPipeBuffer))
        Fail("cannot make a pipe");
}

// Whatever comes of it arrives at the completion port, but for a failure to begin.
void CWorkerProcess::CNative::AwaitFirst()
{
    if (bAwaited || bArrived)
        return;
    awaited = OVERLAPPED{};
    bAwaited =
        ReadFile(from.Get(), &chFirst, 1, nullptr, &awaited) || GetLastError() == ERROR_IO_PENDING;
    bArrived = bGone = !bAwaited;
}

bool CWorkerProcess::CNative::ReadPiece(char* pchData, DWORD nSize, DWORD& nRead)
{
    OVERLAPPED overlapped{};
    // The lowest bit keeps the completion port out of it.
    overlapped.hEvent = reinterpret_cast<HANDLE>(reinterpret_cast<ULONG_PTR>(readDone.Get()) | 1U);
    if (!ReadFile(from.Get(), pchData, nSize, nullptr, &overlapped) &&
        GetLastError() != ERROR_IO_PENDING)
        return false;
    return GetOverlappedResult(from.Get(), &overlapped, &nRead, TRUE) && nRead > 0;
}

CWorkerProcess::CWorkerProcess(const CBatchOptions& options) : m_pNative(new CNative)
{
    CHandle childFrom;
    CHandle childTo;
    m_pNative->MakePipes(childFrom, childTo);
    std::fflush(nullptr);
    *m_pNative->process.Place() = StartProgram(childFrom.Get(), childTo.Get());
    if (m_pNative->process.Get() == nullptr)
        Fail("cannot start a process");
    const std::string strMessage = OptionsMessage(options);
    Write(strMessage.data(), strMessage.size());  // a failure shows when the results are read
}

CWorkerProcess::~CWorkerProcess()
{
    if (m_pNative)
        End();
}

bool CWorkerProcess::Write(const void* pData, size_t nSize)
{
    return WriteAll(m_pNative->to.Get(), pData, nSize);
}

bool CWorkerProcess::Read(void* pData, size_t nSize)
{
    CNative& native = *m_pNative;
    char* p = static_cast<char*>(pData);
    if (native.bGone)
        return false;
    if (native.bArrived && nSize > 0)
    {
        native.bArrived = false;
        *p++ = native.chFirst;
        --nSize;
    }
    while (nSize > 0)
    {
        DWORD nRead = 0;
        if (!native.ReadPiece(p, static_cast<DWORD>(std::min<size_t>(nSize, 1U << 30)), nRead))
            return false;
        p += nRead;
        nSize -= nRead;
    }
    return true;
}

bool CWorkerProcess::IsEnded()
{
    return IsClosed(m_pNative->from.Get());
}

void CWorkerProcess::CloseInput()
{
    m_pNative->to.Close();
}

std::string CWorkerProcess::End()
{
    m_pNative->ClosePipes();
    DWORD nStatus = 0;
    WaitForSingleObject(m_pNative->process.Get(), INFINITE);
    GetExitCodeProcess(m_pNative->process.Get(), &nStatus);
    m_pNative.reset();
    return EndText(nStatus);
}

std::vector<CWorkerProcess*> CWorkerProcess::WaitForAny(
    const std::vector<CWorkerProcess*>& processes)
{
    std::vector<CWorkerProcess*> ready;
    std::map<ULONG_PTR, CWorkerProcess*> awaited;
    for (CWorkerProcess* pProcess : processes)
    {
        pProcess->m_pNative->AwaitFirst();
        if (pProcess->m_pNative->bArrived)
            ready.push_back(pProcess);
        else
            awaited[pProcess->m_pNative->nKey] = pProcess;
    }
    while (!awaited.empty())
    {
        DWORD nRead = 0;
        ULONG_PTR nKey = 0;
        OVERLAPPED* pOverlapped = nullptr;
        const BOOL bRead = GetQueuedCompletionStatus(CompletionPort(), &nRead, &nKey, &pOverlapped,
                                                     ready.empty() ? INFINITE : 0);
        if (pOverlapped == nullptr)
            break;  // no more for now
        const auto it = awaited.find(nKey);
        if (it == awaited.end())
            continue;  // of one that has been ended
        CNative& native = *it->second->m_pNative;
        native.bAwaited = false;
        native.bArrived = true;
        native.bGone = !bRead || nRead == 0;
        ready.push_back(it->second);
        awaited.erase(it);
    }
    return ready;
}

int RunWorker(const char* pszFrom, const char* pszTo)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);  // no box that waits for a hand
    KeepLibraryMessages();
    IgnoreInterruption();
    CPipeToParent pipe(InheritedHandle(pszFrom), InheritedHandle(pszTo));
    if (const std::optional<CBatchOptions> options = ReceiveOptions(pipe))
        Work(pipe, *options);
    return 0;
}
