// Archives against bytes written by hand, in both directions, and damaged ones.
#include "platform/base/archive.h"

#include <gtest/gtest.h>

#include <string>

#include "archived.h"

namespace
{
using namespace std::string_view_literals;

constexpr int s_nNothing = -1;  // no cause: nothing was thrown

// What the steps store, with buffers of every kind of size.
template <class F>
void ExpectStored(std::string_view expected, F steps)
{
    for (const int nBuffer : { 0, 1, 130, 4096 })
        EXPECT_EQ(StoredBy(steps, nBuffer), expected) << nBuffer;
}

// The bytes are of a text, or refused with the cause.
void ExpectLoaded(std::string_view bytes, int nCause, std::string_view expected = {})
{
    const std::string followed = std::string(bytes) + (nCause == s_nNothing ? "rest" : "");
    CString text;
    ULONGLONG nLeft = 4;
    const auto load = [&]
    {
        nLeft = LoadBy(followed, [&](CArchive& ar) { ar >> text; });
    };
    EXPECT_EQ(CauseOf(load), nCause) << ::testing::PrintToString(bytes);
    EXPECT_EQ(text.View(), expected);
    EXPECT_EQ(nLeft, 4U) << "what was read ahead is given back";
}
}  // namespace

TEST(Archive, NumbersAreLittleEndian)
{
    const auto expect = [](auto value, std::string_view bytes)
    {
        // Many, so that a buffer ends inside of one.
        std::string many = "a";
        for (int i = 0; i < 60; ++i)
            many += bytes;
        ExpectStored(many,
                     [=](CArchive& ar)
                     {
                         ar << 'a';
                         for (int i = 0; i < 60; ++i)
                             ar << value;
                     });
        decltype(value) read{};
        const auto load = [&](CArchive& ar)
        {
            char first = 0;
            ar >> first;
            for (int i = 0; i < 60; ++i)
            {
                ar >> read;
                EXPECT_EQ(read, value);
            }
            EXPECT_EQ(CauseOf([&] { ar >> read; }), CArchiveException::endOfFile);
        };
        EXPECT_EQ(LoadBy(many, load, 128), 0U);
    };
    expect(static_cast<BYTE>(0x81), "\x81"sv);
    expect(static_cast<WORD>(0x1234), "\x34\x12"sv);
    expect(static_cast<short>(-2), "\xFE\xFF"sv);
    expect(static_cast<DWORD>(0x12345678), "\x78\x56\x34\x12"sv);
    expect(-1, "\xFF\xFF\xFF\xFF"sv);
    expect(static_cast<ULONGLONG>(0x0123456789ABCDEF), "\xEF\xCD\xAB\x89\x67\x45\x23\x01"sv);
    expect(true, "\x01"sv);
    expect(1.5F, "\x00\x00\xC0\x3F"sv);
    expect(-2.5, "\x00\x00\x00\x00\x00\x00\x04\xC0"sv);
    expect('z', "z"sv);
}

TEST(Archive, TextsHaveThreeFormsOfLength)
{
    const std::pair<std::size_t, std::string_view> aCases[] = {
        { 0, "\x00"sv },
        { 1, "\x01"sv },
        { 130, "\x82"sv },  // as long as one of the buffers
        { 254, "\xFE"sv },
        { 255, "\xFF\xFF\x00"sv },
        { 0xFFFD, "\xFF\xFD\xFF"sv },
        { 0xFFFE, "\xFF\xFF\xFF\xFE\xFF\x00\x00"sv },
        { 200000, "\xFF\xFF\xFF\x40\x0D\x03\x00"sv },
    };
    for (const auto& [nLength, head] : aCases)
    {
        std::string text(nLength, 'x');
        if (nLength > 1)
        {
            text[1] = '\0';
            text.back() = '\xE4';
        }
        const std::string bytes = std::string(head) + text;
        ExpectStored(bytes, [&](CArchive& ar)
                     { ar << CString(text.data(), static_cast<int>(text.size())); });
        ExpectLoaded(bytes, s_nNothing, text);
    }
}

TEST(Archive, TextOfTwoBytesACharacterIsConverted)
{
    ExpectLoaded("\xFF\xFE\xFF\x03\x61\0\xAC\x20\x01\x04"sv, s_nNothing, "a\x80?");
    ExpectLoaded("\xFF\xFE\xFF\x00"sv, s_nNothing);
    std::string bytes = "\xFF\xFE\xFF\xFF\x2C\x01";  // 300 characters
    for (int i = 0; i < 300; ++i)
        bytes += std::string("\xE4\0", 2);
    ExpectLoaded(bytes, s_nNothing, std::string(300, '\xE4'));
}

TEST(Archive, DamagedTextsAreRefused)
{
    for (const std::string_view bytes :
         { ""sv, "\5abcd"sv, "\xFF"sv, "\xFF\x00"sv, "\xFF\xFF\xFF\x00\x00"sv,
           "\xFF\xFF\xFF\xFE\xFF\xFF\xFF\x61\x62"sv,  // 4 GB announced
           "\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\xFF\xFF\x61\x62"sv, "\xFF\xFE\xFF\x02\x61\x00\x62"sv })
        ExpectLoaded(bytes, CArchiveException::endOfFile);
    for (const std::string_view bytes :
         { "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x61\x62"sv, "\xFF\xFE\xFF\xFF\xFE\xFF\x01\x61\x00"sv })
        ExpectLoaded(bytes, CArchiveException::badIndex);
}

TEST(Archive, WrongDirectionHasItsCause)
{
    BYTE aBytes[] = { 1, 2 };
    CMemFile file(aBytes, 2);
    CArchive loading(&file, CArchive::load);
    CMemFile target;
    CArchive storing(&target, CArchive::store);
    BYTE nByte = 0;
    CString text("x");
    loading >> nByte;
    EXPECT_EQ(CauseOf([&] { loading << nByte; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { loading << text; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { loading.Write(&nByte, 1); }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { storing >> nByte; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf([&] { storing >> text; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf([&] { storing.Read(&nByte, 1); }), CArchiveException::writeOnly);
    loading >> nByte;
    EXPECT_EQ(nByte, 2);
    storing.Close();
    EXPECT_EQ(CauseOf([&] { storing << nByte; }), CArchiveException::genericException);
    EXPECT_EQ(target.GetLength(), 0U);
}

TEST(Archive, BlocksPassTheBufferInAnySize)
{
    std::string bytes;
    for (int i = 0; i < 20000; ++i)
        bytes += static_cast<char>(i * 7 + i / 256);
    CMemFile file(1);
    const auto inPieces = [&](UINT nMode, auto step)
    {
        file.SeekToBegin();
        CArchive ar(&file, nMode, 128);
        const UINT aSizes[] = { 1, 3, 127, 128, 129, 4095, 4096, 4097, 0, 5000, 10 };
        for (std::size_t nDone = 0, i = 0; nDone < bytes.size(); ++i)
        {
            const UINT n = std::min<UINT>(aSizes[i % 11], static_cast<UINT>(bytes.size() - nDone));
            step(ar, nDone, n);
            nDone += n;
        }
    };
    inPieces(CArchive::store,
             [&](CArchive& ar, std::size_t nPlace, UINT n) { ar.Write(bytes.data() + nPlace, n); });
    ASSERT_EQ(BytesOf(file), bytes);
    std::string read(bytes.size(), '\0');
    inPieces(CArchive::load, [&](CArchive& ar, std::size_t nPlace, UINT n)
             { ASSERT_EQ(ar.Read(read.data() + nPlace, n), n); });
    EXPECT_EQ(read, bytes);

    CArchive ar(&file, CArchive::load, 128);
    EXPECT_EQ(ar.Read(read.data(), 1), 0U);
    ar.Flush();
    file.Seek(-3, CFile::end);
    EXPECT_EQ(ar.Read(read.data(), 5), 3U);
    EXPECT_EQ(CauseOf([&] { ar.EnsureRead(read.data(), 1); }), CArchiveException::endOfFile);
}

TEST(Archive, EndsWithoutWritingWhenSomethingIsThrown)
{
    CMemFile file;
    const auto store = [&](UINT nMode, bool bThrow)
    {
        CArchive ar(&file, nMode);
        ar << 1;
        if (bThrow)
            throw 7;
    };
    EXPECT_THROW(store(CArchive::store, true), int);
    store(CArchive::store | CArchive::bNoFlushOnDelete, false);
    EXPECT_EQ(file.GetLength(), 0U);
    store(CArchive::store, false);
    EXPECT_EQ(file.GetLength(), 4U);

    BYTE aRoom[6];
    CMemFile tight(aRoom, sizeof(aRoom));  // cannot grow
    CArchive ar(&tight, CArchive::store, 128);
    ar << 1 << 2;
    EXPECT_THROW(ar.Close(), CMemoryException*);
}
