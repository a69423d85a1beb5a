// Hands lines out to workers and gives the results back in the order of the lines.
#include "batch/worker_pool.h"

#include <algorithm>

#include "system/interruption.h"

namespace
{
// Blocks that may wait for an earlier one to be taken, for each worker: bounds the memory.
constexpr unsigned long long s_nAhead = 4;
}  // namespace

CWorkerPool::CWorkerPool(int nWorkers, const CBatchOptions& options)
    : m_options(options), m_workers(static_cast<size_t>(nWorkers))
{
    for (CWorker& worker : m_workers)
        Start(worker);
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
    while (pWorker == nullptr && !IsInterrupted())
    {
        WaitForAny();
        pWorker = FreeWorker();
    }
    if (pWorker == nullptr)
        return;
    pWorker->bBusy = true;
    pWorker->nBlock = m_nSubmitted++;
    pWorker->block = std::move(block);
    SendBlock(*pWorker->pProcess, pWorker->block);  // a failure shows when the results are read
}

// Reads the results of a worker's block. Of a worker that died only the line at hand is lost: the
// rest of the block is drawn by the next one. After an interruption nobody draws the rest.
void CWorkerPool::Collect(CWorker& worker)
{
    CBlockResult result{ worker.block.nFirstLine, {}, {} };
    const size_t nLines = worker.block.astrLines.size();
    while (result.results.size() < nLines)
    {
        CLineResult line;
        if (IsInterrupted())
            worker.pProcess->CloseInput();
        if (!ReceiveResult(*worker.pProcess, line))
        {
            if (IsInterrupted())
                break;
            line = { OUTCOME_FAILED, worker.pProcess->End(), {} };
            Start(worker);
            SendBlock(*worker.pProcess, worker.block, result.results.size() + 1);
        }
        result.results.push_back(line);
    }
    worker.bBusy = false;
    result.astrLines = std::move(worker.block.astrLines);
    worker.block = CBlock();
    m_finished[worker.nBlock] = std::move(result);
}

// Takes the results that there are.
void CWorkerPool::Stop()
{
    for (CWorker& worker : m_workers)
    {
        if (worker.bBusy)
            worker.pProcess->CloseInput();
    }
    for (CWorker& worker : m_workers)
    {
        if (worker.bBusy)
            Collect(worker);
    }
}

void CWorkerPool::WaitForAny()
{
    std::vector<CWorkerProcess*> busy;
    for (const CWorker& worker : m_workers)
    {
        if (worker.bBusy)
            busy.push_back(worker.pProcess.get());
    }
    const std::vector<CWorkerProcess*> ready = CWorkerProcess::WaitForAny(busy);
    for (CWorker& worker : m_workers)
    {
        if (std::find(ready.begin(), ready.end(), worker.pProcess.get()) != ready.end())
            Collect(worker);
    }
}

bool CWorkerPool::TakeResult(CBlockResult& result, bool bWait)
{
    if (m_nTaken == m_nSubmitted)
        return false;
    const bool bMany = m_finished.size() >= s_nAhead * m_workers.size();
    while (!m_finished.contains(m_nTaken))
    {
        if (IsInterrupted())
            Stop();
        else if (!bWait && !bMany)
            return false;
        else
            WaitForAny();
    }
    auto node = m_finished.extract(m_nTaken++);
    result = std::move(node.mapped());
    return true;
}
