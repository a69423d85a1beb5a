// A process that works for this one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "batch/batch_job.h"
#include "batch/byte_pipe.h"

class CWorkerProcess : public CBytePipe
{
public:
    // Starts it; it lives as Work() says. Throws CFailure.
    explicit CWorkerProcess(const CBatchOptions& options);
    // Ends it.
    ~CWorkerProcess() override;
    CWorkerProcess(const CWorkerProcess&) = delete;
    CWorkerProcess& operator=(const CWorkerProcess&) = delete;

    bool Write(const void* pData, std::size_t nSize) override;
    bool Read(void* pData, std::size_t nSize) override;
    bool IsEnded() override;

    // Lets it end behind the line at hand.
    void CloseInput();

    // Closes the pipes, waits for the end of the process and tells how it came. Once.
    std::string End();

    // Waits until one of them has something to read, or has gone, and gives those that have.
    static std::vector<CWorkerProcess*> WaitForAny(const std::vector<CWorkerProcess*>& processes);

private:
    struct CNative;
    std::unique_ptr<CNative> m_pNative;  // null: ended
};
