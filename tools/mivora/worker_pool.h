// Processes that draw blocks of lines side by side. One that dies fails the lines that it had not
// answered, and another takes its place.
#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

#include "batch_job.h"

// Lines that go to a worker together.
struct CBlock
{
    unsigned long long nFirstLine = 1;
    std::vector<std::string> astrLines;
};

struct CBlockResult
{
    unsigned long long nFirstLine = 1;
    std::vector<CLineResult> results;
};

class CWorkerPool
{
public:
    // Throws CFailure if a process cannot be started.
    CWorkerPool(int nWorkers, const CBatchOptions& options);
    ~CWorkerPool();
    CWorkerPool(const CWorkerPool&) = delete;
    CWorkerPool& operator=(const CWorkerPool&) = delete;

    // Waits until a worker is free and the results that wait in line are few, and hands it over.
    void Submit(CBlock block);

    // The results of the blocks in the order of their submission. False if the next one is not
    // there yet; with bWait it is waited for, and false means that there are no more.
    bool TakeResult(CBlockResult& result, bool bWait);

private:
    struct CWorker
    {
        pid_t nProcess = -1;
        int nTo = -1;    // blocks
        int nFrom = -1;  // results
        bool bBusy = false;
        unsigned long long nBlock = 0;
        CBlock block;
    };

    void Start(CWorker& worker);
    void Stop(CWorker& worker);
    void Collect(CWorker& worker);
    // Waits for the end of a worker and tells how it came.
    static std::string Bury(CWorker& worker);
    void WaitForAny();
    CWorker* FreeWorker();

    CBatchOptions m_options;
    std::vector<CWorker> m_workers;
    std::map<unsigned long long, CBlockResult> m_finished;  // by number of the block
    unsigned long long m_nSubmitted = 0;
    unsigned long long m_nTaken = 0;
};
