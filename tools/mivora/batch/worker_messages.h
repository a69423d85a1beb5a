// What a batch and its workers say to each other.
#pragma once

#include <string>
#include <vector>

#include "batch/batch_job.h"
#include "batch/byte_pipe.h"

// Lines that go to a worker together.
struct CBlock
{
    unsigned long long nFirstLine = 1;
    std::vector<std::string> astrLines;
};

// The block without its first nSkip lines. False if the other side has gone.
bool SendBlock(CBytePipe& pipe, const CBlock& block, size_t nSkip = 0);
// The answer to one line of a block.
bool ReceiveResult(CBytePipe& pipe, CLineResult& result);

// Texts travel with their length in front, in the byte order of the machine.
void AppendText(std::string& strMessage, const std::string& strText);
bool ReceiveText(CBytePipe& pipe, std::string& strText);

// The life of a worker: draws what it is sent until the sender closes the pipe, also within a
// block.
void Work(CBytePipe& pipe, const CBatchOptions& options);
