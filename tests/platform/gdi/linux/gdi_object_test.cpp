// What objects tell of themselves inside of the drawing layer.
#include "platform/gdi/linux/context/gdi_object.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

struct CDeletions : CObjectListener
{
    void ObjectDeleted(const CHandleObject& object) override { m_deleted.push_back(&object); }
    std::vector<const CHandleObject*> m_deleted;
};

}  // namespace

TEST(HandleObjects, RecordersHearOfDeletions)
{
    CDeletions deletions;
    HBRUSH hWindow = GetSysColorBrush(COLOR_WINDOW);
    EXPECT_TRUE(DeleteObject(hWindow));
    EXPECT_EQ(deletions.m_deleted, std::vector<const CHandleObject*>{ ObjectFromHandle(hWindow) });
}

// The interface promises nothing for what is deleted while it is selected. Here it serves on.
TEST(HandleObjects, ADeletedOneServesUntilItIsNoLongerSelected)
{
    CClientDC dc(nullptr);
    HDC hDC = dc;
    LOGFONTA lf = FontOf("Arial", -50);
    HFONT hFont = CreateFontIndirectA(&lf);
    HGDIOBJ hOld = SelectObject(hDC, hFont);
    int nSaved = SaveDC(hDC);
    SelectObject(hDC, hOld);
    EXPECT_TRUE(DeleteObject(hFont));
    EXPECT_EQ(GetObjectType(hFont), OBJ_FONT) << "the saved state holds it";
    EXPECT_TRUE(RestoreDC(hDC, nSaved));
    SIZE size{};
    GetTextExtentPoint32A(hDC, "x", 1, &size);
    EXPECT_EQ(size.cy, 56);  // 45 + 11
    EXPECT_EQ(SelectObject(hDC, hOld), hFont);
    EXPECT_EQ(GetObjectType(hFont), 0u);
    EXPECT_FALSE(DeleteObject(hFont));
    EXPECT_EQ(SelectObject(hDC, hFont), nullptr);
    EXPECT_EQ(GetObjectA(hFont, sizeof lf, &lf), 0);
}

TEST(HandleObjects, SavedStatesAndContextsThatAreDroppedLetGo)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    const LOGFONTA lf = FontOf("Arial", -50);
    HFONT hFont = CreateFontIndirectA(&lf), hLast = CreateFontIndirectA(&lf);
    dc.SaveDC();
    HGDIOBJ hOld = SelectObject(dc, hFont);
    dc.SaveDC();
    SelectObject(dc, hOld);
    DeleteObject(hFont);
    EXPECT_EQ(GetObjectType(hFont), OBJ_FONT);
    dc.RestoreDC(1);
    EXPECT_EQ(GetObjectType(hFont), 0u);
    SelectObject(dc, hLast);
    DeleteObject(hLast);
    EXPECT_EQ(GetObjectType(hLast), OBJ_FONT);
    dc.DeleteDC();
    EXPECT_EQ(GetObjectType(hLast), 0u);
}

TEST(HandleObjects, FillingKeepsABrushThatWasDeletedWhileSelected)
{
    CMemoryPicture picture(2, 2);
    HBRUSH hBrush = CreateSolidBrush(0x123456);
    HGDIOBJ hOld = SelectObject(picture, hBrush);
    DeleteObject(hBrush);
    const RECT rect{ 0, 0, 1, 1 };
    FillRect(picture, &rect, GetSysColorBrush(COLOR_WINDOW));
    EXPECT_EQ(SelectObject(picture, hOld), hBrush);
    EXPECT_EQ(GetObjectType(hBrush), 0u);
}

TEST(HandleObjects, UnknownKindsAndTooSmallBuffersAreRefused)
{
    EXPECT_EQ(GetSysColorBrush(21), nullptr);
    EXPECT_EQ(CreateHatchBrush(HS_BDIAGONAL + 1, 0), nullptr);
    char chSmall = 0;
    EXPECT_EQ(GetObjectA(GetStockObject(SYSTEM_FONT), 1, &chSmall), 0);
}
