// Metafiles of other programs, damaged ones among them.
#include "platform/gdi/emf_dump.h"
#include "platform/gdi/native_gdi.h"
#include "platform/gdi/raw_metafile.h"

#include "native/pipe.h"

#include <algorithm>
#include <cstring>
#include <thread>

namespace
{

struct CSeen
{
    std::vector<DWORD> m_types;
    std::vector<std::string> m_comments;  // as text, up to a NUL or the record's end
    DWORD m_nSum = 0;                     // of all bytes: they can be read
    int m_nHandles = 0;
    std::size_t m_nStopAfter = 0;  // 0: goes on
};

int CALLBACK Look(HDC, HANDLETABLE* pTable, const ENHMETARECORD* pRecord, int nHandles,
                  LPARAM lParam)
{
    CSeen& seen = *reinterpret_cast<CSeen*>(lParam);
    const char* pBytes = reinterpret_cast<const char*>(pRecord);
    seen.m_types.push_back(pRecord->iType);
    seen.m_nHandles = nHandles;
    for (int i = 1; i < nHandles; ++i)
        EXPECT_FALSE((&pTable->objectHandle[0])[i]);
    for (DWORD i = 0; i < pRecord->nSize; ++i)
        seen.m_nSum += static_cast<BYTE>(pBytes[i]);
    if (pRecord->iType == 70)
    {
        EXPECT_LE(12 + pRecord->dParm[0], pRecord->nSize);
        seen.m_comments.emplace_back(pBytes + 12, strnlen(pBytes + 12, pRecord->dParm[0]));
    }
    return seen.m_types.size() != seen.m_nStopAfter;
}

// False as a result for what is taken for no metafile.
bool Enumerate(HENHMETAFILE hMetaFile, CSeen& seen, bool* pbWhole = nullptr)
{
    if (!hMetaFile)
        return false;
    BOOL bWhole = EnumEnhMetaFile(nullptr, hMetaFile, Look, &seen, nullptr);
    if (pbWhole)
        *pbWhole = bWhole;
    EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
    return true;
}

bool EnumerateBytes(const std::string& strBytes, CSeen& seen, bool* pbWhole = nullptr)
{
    // An own block of just this size: the sanitizer sees each step over its end.
    std::vector<BYTE> block(strBytes.begin(), strBytes.end());
    return Enumerate(MakeEnhMetaFile(block), seen, pbWhole);
}

}  // namespace

TEST(MetafileReader, ReadsWhatAnotherProgramWrote)
{
    CSeen seen;
    bool bWhole = false;
    ASSERT_TRUE(Enumerate(LoadEnhMetaFile(MIVORA_TEST_DATA "/other_program.emf"), seen, &bWhole));
    EXPECT_TRUE(bWhole);
    EXPECT_EQ(seen.m_types, (std::vector<DWORD>{ 1, 70, 17, 70, 43, 14 }));
    EXPECT_EQ(seen.m_comments,
              (std::vector<std::string>{ "a comment of another kind", "qvmrza/(b+1)" }));
    EXPECT_EQ(seen.m_nHandles, 2);
}

TEST(MetafileReader, ShowsRecordsOfAnyKindUntilTheCallerStops)
{
    CSeen all, some;
    bool bWhole = false;
    ASSERT_TRUE(EnumerateBytes(SampleMetafile(), all, &bWhole));
    EXPECT_TRUE(bWhole);
    EXPECT_EQ(all.m_types, (std::vector<DWORD>{ 1, 70, 2, 998, 70, 84, 70, 70, 14 }));
    EXPECT_EQ(all.m_comments,
              (std::vector<std::string>{ "qvmrzfirst", "EMF+other", "qvmrzx=1", "a" }));
    some.m_nStopAfter = 3;
    ASSERT_TRUE(EnumerateBytes(SampleMetafile(), some, &bWhole));
    EXPECT_FALSE(bWhole);
    EXPECT_EQ(some.m_types.size(), 3U);
    EXPECT_FALSE(EnumEnhMetaFile(nullptr, nullptr, Look, &some, nullptr));
}

TEST(MetafileReader, KnowsTheHeadersOfAllVersions)
{
    const std::string strText("d\0e\0\0\0\0\0", 8);
    for (std::size_t nHeader : { 88, 100, 108 })
    {
        SCOPED_TRACE(nHeader);
        std::string strBytes = MetafileOf({ CommentRecord("abc") }, nHeader, strText);
        PutDword(strBytes, 60, 4);
        PutDword(strBytes, 64, static_cast<DWORD>(nHeader));
        for (std::size_t i = 88; i < nHeader; ++i)
            strBytes[i] = '\x11';
        HENHMETAFILE hMetaFile =
            MakeEnhMetaFile({ reinterpret_cast<const BYTE*>(strBytes.data()), strBytes.size() });
        ASSERT_TRUE(hMetaFile);
        ENHMETAHEADER header{};
        EXPECT_GE(GetEnhMetaFileHeader(hMetaFile, sizeof header, &header), nHeader);
        EXPECT_EQ(header.nBytes, strBytes.size());
        EXPECT_EQ(header.offDescription, nHeader);
        EXPECT_TRUE(nHeader < 100 || header.bOpenGL == 0x11111111U);
        EXPECT_TRUE(nHeader < 108 || header.szlMicrometers.cx == 0x11111111);
        EXPECT_EQ(GetEnhMetaFileHeader(hMetaFile, 0, nullptr), nHeader + 8);
        EXPECT_EQ(MetafileBytes(hMetaFile), strBytes);
        CSeen seen;
        Enumerate(hMetaFile, seen);
        EXPECT_EQ(seen.m_comments, std::vector<std::string>{ "abc" });
    }
}

// Whatever is left of a cut file is shown, and nothing else.
TEST(MetafileReader, EndsAtTheLastWholeRecordOfACutFile)
{
    const std::string strWhole = SampleMetafile();
    CSeen all;
    EnumerateBytes(strWhole, all);
    CTestFolder folder;
    for (std::size_t nCut = 0; nCut < strWhole.size(); ++nCut)
    {
        SCOPED_TRACE(nCut);
        std::size_t nRecords = 0;
        for (std::size_t n = 0; n + 8 <= nCut && (n += GetDword(strWhole, n + 4)) <= nCut;)
            ++nRecords;
        std::string strCut = strWhole.substr(0, nCut);
        WriteFile(folder.File("cut.wmf"), strCut);
        CSeen fromBytes, fromFile;
        EXPECT_EQ(EnumerateBytes(strCut, fromBytes), nRecords > 0);
        EXPECT_EQ(Enumerate(LoadEnhMetaFile(folder.File("cut.wmf").c_str()), fromFile),
                  nRecords > 0);
        EXPECT_EQ(fromBytes.m_types,
                  std::vector<DWORD>(all.m_types.begin(), all.m_types.begin() + nRecords));
        EXPECT_EQ(fromFile.m_types, fromBytes.m_types);
    }
}

// Every field and every byte of the file takes every value that could lead astray.
TEST(MetafileReader, BelievesNoDamagedField)
{
    const std::string strWhole = SampleMetafile();
    const DWORD nSize = static_cast<DWORD>(strWhole.size());
    for (std::size_t nOffset = 0; nOffset < strWhole.size(); nOffset += 4)
    {
        const DWORD dwOld = GetDword(strWhole, nOffset);
        for (DWORD dwNew : std::initializer_list<DWORD>{
                 0U, 1U, 4U, 7U, 8U, 12U, 14U, 70U, dwOld + 1, dwOld + 4, dwOld - 4, nSize,
                 nSize - static_cast<DWORD>(nOffset) + 4, 0x7FFFFFFCU, 0x80000000U, 0xFFFFFFFCU,
                 0xFFFFFFFFU })
        {
            std::string strDamaged = strWhole;
            PutDword(strDamaged, nOffset, dwNew);
            CSeen seen;
            EnumerateBytes(strDamaged, seen);
        }
    }
    for (std::size_t nOffset = 0; nOffset < strWhole.size(); ++nOffset)
    {
        for (int nBit = 0; nBit < 8; ++nBit)
        {
            std::string strDamaged = strWhole;
            strDamaged[nOffset] = static_cast<char>(strDamaged[nOffset] ^ (1 << nBit));
            CSeen seen;
            EnumerateBytes(strDamaged, seen);
        }
    }
}

TEST(MetafileReader, FindsCommentsInSpiteOfDamage)
{
    const std::string strWhole = SampleMetafile();
    const std::size_t nComment = 108;  // the first one: 24 bytes, 10 of them data
    struct
    {
        const char* m_pszName;
        std::size_t m_nOffset;
        DWORD m_dwValue;
        std::size_t m_nComments;
        const char* m_pszFirst;
    } aCases[] = {
        { "BytesInTheHeader", 48, 4, 4, "qvmrzfirst" },
        { "RecordsInTheHeader", 52, 0xFFFFFFFF, 4, "qvmrzfirst" },
        { "HandlesInTheHeader", 56, 0xFFFF, 4, "qvmrzfirst" },
        { "NoHandles", 56, 0, 4, "qvmrzfirst" },
        { "DescriptionFarAway", 64, 0xFFFFFFF0, 4, "qvmrzfirst" },
        { "CommentLongerThanItsRecord", nComment + 8, 0x7FFFFFFF, 4, "qvmrzfirst" },
        { "CommentShorter", nComment + 8, 6, 4, "qvmrzf" },
        { "RecordReachesOverTheFile", nComment + 24 + 4, 0x10000, 1, "qvmrzfirst" },
        { "RecordWithoutSize", nComment + 24 + 4, 0, 1, "qvmrzfirst" },
        { "RecordOfOddSize", nComment + 24 + 4, 49, 1, "qvmrzfirst" },
    };
    for (const auto& row : aCases)
    {
        SCOPED_TRACE(row.m_pszName);
        std::string strDamaged = strWhole;
        PutDword(strDamaged, row.m_nOffset, row.m_dwValue);
        CSeen seen;
        ASSERT_TRUE(EnumerateBytes(strDamaged, seen));
        ASSERT_EQ(seen.m_comments.size(), row.m_nComments);
        EXPECT_EQ(seen.m_comments[0], row.m_pszFirst);
    }
    // Were odd sizes allowed, the bytes behind would be a sound record.
    std::string strOdd = RawRecord(2, std::string(44, 'p')).substr(0, 49) + CommentRecord("odd");
    PutDword(strOdd, 4, 49);
    CSeen odd;
    ASSERT_TRUE(EnumerateBytes(MetafileOf({ strOdd + "..." }), odd));
    EXPECT_EQ(odd.m_types, std::vector<DWORD>{ 1 });
    CSeen seen;  // a comment that has not even room for its length
    ASSERT_TRUE(EnumerateBytes(MetafileOf({ RawRecord(70, ""), CommentRecord("next") }), seen));
    EXPECT_EQ(seen.m_comments, (std::vector<std::string>{ "", "next" }));
}

TEST(MetafileReader, RefusesWhatIsNoMetafile)
{
    struct
    {
        const char* m_pszName;
        std::size_t m_nOffset;
        DWORD m_dwValue;
    } aCases[] = {
        { "FirstRecordOfAnotherType", 0, 2 },
        { "OtherSignature", 40, 0x464D4521 },
        { "HeaderTooShort", 4, 84 },
        { "HeaderOfOddSize", 4, 109 },
        { "HeaderReachesOverTheFile", 4, 4096 },
        { "PlaceableMetafile", 0, 0x9AC6CDD7 },
    };
    for (const auto& row : aCases)
    {
        SCOPED_TRACE(row.m_pszName);
        std::string strBytes = SampleMetafile();
        PutDword(strBytes, row.m_nOffset, row.m_dwValue);
        CSeen seen;
        EXPECT_FALSE(EnumerateBytes(strBytes, seen));
    }
}

TEST(MetafileReader, TakesAnyPath)
{
    CTestFolder folder;
    WriteFile(folder.File("empty"), "");
    WriteFile(folder.File("text"), std::string(100000, 'x'));
    // Four thousand million bytes that are not there.
    WriteFile(folder.File("sparse"), SampleMetafile().substr(0, 108));
    std::filesystem::resize_file(folder.File("sparse"), 4'000'000'000U);

    for (const char* pszName : { "missing", "missing/x", ".", "empty", "text" })
    {
        SCOPED_TRACE(pszName);
        EXPECT_FALSE(LoadEnhMetaFile(folder.File(pszName).c_str()));
    }
    EXPECT_FALSE(LoadEnhMetaFile(""));
    EXPECT_FALSE(LoadEnhMetaFile(nullptr));

    CSeen seen;
    ASSERT_TRUE(Enumerate(LoadEnhMetaFile(folder.File("sparse").c_str()), seen));
    EXPECT_EQ(seen.m_types, std::vector<DWORD>{ 1 });
}

TEST(MetafileReader, ReadsFromAPipeAndStopsBehindTheEnd)
{
    const std::string strBytes =
        MetafileOf({ RawRecord(2, std::string(300000, 'p')), CommentRecord("x") });
    CTestPipe pipe;
    std::thread writer([&] { EXPECT_TRUE(pipe.WriteSlowly(strBytes, 70000)); });
    CSeen seen;
    EXPECT_TRUE(Enumerate(LoadEnhMetaFile(pipe.Path().c_str()), seen));
    writer.join();
    EXPECT_EQ(seen.m_types, (std::vector<DWORD>{ 1, 2, 70, 14 }));
}
