// Families of formulas that grow: the time per node must not grow with them.
#include <benchmark/benchmark.h>

#include <string>

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

void ParseAndMeasure(benchmark::State& state, const CFamily& family)
{
    const CString text = Text(family, static_cast<int>(state.range(0))).c_str();
    CFormulaOut formula;
    for (auto _ : state)
        formula.FormTree(text);
    CountPerNode(state, formula);
    state.SetComplexityN(state.range(0));
}

void Metafile(benchmark::State& state, const CFamily& family)
{
    const CString text = Text(family, static_cast<int>(state.range(0))).c_str();
    CFormulaOut formula;
    formula.FormTree(text);
    const RECT frame = { 0, 0, 20000, 5000 };
    HDC hScreen = GetDC(nullptr);
    for (auto _ : state)
    {
        CMetaFileDC dc;
        dc.Attach(CreateEnhMetaFileA(hScreen, nullptr, &frame, nullptr));
        dc.SetAttribDC(hScreen);
        formula.DrawTree(&dc, CRect(0, 0, 0, 0));
        DeleteEnhMetaFile(dc.CloseEnhanced());
    }
    ReleaseDC(nullptr, hScreen);
    CountPerNode(state, formula);
    state.SetComplexityN(state.range(0));
}

const bool s_bRegistered = []
{
    for (const CFamily& family : s_aFamilies)
    {
        const std::string name = family.pszName;
        benchmark::RegisterBenchmark((name + "/parse_and_measure").c_str(), ParseAndMeasure, family)
            ->RangeMultiplier(2)
            ->Range(1, family.nLargest)
            ->Complexity();
        benchmark::RegisterBenchmark((name + "/metafile").c_str(), Metafile, family)
            ->RangeMultiplier(2)
            ->Range(1, family.nLargest)
            ->Complexity();
    }
    return true;
}();
}  // namespace
