// Archives per node beside a plain copy of the same bytes, and a checkpoint beside drawing.
#include <benchmark/benchmark.h>

#include <string>

#include "formulas.h"
#include "platform/base/archive.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"

namespace
{
constexpr UINT s_nGrowBytes = 32768;

void FormSum(CFormulaOut& formula, benchmark::State& state)
{
    std::string text = "x";
    for (auto n = state.range(0); n > 0; --n)
        text += n % 2 == 0 ? "+a" : "+a/2";
    formula.FormTree(text.c_str());
}

void Store(CBinTree& tree, CMemFile& file)
{
    file.SeekToBegin();
    CArchive ar(&file, CArchive::store);
    tree.Serialize(ar);
    ar.Close();
}

void CountPerNode(benchmark::State& state, CFormulaOut& formula, const CMemFile& file)
{
    state.counters["per_node"] = benchmark::Counter(
        CountNodes(formula.m_Tree.GetRootNode()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.GetLength()));
    state.SetComplexityN(state.range(0));
}

void ArchiveSave(benchmark::State& state)
{
    CFormulaOut formula;
    FormSum(formula, state);
    CMemFile file(s_nGrowBytes);
    for (auto _ : state)
        Store(formula.m_Tree, file);
    CountPerNode(state, formula, file);
}
BENCHMARK(ArchiveSave)->RangeMultiplier(4)->Range(16, 16384)->Complexity();

// Making the nodes, formatting them and deleting those of the round before are part of it.
void ArchiveLoad(benchmark::State& state)
{
    CFormulaOut formula;
    FormSum(formula, state);
    CMemFile file(s_nGrowBytes);
    Store(formula.m_Tree, file);
    CBinTree loaded;
    for (auto _ : state)
    {
        file.SeekToBegin();
        CArchive ar(&file, CArchive::load);
        loaded.Serialize(ar);
        ar.Close();
    }
    CountPerNode(state, formula, file);
}
BENCHMARK(ArchiveLoad)->RangeMultiplier(4)->Range(16, 16384)->Complexity();

void ArchivePlainCopy(benchmark::State& state)
{
    CFormulaOut formula;
    FormSum(formula, state);
    CMemFile file(s_nGrowBytes);
    Store(formula.m_Tree, file);
    CMemFile copy(s_nGrowBytes);
    for (auto _ : state)
    {
        copy.SeekToBegin();
        copy.Write(file.GetData(), static_cast<UINT>(file.GetLength()));
    }
    CountPerNode(state, formula, file);
}
BENCHMARK(ArchivePlainCopy)->RangeMultiplier(4)->Range(16, 16384)->Complexity();

constexpr char s_szFortyCharacters[] = "int(exp(-x^2/2),x,0,1)=sqr(a+b)/(c-2*d)";

void CheckPoint(benchmark::State& state)
{
    CFormulaOut formula;
    formula.FormTree(s_szFortyCharacters);
    for (auto _ : state)
        formula.m_Tree.CheckPoint();
}
BENCHMARK(CheckPoint);

void DrawBesideCheckPoint(benchmark::State& state)
{
    CFormulaOut formula;
    formula.FormTree(s_szFortyCharacters);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    bitmap.CreateBitmap(400, 100, 1, 32, nullptr);
    CBitmap* pOld = dc.SelectObject(&bitmap);
    for (auto _ : state)
        formula.DrawTree(&dc, CRect(0, 0, 400, 100));
    dc.SelectObject(pOld);
}
BENCHMARK(DrawBesideCheckPoint);
}  // namespace
