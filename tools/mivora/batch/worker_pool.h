// Processes that draw blocks of lines side by side. One that dies fails the lines that it had not
// answered, and another takes its place.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "batch/worker_messages.h"
#include "batch/worker_process.h"

struct CBlockResult
{
    unsigned long long nFirstLine = 1;
    std::vector<std::string> astrLines;  // as they were submitted
    std::vector<CLineResult> results;
};

class CWorkerPool
{
public:
    // Throws CFailure if a process cannot be started.
    CWorkerPool(int nWorkers, const CBatchOptions& options);

    // Waits until a worker is free and the results that wait in line are few, and hands it over. An
    // interruption ends this wait and the others.
    void Submit(CBlock block);

    // The results of the blocks in the order of their submission. False if the next one is not
    // there yet; with bWait it is waited for, and false means that there are no more.
    bool TakeResult(CBlockResult& result, bool bWait);

private:
    struct CWorker
    {
        std::unique_ptr<CWorkerProcess> pProcess;
        bool bBusy = false;
        unsigned long long nBlock = 0;
        CBlock block;
    };

    void Start(CWorker& worker) { worker.pProcess = std::make_unique<CWorkerProcess>(m_options); }
    void Collect(CWorker& worker);
    void Stop();
    void WaitForAny();
    CWorker* FreeWorker();

    CBatchOptions m_options;
    std::vector<CWorker> m_workers;
    std::map<unsigned long long, CBlockResult> m_finished;  // by number of the block
    unsigned long long m_nSubmitted = 0;
    unsigned long long m_nTaken = 0;
};
