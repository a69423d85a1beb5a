// What hosts do to a control at awkward moments, and what other programs put on the clipboard.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <tuple>

#include "archived.h"
#include "control/control_driver.h"
#include "control/in_place_edit.h"
#include "control/memory/memory_edit_box.h"
#include "nodes/node.h"
#include "tree/tree_form.h"

namespace
{

constexpr const char* s_pszEdited = "press @LL;key 88;char 89";  // a+b becomes XY+b, still open

TEST(Hosts, AnotherTreeEndsTheEdit)
{
    CControlDriver driver("a+b");
    driver.Play(s_pszEdited);
    CBinTree other;
    driver.Control().SetTree(&other);
    EXPECT_EQ(driver.NodeAt("LL")->GetSymbol(), "XY");
    EXPECT_EQ(driver.NodeAt("LL")->GetFlags() & NF_HIDDEN, 0U);
    EXPECT_EQ(driver.m_Window.GetBox(), nullptr);
    EXPECT_EQ(driver.m_Window.GetChangeCount(), 1);
    driver.Control().SetTree(&driver.Tree());
}

TEST(Hosts, ATreeDiesBeforeTheWindowWithItsEditorOpen)
{
    CMemoryClipboard clipboard;
    CMemoryWindow window(clipboard, CSize(100, 100));
    CControlDriver driver("a+b");
    window.GetControl().SetTree(&driver.Tree());
    window.Start();
    driver.Tree().SetSelection(driver.NodeAt("LL"), 1);
    window.SendKeyDown({ 'X', false, false });
    ASSERT_NE(window.GetBox(), nullptr);
}

// Codes of keys and characters that a host may open the editor with, over the name "ab".
TEST(Hosts, FirstCharacters)
{
    const std::tuple<UINT, const char*, int, int> aCases[] = {
        { EDIT_KEEP_ARROWS, "ab", 2, 2 }, { VK_BACK, "a", 1, 1 },     { VK_TAB, "ab", 0, 2 },
        { VK_RETURN, "ab", 2, 2 },        { VK_SPACE, "ab", 0, 2 },   { VK_HOME, "ab", 0, 2 },
        { VK_DOWN, "ab", 0, 2 },          { VK_DOWN + 1, ")", 1, 1 }, { 'X', "X", 1, 1 },
    };
    for (const auto& [nFirstChar, pszText, nStart, nEnd] : aCases)
    {
        CControlDriver driver("ab");
        CMemoryEditBox box(driver.m_Window, driver.NodeAt("L"), nFirstChar);
        box.Open(CRect(0, 0, 10, 10));
        std::pair<int, int> selection;
        box.GetSel(selection.first, selection.second);
        EXPECT_EQ(box.GetString(), pszText) << nFirstChar;
        EXPECT_EQ(selection, std::pair(nStart, nEnd)) << nFirstChar;
    }
}

// The node under the editor gives way, after it has taken the text.
TEST(Hosts, PastesUnderAnOpenEditor)
{
    CControlDriver driver("a+b");
    driver.Play("press @LR;copy;press @LL;key 88;char 89");
    ASSERT_NE(driver.m_Window.GetBox(), nullptr);
    EXPECT_TRUE(
        driver.Control().PasteData(driver.NodeAt("LL"), *driver.m_Window.AttachClipboard()));
    EXPECT_EQ(driver.m_Window.GetBox(), nullptr);
    EXPECT_EQ(driver.m_Window.GetChangeCount(), 1);
    EXPECT_EQ(driver.NodeAt("LL")->GetSymbol(), "b");
}

TEST(Hosts, AHandlerChangesTheTree)
{
    // Deletes what is selected, from within the message that tells of an end or a deletion.
    for (const char* pszScript : { "press @LL;key 88;char 13", "press @LL;key 46", s_pszEdited })
    {
        CControlDriver driver("a+b");
        driver.m_Window.m_pfnNotify = [&](int)
        {
            driver.Control().DeleteSelection();
        };
        driver.Play(pszScript);
        driver.m_Window.Blur();
        EXPECT_EQ(driver.NodeAt("LL")->GetTypeName(), "NT_PLACEHOLDER") << pszScript;
        EXPECT_EQ(BrokenRule(driver), "") << pszScript;
    }
    CControlDriver driver("a+b");
    driver.m_Window.m_pfnNotify = [&](int)
    {
        driver.Control().SetTree(nullptr);
    };
    driver.Play(s_pszEdited);
    driver.m_Window.Blur();
    EXPECT_EQ(driver.NodeAt("LL")->GetSymbol(), "XY");
    driver.m_Window.Settle();
    driver.Control().SetTree(&driver.Tree());
}

TEST(Hosts, ATreeThatChangesDuringADrag)
{
    CControlDriver driver("a+b");
    driver.Play("press @LL");
    driver.m_Window.m_pfnDrag = [&](CTransferData&)
    {
        driver.Tree().ReplaceByNewNode(driver.NodeAt("L"), "NT_PLACEHOLDER");
        return DROPEFFECT_MOVE;
    };
    driver.Control().OnMouseMove(MK_LBUTTON, CPoint(30, 10));
    EXPECT_EQ(driver.Tree().GetSelection(), nullptr);
    EXPECT_EQ(driver.NodeAt("L")->GetTypeName(), "NT_PLACEHOLDER");
}

TEST(Hosts, AHoveredNodeThatIsGone)
{
    CControlDriver driver("a+b");
    driver.Play("move @LL");
    driver.Tree().ReplaceByNewNode(driver.NodeAt("L"), "NT_NUMBER");
    driver.Control().OnMouseMove(0, CPoint(200, 100));
    EXPECT_EQ(driver.Control().m_pHoverNode, driver.Tree().GetRootNode());
}

TEST(Hosts, WithoutATree)
{
    CControlDriver driver("a+b");
    driver.Play("press @LL;move @LR");
    CFormulaControl& control = driver.Control();
    control.SetTree(nullptr);
    for (const char* pszEvent : { "move 3 3 left", "press 3 3", "release 3 3", "double 3 3",
                                  "key 65", "key 46", "key 86 ctrl", "all", "cut", "copy", "paste",
                                  "delete", "wheel 120", "size 20 20", "paint" })
    {
        driver.m_Scripted.Send(*ParseScriptEvent(pszEvent));
        driver.m_Window.Settle();
    }
    EXPECT_EQ(driver.m_Scripted.DragOver(0, CPoint(3, 3)), DROPEFFECT_NONE);
    EXPECT_EQ(driver.m_Scripted.DragEnter(0, CPoint(3, 3)), DROPEFFECT_NONE);
    EXPECT_FALSE(driver.m_Scripted.Drop(DROPEFFECT_MOVE, CPoint(3, 3)));
    EXPECT_EQ(control.GetMeasuredRect(), CRect());
    control.SetTree(&driver.Tree());
}

TEST(Hosts, APlaceholderThatIsTheRoot)
{
    const CBoxedPlaceholders boxed;
    CControlDriver driver(nullptr);
    driver.Tree().CreateRootNode("NT_PLACEHOLDER");
    driver.m_Clipboard.Set({ 1, 2, 3 });
    EXPECT_EQ(driver.Last("all;paste;key 65;key 86 ctrl;over 3 3;drop 3 3", ANSWER), "FALSE");
    EXPECT_EQ(driver.Last("delete;key 46;cut", TREE), "(PLACEHOLDER \"\" - -)");
    EXPECT_EQ(BrokenRule(driver), "");
}

TEST(Hosts, TheClipboardHoldsTheArchiveOfATree)
{
    CControlDriver driver("a/b+c");
    driver.Play("press @LL;copy");
    const std::vector<BYTE>* pBytes = driver.m_Clipboard.Get();
    ASSERT_NE(pBytes, nullptr);
    const std::string strBytes(pBytes->begin(), pBytes->end());
    CBinTree tree;
    EXPECT_EQ(Load(tree, strBytes), 0U);
    EXPECT_EQ(tree.m_rectFormula, CRect(0, 0, 50, 20)) << "that of a new tree";
    EXPECT_EQ(tree.GetName(), "");
    EXPECT_STREQ(TreeForm(tree.GetRootNode()), TreeForm(driver.NodeAt("LL")));
}

TEST(Hosts, WhatChangesNothingPaintsNothing)
{
    CControlDriver driver("a+b");
    driver.Play("press @LL;release @LL");
    const int nPaints = driver.m_Window.GetPaintCount();
    driver.Play(
        "move @LL;move @LR;move @LR;press @LL;key 40;key 37;key 90 ctrl;key 13;char 65;"
        "copy;wheel 10;vscroll 8;hscroll 6;blur;size 300 200;enter 5 5;leave");
    EXPECT_EQ(driver.m_Window.GetPaintCount(), nPaints);
    driver.Play("press @LR;key 88");
    const int nOpened = driver.m_Window.GetPaintCount();
    driver.Play("key 46;key 36;char 8;key 35;char 127");
    EXPECT_EQ(driver.m_Window.GetPaintCount(), nOpened);
}

// Keeps what the control asks for: e and k for an invalidation that erases or keeps what is there,
// s and n for a position that is to be shown or not.
class CWatchedWindow : public CMemoryWindow
{
public:
    using CMemoryWindow::CMemoryWindow;
    void Invalidate(bool bErase) override
    {
        m_strAsked += bErase ? 'e' : 'k';
        CMemoryWindow::Invalidate(bErase);
    }
    std::string m_strAsked;

private:
    void SetScrollPosition(int /*nBar*/, int /*nPos*/, BOOL bRedraw) override
    {
        m_strAsked += bRedraw ? 's' : 'n';
    }
};

TEST(Hosts, WindowsAreAskedToEraseOrNot)
{
#define FIRST "all;key 37;key 37;"  // the letter a
    const std::tuple<const char*, const char*, const char*> aCases[] = {
        { "", "press 5 8", "k" },
        { "", "release 5 8", "k" },
        { "", "double 5 8", "k" },
        { "", "all", "e" },
        { "", "readonly 1", "e" },
        { "all;key 37", "key 39", "e" },
        { "all;key 37", "key 32", "e" },
        { FIRST, "key 46", "e" },
        { FIRST, "delete", "e" },
        { FIRST, "cut", "e" },
        { FIRST "copy;key 46", "paste", "e" },
        { FIRST "key 88", "char 89", "e" },
        { FIRST "key 88", "char 13", "kk" },  // the control's own, and that of the box that goes
        { "", "vscroll 1", "se" },
        { "", "hscroll 4 1", "se" },
        { "", "hscroll 8", "" },
    };
#undef FIRST
    for (const auto& [pszBefore, pszEvent, pszAsked] : aCases)
    {
        CControlDriver driver("a+b");
        CWatchedWindow window(driver.m_Clipboard, CSize(300, 200));
        window.GetControl().SetTree(&driver.Tree());
        window.Start();
        CScriptedMemoryWindow scripted(window, driver.m_Clipboard);
        std::istringstream events(std::string(pszBefore) + ';' + pszEvent);
        for (std::string strLine; std::getline(events, strLine, ';');)
        {
            window.m_strAsked.clear();
            if (!strLine.empty())
                scripted.Send(*ParseScriptEvent(strLine));
            window.Settle();
        }
        EXPECT_EQ(window.m_strAsked, pszAsked) << pszBefore << pszEvent;
    }
}

// A window that decides anew at each call, whatever has become of its client area.
class CEndlessWindow : public CMemoryWindow
{
public:
    using CMemoryWindow::CMemoryWindow;
    int m_nDeepest = 0;

private:
    void EnableScrollBarCtrl(int /*nBar*/, BOOL /*bShow*/) override
    {
        m_nDeepest = std::max(m_nDeepest, ++m_nDepth);
        GetControl().RecalcScrollBars();
        --m_nDepth;
    }
    int m_nDepth = 0;
};

TEST(Hosts, DecisionsWithinEachOtherAreCutOff)
{
    CControlDriver driver("(a/b)/(c/d)");
    CEndlessWindow window(driver.m_Clipboard, CSize(300, 50));
    window.GetControl().SetTree(&driver.Tree());
    window.Start();
    EXPECT_EQ(window.m_nDeepest, 16);
    EXPECT_TRUE(window.GetControl().IsVBarOn());
    EXPECT_FALSE(window.GetControl().IsHBarOn());
}

// Hosts are built with them; those that scripts carry are met in the gestures.
TEST(Hosts, NumbersStayWhatTheyAre)
{
    const std::pair<std::int64_t, std::int64_t> aNumbers[] = {
        { FCN_CHANGED, -106 },
        { FORMULA_EDIT_ID, 8 },
        { DEFAULT_WHEEL_LINES, 3 },
        { SB_BOTH, 3 },
        { WHEEL_PAGESCROLL, 0xFFFFFFFF },
        { SB_PAGEDOWN, 3 },
        { SB_THUMBTRACK, 5 },
        { MK_LBUTTON, 1 },
        { MK_CONTROL, 8 },
        { VK_PRIOR, 33 },
    };
    for (const auto& [nNumber, nExpected] : aNumbers)
        EXPECT_EQ(nNumber, nExpected);
}

}  // namespace
