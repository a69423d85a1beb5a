// Time per formula, stage by stage, over the shared formulas: from the parse to a file on disk.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "formulas.h"
#include "mivora/mivora_c.h"
#include "nodes/node.h"
#include "picture/picture.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"

namespace
{
using CFormulaList = std::vector<std::unique_ptr<CFormulaOut>>;

CFormulaList FormedFormulas()
{
    CFormulaList list;
    for (const std::string& text : Formulas())
    {
        list.push_back(std::make_unique<CFormulaOut>());
        list.back()->FormTree(text.c_str());
    }
    return list;
}

// A folder of its own that is gone with the object.
class CScratchFolder
{
public:
    CScratchFolder() { std::filesystem::create_directory(m_path); }
    ~CScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    std::string File(const char* pszName) const { return (m_path / pszName).string(); }

private:
    std::filesystem::path m_path =
        std::filesystem::temp_directory_path() / ("mivora-bench-" + std::to_string(getpid()));
};

// Reports the time of one formula beside the time of a whole round.
void CountFormulas(benchmark::State& state)
{
    state.counters["per_formula"] = benchmark::Counter(
        static_cast<double>(Formulas().size()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Parse(benchmark::State& state)
{
    CBinTree tree;
    CFormulaParser parser;
    parser.m_pTree = &tree;
    std::vector<CString> texts;
    for (const std::string& text : Formulas())
        texts.emplace_back(text.c_str());
    for (auto _ : state)
    {
        for (const CString& text : texts)
        {
            WORD wPosition = 0;
            CString strMessage;
            parser.Parse(text, &wPosition, &strMessage);
            delete parser.m_pResult;
        }
    }
    CountFormulas(state);
}
BENCHMARK(Parse);

void ParseAndMeasure(benchmark::State& state)
{
    CFormulaOut formula;
    std::vector<CString> texts;
    for (const std::string& text : Formulas())
        texts.emplace_back(text.c_str());
    for (auto _ : state)
    {
        for (const CString& text : texts)
            formula.FormTree(text);
    }
    CountFormulas(state);
}
BENCHMARK(ParseAndMeasure);

// Writes every formula in another form; Parse tells what that may cost.
void WriteInForm(benchmark::State& state, std::string (*pfnWrite)(const CNode*))
{
    const CFormulaList list = FormedFormulas();
    for (auto _ : state)
    {
        for (const auto& formula : list)
            benchmark::DoNotOptimize(pfnWrite(formula->m_Tree.GetRootNode()));
    }
    CountFormulas(state);
}
BENCHMARK_CAPTURE(WriteInForm, MathML, MathMLText);
BENCHMARK_CAPTURE(WriteInForm, LaTeX, LatexText);
BENCHMARK_CAPTURE(WriteInForm, Words, SpokenText);

void PaintOnBitmap(benchmark::State& state)
{
    const CFormulaList list = FormedFormulas();
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    bitmap.CreateBitmap(1200, 200, 1, 32, nullptr);
    CBitmap* pOld = dc.SelectObject(&bitmap);
    for (auto _ : state)
    {
        for (const auto& formula : list)
            formula->DrawTree(&dc, CRect(0, 0, 1200, 200));
    }
    dc.SelectObject(pOld);
    CountFormulas(state);
}
BENCHMARK(PaintOnBitmap);

void MetafileInMemory(benchmark::State& state)
{
    const CFormulaList list = FormedFormulas();
    const RECT frame = { 0, 0, 20000, 5000 };
    HDC hScreen = GetDC(nullptr);
    for (auto _ : state)
    {
        for (const auto& formula : list)
        {
            CMetaFileDC dc;
            dc.Attach(CreateEnhMetaFileA(hScreen, nullptr, &frame, "Formula\0Image\0"));
            dc.SetAttribDC(hScreen);
            formula->DrawTree(&dc, CRect(0, 0, 0, 0));
            DeleteEnhMetaFile(dc.CloseEnhanced());
        }
    }
    ReleaseDC(nullptr, hScreen);
    CountFormulas(state);
}
BENCHMARK(MetafileInMemory);

void MetafileOnDisk(benchmark::State& state)
{
    const CFormulaList list = FormedFormulas();
    const CScratchFolder folder;
    const std::string path = folder.File("formula.wmf");
    for (auto _ : state)
    {
        for (const auto& formula : list)
            formula->WriteFormulaToWMF(path.c_str());
    }
    unlink(path.c_str());
    CountFormulas(state);
}
BENCHMARK(MetafileOnDisk);

// A picture as the command line makes it, at 96 dots per inch, without the file.
void PictureInMemory(benchmark::State& state, const char* name)
{
    const CFormulaList list = FormedFormulas();
    const CPictureFormat& format = *FindPictureFormat(name);
    size_t bytes = 0;
    for (auto _ : state)
    {
        bytes = 0;
        for (const auto& formula : list)
        {
            CPictureOptions options;
            options.strSource = options.strTitle = formula->m_strFormula.GetString();
            bytes += MakePicture(*formula, format, options).strBytes.size();
        }
    }
    CountFormulas(state);
    state.counters["bytes"] = static_cast<double>(bytes) / static_cast<double>(list.size());
}
BENCHMARK_CAPTURE(PictureInMemory, Svg, "svg");
BENCHMARK_CAPTURE(PictureInMemory, Png, "png");
BENCHMARK_CAPTURE(PictureInMemory, Pdf, "pdf");

// From the text to a picture: in C++, and by the C interface. bench/python_bench.py has the same
// rows.
void FormAndDraw(benchmark::State& state, const char* name)
{
    const CPictureFormat& format = *FindPictureFormat(name);
    for (auto _ : state)
    {
        for (const std::string& text : Formulas())
        {
            CFormulaOut formula;
            formula.FormTree(text.c_str());
            CPictureOptions options;
            options.strSource = formula.m_strFormula.GetString();
            options.strTitle = SpokenText(formula.m_Tree.GetRootNode());
            benchmark::DoNotOptimize(MakePicture(formula, format, options));
        }
    }
    CountFormulas(state);
}
BENCHMARK_CAPTURE(FormAndDraw, Svg, "svg");
BENCHMARK_CAPTURE(FormAndDraw, Png, "png");

void FormAndDrawInC(benchmark::State& state, const char* name)
{
    for (auto _ : state)
    {
        for (const std::string& text : Formulas())
        {
            mivora_formula* pFormula = nullptr;
            char* pBytes = nullptr;
            size_t nSize = 0;
            if (mivora_formula_from_text(text.data(), text.size(), nullptr, &pFormula) !=
                    MIVORA_OK ||
                mivora_formula_picture(pFormula, name, nullptr, &pBytes, &nSize, nullptr) !=
                    MIVORA_OK)
                state.SkipWithError("a call failed");
            mivora_free(pBytes);
            mivora_formula_free(pFormula);
        }
    }
    CountFormulas(state);
}
BENCHMARK_CAPTURE(FormAndDrawInC, Svg, "svg");
BENCHMARK_CAPTURE(FormAndDrawInC, Png, "png");

std::string ReadWhole(const std::string& path)
{
    std::string bytes;
    if (FILE* pFile = std::fopen(path.c_str(), "rb"))
    {
        char buffer[4096];
        while (const size_t n = std::fread(buffer, 1, sizeof buffer, pFile))
            bytes.append(buffer, n);
        std::fclose(pFile);
    }
    return bytes;
}

// The floor under MetafileOnDisk: the same bytes to a temporary name, then the rename.
void BareWrite(benchmark::State& state)
{
    const CScratchFolder folder;
    const std::string path = folder.File("formula.wmf");
    const std::string temporary = folder.File("formula.tmp");
    std::vector<std::string> files;
    for (const auto& formula : FormedFormulas())
    {
        formula->WriteFormulaToWMF(path.c_str());
        files.push_back(ReadWhole(path));
    }
    for (auto _ : state)
    {
        for (const std::string& bytes : files)
        {
            const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (fd < 0 || write(fd, bytes.data(), bytes.size()) < 0)
                std::abort();
            close(fd);
            if (rename(temporary.c_str(), path.c_str()) != 0)
                std::abort();
        }
    }
    unlink(path.c_str());
    CountFormulas(state);
}
BENCHMARK(BareWrite);
}  // namespace
