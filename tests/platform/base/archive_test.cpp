// Archives against bytes written by hand, in both directions, and damaged ones.
#include "platform/base/archive.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/exception.h"

namespace
{
using namespace std::string_view_literals;

std::string Content(const CMemFile& file)
{
    return { reinterpret_cast<const char*>(file.GetData()),
             static_cast<std::size_t>(file.GetLength()) };
}

// A file that holds the bytes and cannot grow.
class CBytesFile : public CMemFile
{
public:
    explicit CBytesFile(std::string_view bytes)
        : CMemFile(reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data())),
                   static_cast<UINT>(bytes.size()))
    {
    }
};

template <class F>
int CauseOf(F body)
{
    try
    {
        body();
    }
    catch (CArchiveException* e)
    {
        const int nCause = e->m_cause;
        e->Delete();
        return nCause;
    }
    return CArchiveException::none;
}

// What the steps store, with buffers of every kind of size.
template <class F>
void ExpectStored(std::string_view expected, F steps)
{
    for (const int nBuffer : { 0, 1, 130, 4096 })
    {
        CMemFile file;
        CArchive ar(&file, CArchive::store, nBuffer);
        steps(ar);
        ar.Close();
        EXPECT_EQ(Content(file), expected) << nBuffer;
    }
}

CString LoadText(std::string_view bytes, ULONGLONG* pnPosition = nullptr)
{
    CBytesFile file(bytes);
    CString text;
    CArchive ar(&file, CArchive::load);
    ar >> text;
    ar.Close();
    if (pnPosition != nullptr)
        *pnPosition = file.GetPosition();
    return text;
}
}  // namespace

TEST(Archive, NumbersAreLittleEndian)
{
    const auto expect = [](auto value, std::string_view bytes)
    {
        ExpectStored(bytes, [=](CArchive& ar) { ar << value; });
        CBytesFile file(bytes);
        CArchive ar(&file, CArchive::load);
        decltype(value) read{};
        ar >> read;
        EXPECT_EQ(read, value);
        EXPECT_EQ(CauseOf([&] { ar >> read; }), CArchiveException::endOfFile);
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
    // The buffer ends inside of a number.
    std::string mixed;
    for (int i = 0; i < 60; ++i)
        mixed += "abbbb";
    ExpectStored(mixed,
                 [](CArchive& ar)
                 {
                     for (int i = 0; i < 60; ++i)
                         ar << 'a' << 0x62626262;
                 });
}

TEST(Archive, TextsHaveThreeFormsOfLength)
{
    const struct
    {
        std::size_t nLength;
        std::string_view head;
    } aCases[] = {
        { 0, "\x00"sv },
        { 1, "\x01"sv },
        { 130, "\x82"sv },  // as long as one of the buffers
        { 254, "\xFE"sv },
        { 255, "\xFF\xFF\x00"sv },
        { 0xFFFD, "\xFF\xFD\xFF"sv },
        { 0xFFFE, "\xFF\xFF\xFF\xFE\xFF\x00\x00"sv },
        { 200000, "\xFF\xFF\xFF\x40\x0D\x03\x00"sv },
    };
    for (const auto& c : aCases)
    {
        std::string text(c.nLength, 'x');
        if (c.nLength > 1)
        {
            text[1] = '\0';
            text.back() = '\xE4';
        }
        const std::string bytes = std::string(c.head) + text;
        ExpectStored(bytes, [&](CArchive& ar)
                     { ar << CString(text.data(), static_cast<int>(text.size())); });
        ULONGLONG nPosition = 0;
        EXPECT_EQ(LoadText(bytes + "rest", &nPosition).View(), text) << c.nLength;
        EXPECT_EQ(nPosition, bytes.size());  // what was read ahead is given back
    }
}

TEST(Archive, TextOfTwoBytesACharacterIsConverted)
{
    EXPECT_EQ(LoadText("\xFF\xFE\xFF\x03"
                       "a\0\xAC\x20\x01\x04"sv)
                  .View(),
              "a\x80?");
    EXPECT_EQ(LoadText("\xFF\xFE\xFF\x00"sv).View(), "");
    std::string bytes = "\xFF\xFE\xFF\xFF\x2C\x01";  // 300 characters
    for (int i = 0; i < 300; ++i)
        bytes += std::string("\xE4\0", 2);
    EXPECT_EQ(LoadText(bytes).View(), std::string(300, '\xE4'));
}

TEST(Archive, DamagedTextsAreRefused)
{
    const struct
    {
        int nCause;
        std::vector<std::string_view> texts;
    } aCases[] = {
        { CArchiveException::endOfFile,
          { ""sv, "\5abcd"sv, "\xFF"sv, "\xFF\x00"sv, "\xFF\xFF\xFF\x00\x00"sv,
            "\xFF\xFF\xFF\xFE\xFF\xFF\xFF\x61\x62"sv,  // 4 GB announced
            "\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\xFF\xFF\x61\x62"sv,
            "\xFF\xFE\xFF\x02\x61\x00\x62"sv } },
        { CArchiveException::badIndex,
          { "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x61\x62"sv, "\xFF\xFE\xFF\xFF\xFE\xFF\x01\x61\x00"sv } },
    };
    for (const auto& c : aCases)
    {
        for (const std::string_view bytes : c.texts)
        {
            EXPECT_EQ(CauseOf([&] { LoadText(bytes); }), c.nCause)
                << ::testing::PrintToString(bytes);
        }
    }
}

TEST(Archive, WrongDirectionHasItsCause)
{
    CBytesFile file("\x01\x02"sv);
    CArchive loading(&file, CArchive::load);
    CMemFile target;
    CArchive storing(&target, CArchive::store);
    BYTE nByte = 0;
    CString text("x");
    loading >> nByte;
    const std::pair<int, std::function<void()>> aCases[] = {
        { CArchiveException::readOnly,
          [&]
          {
              loading << nByte;
          } },
        { CArchiveException::readOnly,
          [&]
          {
              loading << text;
          } },
        { CArchiveException::readOnly,
          [&]
          {
              loading.Write(&nByte, 1);
          } },
        { CArchiveException::writeOnly,
          [&]
          {
              storing >> nByte;
          } },
        { CArchiveException::writeOnly,
          [&]
          {
              storing >> text;
          } },
        { CArchiveException::writeOnly,
          [&]
          {
              storing.Read(&nByte, 1);
          } },
        { CArchiveException::none,
          [&]
          {
              loading >> nByte;
          } },
        { CArchiveException::none,
          [&]
          {
              storing.Close();
          } },
        { CArchiveException::genericException,
          [&]
          {
              storing << nByte;
          } },
    };
    for (const auto& [nCause, step] : aCases)
        EXPECT_EQ(CauseOf(step), nCause);
    EXPECT_EQ(nByte, 2);
    EXPECT_EQ(target.GetLength(), 0U);
}

TEST(Archive, BlocksPassTheBufferInAnySize)
{
    std::string bytes;
    for (int i = 0; i < 20000; ++i)
        bytes += static_cast<char>(i * 7 + i / 256);
    const auto inPieces = [&](auto step)
    {
        const UINT aSizes[] = { 1, 3, 127, 128, 129, 4095, 4096, 4097, 0, 5000, 10 };
        for (std::size_t nDone = 0, i = 0; nDone < bytes.size(); ++i)
        {
            const UINT n = std::min<UINT>(aSizes[i % 11], static_cast<UINT>(bytes.size() - nDone));
            step(nDone, n);
            nDone += n;
        }
    };
    CMemFile file(1);
    CArchive storing(&file, CArchive::store, 128);
    inPieces([&](std::size_t nPlace, UINT n) { storing.Write(bytes.data() + nPlace, n); });
    storing.Close();
    ASSERT_EQ(Content(file), bytes);

    file.SeekToBegin();
    CArchive loading(&file, CArchive::load, 128);
    std::string read(bytes.size(), '\0');
    inPieces([&](std::size_t nPlace, UINT n)
             { ASSERT_EQ(loading.Read(read.data() + nPlace, n), n); });
    EXPECT_EQ(read, bytes);
    char aTail[5];
    EXPECT_EQ(loading.Read(aTail, 1), 0U);
    loading.Flush();
    file.Seek(-3, CFile::end);
    EXPECT_EQ(loading.Read(aTail, 5), 3U);
    EXPECT_EQ(CauseOf([&] { loading.EnsureRead(aTail, 1); }), CArchiveException::endOfFile);
}

TEST(Archive, EndsWithoutWritingWhenSomethingIsThrown)
{
    CMemFile file;
    const auto store = [&](UINT nMode, bool bThrow)
    {
        try
        {
            CArchive ar(&file, nMode);
            ar << 1;
            if (bThrow)
                throw 7;
        }
        catch (int)
        {
        }
        return file.GetLength();
    };
    EXPECT_EQ(store(CArchive::store, true), 0U);
    EXPECT_EQ(store(CArchive::store | CArchive::bNoFlushOnDelete, false), 0U);
    EXPECT_EQ(store(CArchive::store, false), 4U);

    BYTE aRoom[6];
    CMemFile tight(aRoom, sizeof(aRoom));  // cannot grow
    CArchive ar(&tight, CArchive::store, 128);
    ar << 1 << 2;
    EXPECT_THROW(ar.Close(), CMemoryException*);
}
