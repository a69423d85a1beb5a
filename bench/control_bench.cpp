// What gestures cost in the window in memory.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <string>

#include "control/memory/scripted_memory_window.h"
#include "service/formula_out.h"

namespace
{
// A sum of fractions, with the node of its first numerator selected.
class CEditedFormula
{
public:
    explicit CEditedFormula(int nNodes) : m_Window(m_Clipboard, CSize(800, 600))
    {
        std::string strText = "a/b";
        for (int n = 4; n + 4 <= nNodes; n += 4)  // four nodes a term, and the root
            strText += "+a/b";
        m_Formula.FormTree(strText.c_str());
        m_Window.GetControl().SetTree(&m_Formula.m_Tree);
        m_Window.Start();
        m_Window.GetControl().OnLButtonDown(CPoint(8, 8));
        m_Window.Settle();
    }

    CMemoryClipboard m_Clipboard;
    CFormulaOut m_Formula;
    CMemoryWindow m_Window;
};

// One character typed into the open editor: measured, painted, the box moved.
void Keystroke(benchmark::State& state)
{
    CEditedFormula edited(static_cast<int>(state.range(0)));
    edited.m_Window.SendKeyDown({ 'A', false, false });
    bool bType = true;
    for (auto _ : state)
    {
        edited.m_Window.SendChar(bType ? 'x' : VK_BACK);
        edited.m_Window.Settle();
        bType = !bType;
    }
    state.counters["paints"] = edited.m_Window.GetPaintCount();
}
BENCHMARK(Keystroke)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

// A move within one node, a press on what is selected, a key without a meaning.
void EventWithoutEffect(benchmark::State& state)
{
    CEditedFormula edited(static_cast<int>(state.range(0)));
    CFormulaControl& control = edited.m_Window.GetControl();
    control.OnMouseMove(0, CPoint(8, 8));
    const int nPaints = edited.m_Window.GetPaintCount();
    for (auto _ : state)
    {
        control.OnMouseMove(0, CPoint(8, 9));
        control.OnLButtonDown(CPoint(8, 8));
        edited.m_Window.SendKeyDown({ VK_DOWN, false, false });
        edited.m_Window.Settle();
    }
    if (edited.m_Window.GetPaintCount() != nPaints)
        state.SkipWithError("an event without effect was painted");
}
BENCHMARK(EventWithoutEffect)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);

// Leaves the formula as large as it was.
constexpr const char* s_apszScript[] = {
    "move 8 8", "press 8 8",  "release 8 8", "press 8 8",    "release 8 8",  "char 65",
    "char 13",  "double 8 8", "key 32",      "copy",         "key 46",       "paste",
    "all",      "key 37",     "key 38",      "wheel -120",   "vscroll 1",    "size 200 100",
    "move 9 9", "move 40 8",  "over 8 8",    "size 300 200", "press 250 50", "readonly 0",
};

// Events a second, with the line that tells the state after each.
void Script(benchmark::State& state)
{
    CFormulaOut formula;
    formula.FormTree("(a+b)/sqr(x)=sum(i,i=1,n)");
    CMemoryClipboard clipboard;
    CMemoryWindow window(clipboard, CSize(300, 200));
    window.GetControl().SetTree(&formula.m_Tree);
    window.Start();
    CScriptedMemoryWindow control(window, clipboard);
    size_t nTold = 0;
    for (auto _ : state)
    {
        size_t nNext = 0;
        CScriptPlayer(
            control,
            [&]() -> std::optional<CScriptEvent>
            {
                return nNext < std::size(s_apszScript) ? ParseScriptEvent(s_apszScript[nNext++])
                                                       : std::nullopt;
            },
            [&](const std::string& strState) { nTold += strState.size(); })
            .Play();
    }
    benchmark::DoNotOptimize(nTold);
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(std::size(s_apszScript)));
}
BENCHMARK(Script)->Unit(benchmark::kMicrosecond);
}  // namespace
