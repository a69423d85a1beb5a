// Numbers and texts as bytes of a pipe, in the order of this machine: both ends run on it.
#include "batch/worker_messages.h"

#include <cstdint>

namespace
{
struct CBlockHead
{
    std::uint64_t nFirstLine;
    std::uint64_t nLines;
};

// The whole block is read before the first result is written: neither side can wait for the other
// with a full pipe.
bool ReceiveBlock(CBytePipe& pipe, CBlock& block)
{
    CBlockHead head;
    if (!pipe.Read(&head, sizeof head))
        return false;
    block.nFirstLine = head.nFirstLine;
    block.astrLines.assign(head.nLines, std::string());
    for (std::string& strLine : block.astrLines)
    {
        if (!ReceiveText(pipe, strLine))
            return false;
    }
    return true;
}

bool SendResult(CBytePipe& pipe, const CLineResult& result)
{
    std::string strMessage(1, static_cast<char>(result.nOutcome));
    AppendText(strMessage, result.strMessage);
    strMessage.append(reinterpret_cast<const char*>(&result.size), sizeof result.size);
    return pipe.Write(strMessage.data(), strMessage.size());
}
}  // namespace

void AppendText(std::string& strMessage, const std::string& strText)
{
    const std::uint64_t nSize = strText.size();
    strMessage.append(reinterpret_cast<const char*>(&nSize), sizeof nSize);
    strMessage += strText;
}

bool ReceiveText(CBytePipe& pipe, std::string& strText)
{
    std::uint64_t nSize = 0;
    if (!pipe.Read(&nSize, sizeof nSize))
        return false;
    strText.resize(nSize);
    return pipe.Read(strText.data(), nSize);
}

bool SendBlock(CBytePipe& pipe, const CBlock& block, size_t nSkip)
{
    const CBlockHead head = { block.nFirstLine + nSkip, block.astrLines.size() - nSkip };
    std::string strMessage(reinterpret_cast<const char*>(&head), sizeof head);
    for (size_t n = nSkip; n < block.astrLines.size(); ++n)
        AppendText(strMessage, block.astrLines[n]);
    return pipe.Write(strMessage.data(), strMessage.size());
}

bool ReceiveResult(CBytePipe& pipe, CLineResult& result)
{
    unsigned char nOutcome = OUTCOME_DONE;
    if (!pipe.Read(&nOutcome, sizeof nOutcome) || !ReceiveText(pipe, result.strMessage) ||
        !pipe.Read(&result.size, sizeof result.size))
        return false;
    result.nOutcome = static_cast<EOutcome>(nOutcome);
    return true;
}

void Work(CBytePipe& pipe, const CBatchOptions& options)
{
    CFormulaOut formula;
    CBlock block;
    bool bHeard = true;
    while (bHeard && ReceiveBlock(pipe, block))
    {
        unsigned long long nLine = block.nFirstLine;
        for (const std::string& strLine : block.astrLines)
        {
            bHeard = bHeard && !pipe.IsEnded() &&
                     SendResult(pipe, DrawLine(formula, strLine, nLine++, options));
        }
    }
}
