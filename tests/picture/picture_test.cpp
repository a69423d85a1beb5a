// Pictures as bytes: the library's metafile, any tree, and a formula on a host's own device.
#include "picture/picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "native/effort.h"
#include "nodes/node.h"
#include "nodes/random_tree.h"
#include "platform/base/code_page.h"
#include "platform/gdi/memory_picture.h"
#include "service/metafile_comment.h"
#include "service/service_helpers.h"

namespace
{
using CPictureTest = CServiceTest;

const CPictureFormat& Format(const char* pszName)
{
    return *FindPictureFormat(pszName);
}

TEST_F(CPictureTest, MetafilesAreTheLibrarysFiles)
{
    CFormulaOut written;  // painting leaves widths of fonts in a tree: each has one of its own
    CFormulaOut made;
    written.FormTree("sqr(x+1)/2");
    made.FormTree("sqr(x+1)/2");
    ASSERT_TRUE(written.WriteFormulaToWMF(File("x.wmf")));
    EXPECT_TRUE(MakePicture(made, Format("emf"), {}).strBytes == ReadWhole(File("x.wmf")));
}

// The comment of the process is as before, and apostrophes at the end come back.
TEST_F(CPictureTest, MetafilesCarryTheSourceWhenAsked)
{
    CFormulaOut formula;
    formula.FormTree("a");
    g_strMetaComment = "kept";
    for (const char* pszSource : { "a/b", "a'", "''", "abc'", "\xC3\xA4" })
    {
        CPictureOptions options;
        options.strSource = pszSource;
        WriteWhole(File("x.wmf"), MakePicture(formula, Format("wmf"), options).strBytes);
        EXPECT_EQ(g_strMetaComment, CString("kept"));
        ASSERT_TRUE(formula.ReadFormulaFromWMF(File("x.wmf")));
        EXPECT_EQ(Windows1252ToUtf8(formula.m_strFormula.View()), pszSource);
        g_strMetaComment = "kept";
    }
}

TEST_F(CPictureTest, AnyTreeHasAPictureOrAReason)
{
    for (unsigned nSeed = 0; nSeed < std::max(120 * TEST_EFFORT / 100, 12U); ++nSeed)
    {
        CRandomTree random(nSeed, { 30, nSeed % 3 == 0 });
        CFormulaOut formula;
        formula.m_Tree.SetRootNode(random.GetRoot());
        for (const CPictureFormat& format : PictureFormats())
        {
            CPictureOptions options;
            options.bBoxes = nSeed % 2 == 0;
            options.bTransparent = nSeed % 5 == 0;
            if (format.pfnMake == nullptr || (format.bLook && nSeed % 3 == 0 && nSeed % 4 != 0))
                continue;  // absurd sizes are slow to draw
            try
            {
                EXPECT_FALSE(MakePicture(formula, format, options).strBytes.empty());
            }
            catch (const CPictureFailure& failure)
            {
                EXPECT_FALSE(failure.strReason.empty());
            }
        }
        formula.m_Tree.SetRootNode(nullptr);  // not its own
    }
}

TEST_F(CPictureTest, AHostsGroundStays)
{
    constexpr COLORREF s_crGround = RGB(1, 2, 3);
    const CRect all(0, 0, 80, 50);
    CFormulaOut formula;
    formula.FormTree("f(x)/2");
    CPictureOptions red;
    red.colour = RGB(255, 0, 0);
    for (const bool bAsPicture : { false, true })
    {
        const CMemoryPicture canvas(all.right, all.bottom);
        CDC* pDC = CDC::FromHandle(canvas);
        pDC->FillSolidRect(&all, s_crGround);
        pDC->SetTextColor(RGB(9, 9, 9));
        formula.m_Tree.SetSelectionMode(static_cast<int>(PF_NO_FILL));
        if (bAsPicture)
            DrawPicture(pDC, CPoint(8, 9), formula, red);
        else
            formula.DrawTree(pDC, CRect(8, 9, 0, 0));
        int nGround = 0;
        int nInk = 0;
        for (const COLORREF colour : canvas.Colours())
        {
            EXPECT_NE(colour, GetSysColor(COLOR_WINDOW));
            nGround += colour == s_crGround ? 1 : 0;
            nInk += colour == (bAsPicture ? *red.colour : 0U) ? 1 : 0;
        }
        EXPECT_GT(nGround, all.right * all.bottom / 2);
        EXPECT_GT(nInk, 10);
        EXPECT_EQ(pDC->GetTextColor(), bAsPicture ? RGB(9, 9, 9) : 0U);
    }
}

// Pixel by pixel, with a selection, where no node wipes away a part of another.
TEST_F(CPictureTest, OnAHostItLooksAsTheTreePaintsItself)
{
    constexpr CPoint s_corner(16, 8);
    CPictureOptions white;
    white.background = GetSysColor(COLOR_WINDOW);
    for (const char* pszText : { "a/b", "sqr(x)+abs(y)", "(2-n)/(greek a+3)", "2<=x" })
    {
        for (const int nMode : { 0, 1, 2 })
        {
            CFormulaOut formula;
            formula.FormTree(pszText);
            formula.m_Tree.SetSelection(formula.m_Tree.GetRootNode()->GetLeft(), nMode);
            const CMemoryPicture tree(200, 80);
            formula.DrawTree(CDC::FromHandle(tree), CRect(s_corner, CSize(0, 0)));
            const CMemoryPicture picture(200, 80);
            DrawPicture(CDC::FromHandle(picture), s_corner, formula, white);
            EXPECT_TRUE(picture.Colours() == tree.Colours()) << pszText << nMode;
        }
    }
}

TEST_F(CPictureTest, TooLargeIsAReason)
{
    // Format, letters of 8 pixels, resolution, margin; whether there is a picture.
    const std::tuple<const char*, int, int, int, bool> aLengths[] = {
        { "png", 4000, 96, 0, true },      { "png", 9000, 96, 0, false },
        { "png", 1, 96, 10000, false },    { "bmp", 9000, 96, 0, false },
        { "svg", 9000, 96, 0, true },      { "svg", 60000, 2400, 0, false },
        { "svg", 60000, 60000, 0, false },  // beyond the numbers of the layout too
        { "pdf", 1190, 192, 0, true },      // nearly 14,400 points
        { "pdf", 1201, 192, 0, false },
    };
    CFormulaOut formula;
    CPictureOptions options;
    for (const auto& [pszFormat, nLetters, nDpi, nMargin, bMade] : aLengths)
    {
        const CPictureFormat& format = Format(pszFormat);
        if (format.pfnMake == nullptr)
            continue;
        formula.FormTree(CString('a', nLetters));
        options.nDpi = nDpi;
        options.nMargin = nMargin;
        const auto make = [&]
        {
            return MakePicture(formula, format, options).size.nWidth;
        };
        SCOPED_TRACE(testing::Message() << pszFormat << ' ' << nLetters);
        if (bMade)
        {
            EXPECT_EQ(make() / nLetters, 8 * nDpi / SCREEN_DPI);
        }
        else
        {
            EXPECT_THROW(make(), CPictureFailure);
        }
    }
    formula.FormTree(CString('a', 60000));
    options.nDpi = 60000;
    EXPECT_THROW(MeasurePicture(formula, options), CPictureFailure);
}
}  // namespace
