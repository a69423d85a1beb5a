// batch: every line of a file into a file of its own.
#include <cstdio>
#include <nlohmann/json.hpp>

#include "batch/batch_job.h"
#include "batch/worker_pool.h"
#include "platform/base/file.h"
#include "report.h"
#include "system/interruption.h"
#include "system/output_file.h"
#include "system/system_calls.h"
#include "texts/text_input.h"
#include "words/arguments.h"

namespace
{
constexpr size_t s_nLinesInBlock = 64;
constexpr size_t s_nBytesInBlock = 65536;  // long lines make short blocks
constexpr int s_nBarWidth = 30;

// A bar on standard error where that is a terminal.
class CProgress
{
public:
    CProgress() : m_bShown(IsErrorTerminal()) {}
    ~CProgress() { Wipe(); }
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    void Show(const CLineReader& reader, unsigned long long nLines)
    {
        if (!m_bShown)
            return;
        if (reader.Size() == 0)
        {
            std::fprintf(stderr, "\r%llu lines", nLines);
        }
        else
        {
            const double fShare =
                static_cast<double>(reader.Taken()) / static_cast<double>(reader.Size());
            const int nFull = static_cast<int>(fShare * s_nBarWidth);
            const std::string strBar = std::string(static_cast<size_t>(nFull), '#') +
                                       std::string(static_cast<size_t>(s_nBarWidth - nFull), '.');
            std::fprintf(stderr, "\r[%s] %3d%%  %llu lines", strBar.c_str(),
                         static_cast<int>(fShare * 100), nLines);
        }
        m_bDirty = true;
    }

    // Clears the line for other words.
    void Wipe()
    {
        if (m_bDirty)
            std::fputs("\r\033[K", stderr);
        m_bDirty = false;
    }

private:
    bool m_bShown;
    bool m_bDirty = false;
};

// A line of JSON for each formula, in the order of the input.
class CManifest
{
public:
    // An empty path: there is none. Throws CFailure.
    explicit CManifest(const std::string& strPath) : m_strPath(strPath)
    {
        if (!m_strPath.empty())
            WriteOutput(m_strPath, "");  // before any work is done
    }

    void Add(unsigned long long nLine, const std::string& strText, const CLineResult& result,
             const CBatchOptions& options)
    {
        if (m_strPath.empty())
            return;
        const bool bMade = result.nOutcome != OUTCOME_FAILED;
        const bool bSize = bMade && result.size.nWidth > 0;
        nlohmann::ordered_json json;
        json["line"] = nLine;
        json["file"] = bMade ? nlohmann::ordered_json(FileNameOf(nLine, options)) : nullptr;
        json["text"] = strText;
        json["size"] = nullptr;
        json["depth"] = nullptr;
        if (bSize)
        {
            json["size"] = { result.size.nWidth, result.size.nHeight };
            json["depth"] = result.size.fDepth;
        }
        json["error"] = result.nOutcome == OUTCOME_DONE ? nlohmann::ordered_json(nullptr)
                                                        : nlohmann::ordered_json(result.strMessage);
        // What is no UTF-8 was refused, and is told with marks in its place.
        m_strLines += json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    }
    // Throws CFailure.
    void Finish()
    {
        if (!m_strPath.empty())
            WriteOutput(m_strPath, m_strLines);
    }

private:
    std::string m_strPath;
    std::string m_strLines;
};

class CBatch
{
public:
    CBatch(CLineReader& reader, const CBatchOptions& options, const std::string& strManifest)
        : m_reader(reader), m_options(options), m_manifest(strManifest)
    {
    }

    // Counts a result and tells what went wrong.
    void Add(unsigned long long nLine, const std::string& strText, const CLineResult& result)
    {
        m_manifest.Add(nLine, strText, result, m_options);
        (result.nOutcome == OUTCOME_FAILED ? m_nFailed : m_nDone) += 1;
        m_nSyntaxErrors += result.nOutcome == OUTCOME_SYNTAX_ERROR ? 1 : 0;
        m_bLeftOut = m_bLeftOut || result.nOutcome == OUTCOME_LEFT_OUT;
        if (result.nOutcome != OUTCOME_DONE)
        {
            m_progress.Wipe();
            Tell("line " + std::to_string(nLine) + ": " + result.strMessage);
        }
    }
    void Add(const CBlockResult& block)
    {
        unsigned long long nLine = block.nFirstLine;
        for (size_t n = 0; n < block.results.size(); ++n)
            Add(nLine++, block.astrLines[n], block.results[n]);
        ShowProgress();
    }
    void ShowProgress() { m_progress.Show(m_reader, m_nDone + m_nFailed); }

    int Finish(bool bStrict)
    {
        ShowProgress();
        m_progress.Wipe();
        m_manifest.Finish();
        std::printf("%llu done, %llu with syntax errors, %llu failed\n", m_nDone, m_nSyntaxErrors,
                    m_nFailed);
        return m_nFailed > 0 || (bStrict && (m_nSyntaxErrors > 0 || m_bLeftOut)) ? STATUS_FAILED
                                                                                 : STATUS_DONE;
    }

private:
    CLineReader& m_reader;
    const CBatchOptions& m_options;
    CManifest m_manifest;
    CProgress m_progress;
    unsigned long long m_nDone = 0;  // with syntax errors too
    unsigned long long m_nSyntaxErrors = 0;
    unsigned long long m_nFailed = 0;
    bool m_bLeftOut = false;
};

// One message, and not one for each line, where nothing can be written.
void CheckFolder(const std::string& strFolder)
{
    const std::string strProbe = strFolder + "/.mivora-batch";
    WriteOutput(strProbe, "");
    CFile::Remove(strProbe.c_str());
}

void DrawHere(CLineReader& reader, CBatch& batch, const CBatchOptions& options)
{
    CFormulaOut formula;
    std::string strLine;
    for (unsigned long long nLine = 1; reader.Next(strLine) && !IsInterrupted(); ++nLine)
    {
        batch.Add(nLine, strLine, DrawLine(formula, strLine, nLine, options));
        if (nLine % s_nLinesInBlock == 0)
            batch.ShowProgress();
    }
}

bool NextBlock(CLineReader& reader, CBlock& block)
{
    block.nFirstLine += block.astrLines.size();
    block.astrLines.clear();
    size_t nBytes = 0;
    std::string strLine;
    while (block.astrLines.size() < s_nLinesInBlock && nBytes < s_nBytesInBlock &&
           reader.Next(strLine))
    {
        nBytes += strLine.size();
        block.astrLines.push_back(strLine);
    }
    return !block.astrLines.empty();
}

void DrawElsewhere(int nJobs, CLineReader& reader, CBatch& batch, const CBatchOptions& options)
{
    CWorkerPool pool(nJobs, options);
    CBlock block;
    CBlockResult result;
    while (NextBlock(reader, block) && !IsInterrupted())
    {
        pool.Submit(block);
        while (pool.TakeResult(result, false))
            batch.Add(result);
    }
    while (pool.TakeResult(result, true))
        batch.Add(result);
}
}  // namespace

int RunBatch(const CArguments& arguments)
{
    const CBatchOptions options = BatchOptionsOf(arguments);
    CLineReader reader(*arguments.Operand());
    MakeFolder(options.strDirectory);
    CheckFolder(options.strDirectory);
    CBatch batch(reader, options, arguments.Value(OPT_MANIFEST));
    NoteInterruption();
    const int nJobs = arguments.Number(OPT_JOBS, 1);
    if (nJobs == 1)
        DrawHere(reader, batch, options);
    else
        DrawElsewhere(nJobs, reader, batch, options);
    const int nStatus = batch.Finish(arguments.Has(OPT_STRICT));
    return IsInterrupted() ? InterruptedStatus() : nStatus;
}
