// Bitmaps as PNG files.
#include "platform/gdi/linux/bitmap.h"

#include "platform/gdi/memory_picture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <span>
#include <vector>

namespace
{

using CBytes = std::vector<BYTE>;

TEST(Bitmaps, AreWrittenAsPng)
{
    CMemoryPicture picture(3, 2, 1);
    CBytes file;
    EXPECT_TRUE(WriteBitmapPng(picture.Bitmap(),
                               [&](std::span<const BYTE> bytes)
                               {
                                   file.insert(file.end(), bytes.begin(), bytes.end());
                                   return true;
                               }));
    const BYTE aSignature[] = { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
    ASSERT_GT(file.size(), 40u);
    EXPECT_EQ(std::memcmp(file.data(), aSignature, sizeof aSignature), 0);
    EXPECT_EQ(file[19], 3);
    EXPECT_EQ(file[23], 2);
    EXPECT_FALSE(WriteBitmapPng(picture.Bitmap(), [](std::span<const BYTE>) { return false; }));
    EXPECT_THROW(WriteBitmapPng(picture.Bitmap(),
                                [](std::span<const BYTE>) -> bool { throw std::bad_alloc(); }),
                 std::bad_alloc);
    EXPECT_FALSE(WriteBitmapPng(nullptr, [](std::span<const BYTE>) { return true; }));
}
}  // namespace
