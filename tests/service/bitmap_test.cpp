#include "platform/base/system.h"
#include "platform/gdi/dc.h"
#include "service/canvas.h"
#include "service/service_helpers.h"

namespace
{
using CBitmapTest = CServiceTest;

std::int32_t SignedAt(const std::string& strBytes, size_t nOffset)
{
    return static_cast<std::int32_t>(NumberAt(strBytes, nOffset));
}

CRect ScreenRect(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    return formula.GetFormulaRect(&screen);
}

TEST_F(CBitmapTest, WritesABmpOfTheFormulasSize)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    ASSERT_EQ(formula.m_Tree.WriteBitmapFile(File("x.bmp")), 1);
    const std::string strFile = ReadWhole(File("x.bmp"));
    const size_t nPixels = static_cast<size_t>(rect.Width() * rect.Height());
    ASSERT_EQ(strFile.size(), 14 + 40 + nPixels * 4);
    EXPECT_EQ(strFile.substr(0, 2), "BM");
    EXPECT_EQ(NumberAt(strFile, 2), strFile.size());
    EXPECT_EQ(NumberAt(strFile, 6), 0U);
    EXPECT_EQ(NumberAt(strFile, 10), 54U);
    EXPECT_EQ(NumberAt(strFile, 14), 40U);
    EXPECT_EQ(SignedAt(strFile, 18), rect.Width());
    EXPECT_EQ(SignedAt(strFile, 22), rect.Height());
    EXPECT_EQ(NumberAt(strFile, 26), 1U | 32U << 16);
    EXPECT_EQ(NumberAt(strFile, 30), 0U);
    // White in the corner, ink somewhere.
    EXPECT_EQ(NumberAt(strFile, 54) & 0xFFFFFF, 0xFFFFFFU);
    size_t nInk = 0;
    for (size_t n = 0; n < nPixels; ++n)
        nInk += (NumberAt(strFile, 54 + 4 * n) & 0xFFFFFF) < 0x808080 ? 1 : 0;
    EXPECT_GT(nInk, 20U);
    EXPECT_LT(nInk, nPixels / 4);

    ASSERT_EQ(formula.m_Tree.WriteBitmapFile(File("y.bmp")), 1);
    EXPECT_EQ(ReadWhole(File("y.bmp")), strFile);
}

// A bitmap of no size is one of 1 by 1 with one bit: two colours, a row of four bytes.
TEST_F(CBitmapTest, AnEmptyTreeIsOneMonochromePixel)
{
    CBinTree tree;
    ASSERT_EQ(tree.WriteBitmapFile(File("x.bmp")), 1);
    const std::string strFile = ReadWhole(File("x.bmp"));
    EXPECT_EQ(strFile.size(), 14U + 40 + 8 + 4);
    EXPECT_EQ(NumberAt(strFile, 10), 62U);
    EXPECT_EQ(SignedAt(strFile, 18), 1);
    EXPECT_EQ(NumberAt(strFile, 26), 1U | 1U << 16);
}

TEST_F(CBitmapTest, PacksBitmapsOfEveryDepth)
{
    const struct
    {
        int nBits;
        SIZE_T nColours;
    } aCases[] = { { 1, 2 }, { 32, 0 } };
    CBinTree tree;
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.nBits);
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateBitmap(5, 3, 1, static_cast<UINT>(c.nBits), nullptr));
        HANDLE hDib = tree.BitmapToDIB(&bitmap, BI_RGB, nullptr);
        ASSERT_NE(hDib, nullptr);
        const SIZE_T nRow = static_cast<SIZE_T>((5 * c.nBits + 31) / 32 * 4);
        EXPECT_EQ(GlobalSize(hDib), 40 + 4 * c.nColours + 3 * nRow);
        GlobalFree(hDib);
        EXPECT_EQ(tree.BitmapToDIB(&bitmap, BI_BITFIELDS, nullptr), nullptr);
    }
}

// A device of the screen's resolution gets the picture as it is.
TEST_F(CBitmapTest, PrintsWhatItDraws)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    CCanvas plain(rect.Width(), rect.Height());
    formula.DrawTree(&plain.m_dc, CRect(0, 0, 0, 0));
    ASSERT_GT(plain.Inked().Height(), 20);
    CCanvas printed(rect.Width(), rect.Height());
    EXPECT_EQ(formula.PrintDDB(&printed.m_dc), 1);
    EXPECT_EQ(printed.Pixels(), plain.Pixels());

    CBinTree empty;
    EXPECT_EQ(empty.PrintBitmap(&printed.m_dc), 1);
    EXPECT_EQ(printed.Pixels(), plain.Pixels());
}
}  // namespace
