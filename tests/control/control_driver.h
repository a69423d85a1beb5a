// A formula control in the window in memory, driven by scripts in which places can be named.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control/memory/scripted_memory_window.h"
#include "service/formula_out.h"

// Fields of a state line.
enum EField
{
    TREE,
    SELECTION,
    HOVER,
    DRAG,
    EDITOR,
    BARS,
    COUNTS,
    ANSWER
};

struct CFieldText
{
    int nField = TREE;  // or one behind these, of a state that has more
    const char* pszText = nullptr;
};

// The node that the letters L and R lead to from the root; null where they lead to nothing.
CNode* NodeAt(CBinTree& tree, std::string_view strPath);

class CControlDriver
{
public:
    // Null: a tree without a root.
    explicit CControlDriver(const char* pszText, CSize size = CSize(300, 200),
                            UINT nWheelLines = DEFAULT_WHEEL_LINES);

    // Plays the events of a script, which line breaks or semicolons part, and gives the states:
    // that at the beginning and one for each event. A word @PATH stands for the two coordinates of
    // the middle of a node's own part, where it is at that moment. onState follows each state.
    std::vector<std::string> Play(const std::string& strScript,
                                  const std::function<void()>& onState = {});

    // One field of the last state.
    std::string Last(const std::string& strScript, EField nField);

    CFormulaControl& Control() { return m_Window.GetControl(); }
    CBinTree& Tree() { return m_Formula.m_Tree; }
    CNode* NodeAt(std::string_view strPath) { return ::NodeAt(Tree(), strPath); }

    CFormulaOut m_Formula;
    CMemoryClipboard m_Clipboard;
    CMemoryWindow m_Window;
    CScriptedMemoryWindow m_Scripted;
    std::vector<CScriptEvent> m_Events;  // that were played last, places put in

private:
    std::string WithPlaces(const std::string& strLine);
};

// Placeholders with an area while it lives: those of the default sizes are drawn beside their
// place, where no mouse finds them.
class CBoxedPlaceholders
{
public:
    explicit CBoxedPlaceholders(bool bBoxed = true) : m_bBoxed(bBoxed) { Negate(); }
    ~CBoxedPlaceholders() { Negate(); }
    CBoxedPlaceholders(const CBoxedPlaceholders&) = delete;
    CBoxedPlaceholders& operator=(const CBoxedPlaceholders&) = delete;

private:
    void Negate() const;

    const bool m_bBoxed;
};

std::string FieldOf(const std::string& strState, int nField);

// Empty, or what is wrong with tree, selection, hover, editor or frames.
std::string BrokenRule(CControlDriver& driver);
