// The BMP file of a formula, bitmaps packed for it, and printing through one.
#include "platform/base/system.h"
#include "platform/gdi/memory_picture.h"
#include "service/service_helpers.h"

namespace
{
using CBitmapTest = CServiceTest;

constexpr size_t s_nHead = 14 + 40;  // of the file and of the bitmap

// Offsets in the file, and what stands there.
using CFields = std::vector<std::pair<size_t, DWORD>>;
void ExpectFields(const std::string& strFile, const CFields& fields)
{
    EXPECT_EQ(strFile.substr(0, 2), "BM");
    for (const auto& [nOffset, nValue] : fields)
        EXPECT_EQ(GetDword(strFile, nOffset), nValue) << nOffset;
}

TEST_F(CBitmapTest, WritesABmpOfTheFormulasSize)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    ASSERT_EQ(formula.m_Tree.WriteBitmapFile(File("x.bmp")), 1);
    const std::string strFile = ReadWhole(File("x.bmp"));
    const size_t nPixels = static_cast<size_t>(rect.Width() * rect.Height());
    ASSERT_EQ(strFile.size(), s_nHead + nPixels * 4);
    ExpectFields(strFile, { { 2, static_cast<DWORD>(strFile.size()) },
                            { 6, 0 },
                            { 10, s_nHead },
                            { 14, 40 },
                            { 18, static_cast<DWORD>(rect.Width()) },
                            { 22, static_cast<DWORD>(rect.Height()) },
                            { 26, 1 | 32 << 16 },  // planes, bits
                            { 30, 0 } });
    // White in the corner, ink somewhere.
    EXPECT_EQ(GetDword(strFile, s_nHead) & 0xFFFFFF, 0xFFFFFFU);
    size_t nInk = 0;
    for (size_t n = 0; n < nPixels; ++n)
        nInk += (GetDword(strFile, s_nHead + 4 * n) & 0xFFFFFF) < 0x808080 ? 1 : 0;
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
    ASSERT_EQ(strFile.size(), s_nHead + 8 + 4);
    ExpectFields(strFile, { { 10, s_nHead + 8 }, { 18, 1 }, { 26, 1 | 1 << 16 } });
}

TEST_F(CBitmapTest, PacksBitmapsOfEveryDepth)
{
    CBinTree tree;
    for (const auto& [nBits, nColours] : { std::pair(1U, 2U), std::pair(32U, 0U) })
    {
        SCOPED_TRACE(nBits);
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateBitmap(5, 3, 1, nBits, nullptr));
        HANDLE hDib = tree.BitmapToDIB(&bitmap, BI_RGB, nullptr);
        ASSERT_NE(hDib, nullptr);
        EXPECT_EQ(GlobalSize(hDib), 40 + 4 * nColours + 3 * ((5 * nBits + 31) / 32 * 4));
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
    const CMemoryPicture plain(rect.Width(), rect.Height());
    formula.DrawTree(CDC::FromHandle(plain), CRect(0, 0, 0, 0));
    ASSERT_GT(plain.Inked().Height(), 20);
    const CMemoryPicture printed(rect.Width(), rect.Height());
    EXPECT_EQ(formula.PrintDDB(CDC::FromHandle(printed)), 1);
    EXPECT_EQ(printed.Colours(), plain.Colours());

    CBinTree empty;
    EXPECT_EQ(empty.PrintBitmap(CDC::FromHandle(printed)), 1);
    EXPECT_EQ(printed.Colours(), plain.Colours());
}
}  // namespace
