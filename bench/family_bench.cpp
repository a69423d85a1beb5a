// Families of formulas that grow: the time per node must not grow with them.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <string>
#include <vector>

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "formulas.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"

namespace
{
struct CFamily
{
    const char* pszName;
    const char* pszOpen;   // once for each level
    const char* pszInner;  // once, in the middle
    const char* pszClose;  // once for each level
    int nLargest;
};

constexpr CFamily s_aFamilies[] = {
    // name          open       inner  close  largest
    { "fractions", "1/(1+", "x", ")", 1024 }, { "roots", "sqr(1+", "x", ")", 1024 },
    { "brackets", "abs(1+", "x", ")", 1024 }, { "powers", "a^(1+", "x", ")", 1024 },
    { "sums", "a+", "x", "", 8192 },
};

std::string Text(const CFamily& family, int nLevels)
{
    std::string text;
    for (int n = 0; n < nLevels; ++n)
        text += family.pszOpen;
    text += family.pszInner;
    for (int n = 0; n < nLevels; ++n)
        text += family.pszClose;
    return text;
}

void CountPerNode(benchmark::State& state, CFormulaOut& formula)
{
    state.counters["per_node"] = benchmark::Counter(
        CountNodes(formula.m_Tree.GetRootNode()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// A formula of a family, and what is measured of it.
class CParseAndMeasure
{
public:
    CParseAndMeasure(const CFamily& family, int nLevels) : m_text(Text(family, nLevels).c_str())
    {
        Run();
    }
    void Run() { m_formula.FormTree(m_text); }
    CFormulaOut& Formula() { return m_formula; }

private:
    CString m_text;
    CFormulaOut m_formula;
};

class CMetafile
{
public:
    CMetafile(const CFamily& family, int nLevels) : m_hScreen(GetDC(nullptr))
    {
        m_formula.FormTree(Text(family, nLevels).c_str());
    }
    ~CMetafile() { ReleaseDC(nullptr, m_hScreen); }
    CMetafile(const CMetafile&) = delete;
    CMetafile& operator=(const CMetafile&) = delete;

    void Run()
    {
        const RECT frame = { 0, 0, 20000, 5000 };
        CMetaFileDC dc;
        dc.Attach(CreateEnhMetaFileA(m_hScreen, nullptr, &frame, nullptr));
        dc.SetAttribDC(m_hScreen);
        m_formula.DrawTree(&dc, CRect(0, 0, 0, 0));
        DeleteEnhMetaFile(dc.CloseEnhanced());
    }
    CFormulaOut& Formula() { return m_formula; }

private:
    HDC m_hScreen;
    CFormulaOut m_formula;
};

template <std::string (*Write)(const CNode*)>
class CWrittenForm
{
public:
    CWrittenForm(const CFamily& family, int nLevels)
    {
        m_formula.FormTree(Text(family, nLevels).c_str());
    }
    void Run() { benchmark::DoNotOptimize(Write(m_formula.m_Tree.GetRootNode())); }
    CFormulaOut& Formula() { return m_formula; }

private:
    CFormulaOut m_formula;
};

template <class CJob>
void TimePerNode(benchmark::State& state, const CFamily& family)
{
    CJob job(family, static_cast<int>(state.range(0)));
    for (auto _ : state)
        job.Run();
    CountPerNode(state, job.Formula());
    state.SetComplexityN(state.range(0));
}

// Processor time of one run. The run before fills the caches with what this job needs.
template <class CJob>
double TimeWarmRun(CJob& job)
{
    job.Run();
    const std::clock_t nStart = std::clock();
    job.Run();
    return static_cast<double>(std::clock() - nStart);
}

// The power of n with which the time grows at a doubling. Half and whole take turns, and each turn
// gives a power of its own: the drift of the clock speed does not reach their median.
template <class CJob>
void Growth(benchmark::State& state, const CFamily& family)
{
    const int nLevels = static_cast<int>(state.range(0));
    CJob half(family, nLevels / 2);
    CJob whole(family, nLevels);
    std::vector<double> growths;
    for (auto _ : state)
    {
        const double dBefore = TimeWarmRun(half);
        const double dWhole = TimeWarmRun(whole);
        const double dAfter = TimeWarmRun(half);
        growths.push_back(std::log2(2 * dWhole / (dBefore + dAfter)));
    }
    const auto median = growths.begin() + static_cast<std::ptrdiff_t>(growths.size() / 2);
    std::nth_element(growths.begin(), median, growths.end());
    state.counters["growth"] = *median;
}

template <class CJob>
void Register(const CFamily& family, const char* pszJob)
{
    const std::string name = std::string(family.pszName) + "/" + pszJob;
    benchmark::RegisterBenchmark(name.c_str(), TimePerNode<CJob>, family)
        ->RangeMultiplier(2)
        ->Range(1, family.nLargest)
        ->Complexity();
    benchmark::RegisterBenchmark((name + "/growth").c_str(), Growth<CJob>, family)
        ->Arg(family.nLargest / 2)
        ->Arg(family.nLargest)
        ->MinTime(2);
}

const bool s_bRegistered = []
{
    for (const CFamily& family : s_aFamilies)
    {
        Register<CParseAndMeasure>(family, "parse_and_measure");
        Register<CMetafile>(family, "metafile");
        Register<CWrittenForm<MathMLText>>(family, "mathml");
        Register<CWrittenForm<LatexText>>(family, "latex");
        Register<CWrittenForm<SpokenText>>(family, "words");
    }
    return true;
}();
}  // namespace
