// Workers are forks of this process: they have its options and its loaded fonts at once.
#include "batch/worker_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <set>

#include "batch/worker_messages.h"
#include "report.h"
#include "system/interruption.h"
#include "system/system_calls.h"

namespace
{
// Pipes to the workers that live. A new one has to close its copies, else the others would not
// hear of the end.
std::set<int>& PipesToWorkers()
{
    static std::set<int> s_pipes;
    return s_pipes;
}

bool WriteAll(int nFile, const void* pData, size_t nSize)
{
    const char* p = static_cast<const char*>(pData);
    while (nSize > 0)
    {
        const ssize_t nWritten = write(nFile, p, nSize);
        if (nWritten < 0 && errno == EINTR)
            continue;
        if (nWritten <= 0)
            return false;
        p += nWritten;
        nSize -= static_cast<size_t>(nWritten);
    }
    return true;
}

bool ReadAll(int nFile, void* pData, size_t nSize)
{
    char* p = static_cast<char*>(pData);
    while (nSize > 0)
    {
        const ssize_t nRead = read(nFile, p, nSize);
        if (nRead < 0 && errno == EINTR)
            continue;
        if (nRead <= 0)
            return false;
        p += nRead;
        nSize -= static_cast<size_t>(nRead);
    }
    return true;
}

bool IsClosed(int nFile)
{
    pollfd ask = { nFile, POLLIN, 0 };
    return poll(&ask, 1, 0) > 0 && (ask.revents & POLLIN) == 0;
}

// The worker's side.
class CPipeToParent : public CBytePipe
{
public:
    CPipeToParent(int nFrom, int nTo) : m_nFrom(nFrom), m_nTo(nTo) {}
    bool Write(const void* pData, size_t nSize) override { return WriteAll(m_nTo, pData, nSize); }
    bool Read(void* pData, size_t nSize) override { return ReadAll(m_nFrom, pData, nSize); }
    bool IsEnded() override { return IsClosed(m_nFrom); }

private:
    int m_nFrom;
    int m_nTo;
};

[[noreturn]] void LiveAsWorker(int nFrom, int nTo, const CBatchOptions& options)
{
    IgnoreInterruption();
    for (const int nPipe : PipesToWorkers())
        close(nPipe);
    CPipeToParent pipe(nFrom, nTo);
    Work(pipe, options);
    // The parent's buffers and objects are not this process's to finish.
    _exit(0);
}

std::string EndText(int nStatus)
{
    if (WIFSIGNALED(nStatus))
    {
        return std::string("the process that drew it was ended by a signal: ") +
               strsignal(WTERMSIG(nStatus));
    }
    return "the process that drew it ended with status " + std::to_string(WEXITSTATUS(nStatus));
}
}  // namespace

struct CWorkerProcess::CNative
{
    pid_t nProcess;
    int nTo;    // blocks
    int nFrom;  // results
};

CWorkerProcess::CWorkerProcess(const CBatchOptions& options)
{
    int anTo[2] = { -1, -1 };
    int anFrom[2] = { -1, -1 };
    signal(SIGPIPE, SIG_IGN);  // a dead worker is an answer, not the end
    std::fflush(nullptr);
    if (pipe2(anTo, O_CLOEXEC) != 0 || pipe2(anFrom, O_CLOEXEC) != 0)
        throw CFailure{ "cannot make a pipe: " + SystemErrorText(errno) };
    const pid_t nProcess = fork();
    if (nProcess < 0)
        throw CFailure{ "cannot start a process: " + SystemErrorText(errno) };
    if (nProcess == 0)
    {
        close(anTo[1]);
        close(anFrom[0]);
        LiveAsWorker(anTo[0], anFrom[1], options);
    }
    close(anTo[0]);
    close(anFrom[1]);
    PipesToWorkers().insert(anTo[1]);
    m_pNative.reset(new CNative{ nProcess, anTo[1], anFrom[0] });
}

CWorkerProcess::~CWorkerProcess()
{
    if (m_pNative)
        End();
}

bool CWorkerProcess::Write(const void* pData, size_t nSize)
{
    return WriteAll(m_pNative->nTo, pData, nSize);
}

bool CWorkerProcess::Read(void* pData, size_t nSize)
{
    return ReadAll(m_pNative->nFrom, pData, nSize);
}

bool CWorkerProcess::IsEnded()
{
    return IsClosed(m_pNative->nFrom);
}

void CWorkerProcess::CloseInput()
{
    if (m_pNative->nTo < 0)
        return;
    PipesToWorkers().erase(m_pNative->nTo);
    close(m_pNative->nTo);
    m_pNative->nTo = -1;
}

std::string CWorkerProcess::End()
{
    CloseInput();
    close(m_pNative->nFrom);
    int nStatus = 0;
    waitpid(m_pNative->nProcess, &nStatus, 0);
    m_pNative.reset();
    return EndText(nStatus);
}

std::vector<CWorkerProcess*> CWorkerProcess::WaitForAny(
    const std::vector<CWorkerProcess*>& processes)
{
    std::vector<pollfd> polls;
    for (const CWorkerProcess* pProcess : processes)
        polls.push_back({ pProcess->m_pNative->nFrom, POLLIN, 0 });
    std::vector<CWorkerProcess*> ready;
    if (polls.empty() || (poll(polls.data(), polls.size(), -1) < 0 && errno == EINTR))
        return ready;
    for (size_t n = 0; n < polls.size(); ++n)
    {
        if (polls[n].revents != 0)
            ready.push_back(processes[n]);
    }
    return ready;
}
