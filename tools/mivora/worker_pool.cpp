#include "worker_pool.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "report.h"

namespace
{
// Blocks that may wait for an earlier one to be taken, for each worker: bounds the memory.
constexpr unsigned long long s_nAhead = 4;

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

// Texts travel with their length in front, in the byte order of the machine.
void AppendText(std::string& strMessage, const std::string& strText)
{
    const std::uint64_t nSize = strText.size();
    strMessage.append(reinterpret_cast<const char*>(&nSize), sizeof nSize);
    strMessage += strText;
}

bool ReadText(int nFile, std::string& strText)
{
    std::uint64_t nSize = 0;
    if (!ReadAll(nFile, &nSize, sizeof nSize))
        return false;
    strText.resize(nSize);
    return ReadAll(nFile, strText.data(), nSize);
}

struct CBlockHead
{
    std::uint64_t nFirstLine;
    std::uint64_t nLines;
};

// The block without its first nSkip lines.
bool SendBlock(int nFile, const CBlock& block, size_t nSkip = 0)
{
    const CBlockHead head = { block.nFirstLine + nSkip, block.astrLines.size() - nSkip };
    std::string strMessage(reinterpret_cast<const char*>(&head), sizeof head);
    for (size_t n = nSkip; n < block.astrLines.size(); ++n)
        AppendText(strMessage, block.astrLines[n]);
    return WriteAll(nFile, strMessage.data(), strMessage.size());
}

// The whole block is read before the first result is written: neither side can wait for the other
// with a full pipe.
bool ReadBlock(int nFile, CBlock& block)
{
    CBlockHead head;
    if (!ReadAll(nFile, &head, sizeof head))
        return false;
    block.nFirstLine = head.nFirstLine;
    block.astrLines.assign(head.nLines, std::string());
    for (std::string& strLine : block.astrLines)
    {
        if (!ReadText(nFile, strLine))
            return false;
    }
    return true;
}

bool SendResult(int nFile, const CLineResult& result)
{
    std::string strMessage(1, static_cast<char>(result.nOutcome));
    AppendText(strMessage, result.strMessage);
    return WriteAll(nFile, strMessage.data(), strMessage.size());
}

bool ReadResult(int nFile, CLineResult& result)
{
    unsigned char nOutcome = OUTCOME_DONE;
    if (!ReadAll(nFile, &nOutcome, sizeof nOutcome) || !ReadText(nFile, result.strMessage))
        return false;
    result.nOutcome = static_cast<EOutcome>(nOutcome);
    return true;
}

// The life of a worker: draws what it is sent until the sender closes the pipe.
[[noreturn]] void Work(int nFrom, int nTo, const CBatchOptions& options)
{
    {
        CFormulaOut formula;
        CBlock block;
        bool bHeard = true;
        while (bHeard && ReadBlock(nFrom, block))
        {
            unsigned long long nLine = block.nFirstLine;
            for (const std::string& strLine : block.astrLines)
                bHeard = bHeard && SendResult(nTo, DrawLine(formula, strLine, nLine++, options));
        }
    }
    // The parent's buffers and objects are not this process's to finish.
    _exit(0);
}

std::string EndText(int nStatus)
{
    if (WIFSIGNALED(nStatus))
        return std::string("the process that drew it was ended by a signal: ") +
               strsignal(WTERMSIG(nStatus));
    return "the process that drew it ended with status " + std::to_string(WEXITSTATUS(nStatus));
}
}  // namespace

CWorkerPool::CWorkerPool(int nWorkers, const CBatchOptions& options)
    : m_options(options), m_workers(static_cast<size_t>(nWorkers))
{
    signal(SIGPIPE, SIG_IGN);  // a dead worker is an answer, not the end
    for (CWorker& worker : m_workers)
        Start(worker);
}

CWorkerPool::~CWorkerPool()
{
    for (CWorker& worker : m_workers)
        Stop(worker);
}

void CWorkerPool::Start(CWorker& worker)
{
    int anTo[2] = { -1, -1 };
    int anFrom[2] = { -1, -1 };
    std::fflush(nullptr);
    if (pipe2(anTo, O_CLOEXEC) != 0 || pipe2(anFrom, O_CLOEXEC) != 0)
        throw CFailure{ std::string("cannot make a pipe: ") + std::strerror(errno) };
    worker.nProcess = fork();
    if (worker.nProcess < 0)
        throw CFailure{ std::string("cannot start a process: ") + std::strerror(errno) };
    if (worker.nProcess == 0)
    {
        for (const CWorker& other : m_workers)  // else they would not hear of the end
        {
            if (other.nTo >= 0)
                close(other.nTo);
        }
        close(anTo[1]);
        close(anFrom[0]);
        Work(anTo[0], anFrom[1], m_options);
    }
    close(anTo[0]);
    close(anFrom[1]);
    worker.nTo = anTo[1];
    worker.nFrom = anFrom[0];
}

void CWorkerPool::Stop(CWorker& worker)
{
    if (worker.nProcess >= 0)
        Bury(worker);
}

CWorkerPool::CWorker* CWorkerPool::FreeWorker()
{
    for (CWorker& worker : m_workers)
    {
        if (!worker.bBusy)
            return &worker;
    }
    return nullptr;
}

void CWorkerPool::Submit(CBlock block)
{
    CWorker* pWorker = FreeWorker();
    while (pWorker == nullptr)
    {
        WaitForAny();
        pWorker = FreeWorker();
    }
    pWorker->bBusy = true;
    pWorker->nBlock = m_nSubmitted++;
    pWorker->block = std::move(block);
    SendBlock(pWorker->nTo, pWorker->block);  // a failure shows when the results are read
}

// Reads the results of a worker's block. Of a worker that died only the line at hand is lost: the
// rest of the block is drawn by the next one.
void CWorkerPool::Collect(CWorker& worker)
{
    CBlockResult result{ worker.block.nFirstLine, {} };
    const size_t nLines = worker.block.astrLines.size();
    while (result.results.size() < nLines)
    {
        CLineResult line;
        if (!ReadResult(worker.nFrom, line))
        {
            line = { OUTCOME_FAILED, Bury(worker) };
            Start(worker);
            SendBlock(worker.nTo, worker.block, result.results.size() + 1);
        }
        result.results.push_back(line);
    }
    worker.bBusy = false;
    worker.block = CBlock();
    m_finished[worker.nBlock] = std::move(result);
}

std::string CWorkerPool::Bury(CWorker& worker)
{
    close(worker.nTo);
    close(worker.nFrom);
    worker.nTo = worker.nFrom = -1;
    int nStatus = 0;
    waitpid(worker.nProcess, &nStatus, 0);
    worker.nProcess = -1;
    return EndText(nStatus);
}

void CWorkerPool::WaitForAny()
{
    std::vector<pollfd> polls;
    std::vector<CWorker*> busy;
    for (CWorker& worker : m_workers)
    {
        if (!worker.bBusy)
            continue;
        polls.push_back({ worker.nFrom, POLLIN, 0 });
        busy.push_back(&worker);
    }
    if (polls.empty() || (poll(polls.data(), polls.size(), -1) < 0 && errno == EINTR))
        return;
    for (size_t n = 0; n < polls.size(); ++n)
    {
        if (polls[n].revents != 0)
            Collect(*busy[n]);
    }
}

bool CWorkerPool::TakeResult(CBlockResult& result, bool bWait)
{
    if (m_nTaken == m_nSubmitted)
        return false;
    const bool bMany = m_finished.size() >= s_nAhead * m_workers.size();
    while (!m_finished.contains(m_nTaken))
    {
        if (!bWait && !bMany)
            return false;
        WaitForAny();
    }
    auto node = m_finished.extract(m_nTaken++);
    result = std::move(node.mapped());
    return true;
}
