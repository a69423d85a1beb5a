// Archives against bytes written by hand, in both directions, and damaged ones.
#include "platform/base/archive.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
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
    constexpr auto bytes =
        "\x81"
        "\x34\x12"
        "\xFE\xFF"
        "\x78\x56\x34\x12"
        "\xFF\xFF\xFF\xFF"
        "\xEF\xCD\xAB\x89\x67\x45\x23\x01"
        "\x01"
        "\x00\x00\xC0\x3F"
        "\x00\x00\x00\x00\x00\x00\x04\xC0"
        "z"sv;
    ExpectStored(bytes,
                 [](CArchive& ar)
                 {
                     ar << static_cast<BYTE>(0x81) << static_cast<WORD>(0x1234)
                        << static_cast<short>(-2) << static_cast<DWORD>(0x12345678) << -1
                        << static_cast<ULONGLONG>(0x0123456789ABCDEF) << true << 1.5F << -2.5
                        << 'z';
                 });

    CBytesFile file(bytes);
    CArchive ar(&file, CArchive::load);
    BYTE nByte = 0;
    WORD nWord = 0;
    short nShort = 0;
    DWORD nLong = 0;
    int nInt = 0;
    ULONGLONG nBig = 0;
    bool bFlag = false;
    float fNumber = 0;
    double dNumber = 0;
    char ch = 0;
    ar >> nByte >> nWord >> nShort >> nLong >> nInt >> nBig >> bFlag >> fNumber >> dNumber >> ch;
    EXPECT_EQ(nByte, 0x81);
    EXPECT_EQ(nWord, 0x1234);
    EXPECT_EQ(nShort, -2);
    EXPECT_EQ(nLong, 0x12345678U);
    EXPECT_EQ(nInt, -1);
    EXPECT_EQ(nBig, 0x0123456789ABCDEFULL);
    EXPECT_TRUE(bFlag);
    EXPECT_EQ(fNumber, 1.5F);
    EXPECT_EQ(dNumber, -2.5);
    EXPECT_EQ(ch, 'z');
    EXPECT_EQ(CauseOf([&] { ar >> nByte; }), CArchiveException::endOfFile);
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

    CMemFile file;
    CArchive ar(&file, CArchive::store);
    AfxWriteStringLength(ar, 300, TRUE);
    ar.Close();
    EXPECT_EQ(Content(file), "\xFF\xFE\xFF\xFF\x2C\x01"sv);
}

TEST(Archive, DamagedTextsAreRefused)
{
    const struct
    {
        std::string_view bytes;
        int nCause;
    } aCases[] = {
        { ""sv, CArchiveException::endOfFile },
        { "\x05"
          "abcd"sv,
          CArchiveException::endOfFile },
        { "\xFF"sv, CArchiveException::endOfFile },
        { "\xFF\x00"sv, CArchiveException::endOfFile },
        { "\xFF\xFF\xFF\x00\x00"sv, CArchiveException::endOfFile },
        { "\xFF\xFF\xFF\xFE\xFF\xFF\xFF"
          "ab"sv,
          CArchiveException::endOfFile },  // 4 GB announced
        { "\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\xFF\xFF"
          "ab"sv,
          CArchiveException::endOfFile },
        { "\xFF\xFE\xFF\x02"
          "a\0b"sv,
          CArchiveException::endOfFile },
        { "\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
          "ab"sv,
          CArchiveException::badIndex },
        { "\xFF\xFE\xFF\xFF\xFE\xFF\x01"
          "a\0"sv,
          CArchiveException::badIndex },
    };
    for (const auto& c : aCases)
    {
        EXPECT_EQ(CauseOf([&] { LoadText(c.bytes); }), c.nCause)
            << ::testing::PrintToString(c.bytes);
    }
}

TEST(Archive, WrongDirectionHasItsCause)
{
    CBytesFile file("\x01\x02"sv);
    CArchive loading(&file, CArchive::load);
    BYTE nByte = 0;
    loading >> nByte;
    EXPECT_EQ(CauseOf([&] { loading << nByte; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { loading << CString("x"); }), CArchiveException::readOnly);
    EXPECT_EQ(CauseOf([&] { loading.Write(&nByte, 1); }), CArchiveException::readOnly);
    loading >> nByte;
    EXPECT_EQ(nByte, 2);

    CMemFile target;
    CArchive storing(&target, CArchive::store);
    CString text;
    EXPECT_EQ(CauseOf([&] { storing >> nByte; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf([&] { storing >> text; }), CArchiveException::writeOnly);
    EXPECT_EQ(CauseOf([&] { storing.Read(&nByte, 1); }), CArchiveException::writeOnly);
    storing.Close();
    EXPECT_EQ(target.GetLength(), 0U);
    EXPECT_EQ(CauseOf([&] { storing << nByte; }), CArchiveException::genericException);
}

TEST(Archive, BlocksPassTheBufferInAnySize)
{
    std::string bytes;
    for (int i = 0; i < 20000; ++i)
        bytes += static_cast<char>(i * 7 + i / 256);
    const UINT aSizes[] = { 1, 3, 127, 128, 129, 4095, 4096, 4097, 0, 5000, 10 };
    CMemFile file(1);
    CArchive storing(&file, CArchive::store, 128);
    for (std::size_t nDone = 0, i = 0; nDone < bytes.size(); ++i)
    {
        const UINT n = std::min<UINT>(aSizes[i % 11], static_cast<UINT>(bytes.size() - nDone));
        storing.Write(bytes.data() + nDone, n);
        nDone += n;
    }
    storing.Close();
    ASSERT_EQ(Content(file), bytes);

    file.SeekToBegin();
    CArchive loading(&file, CArchive::load, 128);
    std::string read(bytes.size(), '\0');
    for (std::size_t nDone = 0, i = 0; nDone < read.size(); ++i)
    {
        const UINT n = std::min<UINT>(aSizes[i % 11], static_cast<UINT>(read.size() - nDone));
        ASSERT_EQ(loading.Read(read.data() + nDone, n), n);
        nDone += n;
    }
    EXPECT_EQ(read, bytes);
    char ch = 0;
    EXPECT_EQ(loading.Read(&ch, 1), 0U);
    loading.Flush();
    file.Seek(-3, CFile::end);
    char aTail[5];
    EXPECT_EQ(loading.Read(aTail, 5), 3U);
    EXPECT_EQ(CauseOf([&] { loading.EnsureRead(aTail, 1); }), CArchiveException::endOfFile);
}

TEST(Archive, EndsWithoutWritingWhenSomethingIsThrown)
{
    CMemFile file;
    try
    {
        CArchive ar(&file, CArchive::store);
        ar << 1;
        throw 7;
    }
    catch (int)
    {
    }
    EXPECT_EQ(file.GetLength(), 0U);
    {
        CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete);
        ar << 1;
    }
    EXPECT_EQ(file.GetLength(), 0U);
    {
        CArchive ar(&file, CArchive::store);
        ar << 1;
    }
    EXPECT_EQ(file.GetLength(), 4U);

    BYTE aRoom[6];
    CMemFile tight(aRoom, sizeof(aRoom));  // cannot grow
    CArchive ar(&tight, CArchive::store, 128);
    ar << 1 << 2;
    EXPECT_THROW(ar.Close(), CMemoryException*);
}
