// Metafiles of other programs, damaged ones among them.
#include "platform/gdi/emf_dump.h"
#include "platform/gdi/raw_metafile.h"

#include "native/pipe.h"

#include <algorithm>
#include <tuple>

namespace
{

using CTypes = std::vector<DWORD>;
using CComments = std::vector<std::string>;

// What is left of a metafile; no types for what is taken for none.
struct CSeen
{
    CTypes types;
    CComments comments;  // as text, up to a NUL or the record's end
    DWORD nSum = 0;      // of all bytes: they can be read
    int nHandles = 0;
    std::size_t nStopAfter = 0;  // 0: goes on
    BOOL bWhole = FALSE;
};

int CALLBACK Look(HDC, HANDLETABLE* pTable, const ENHMETARECORD* pRecord, int nHandles,
                  LPARAM lParam)
{
    CSeen& seen = *reinterpret_cast<CSeen*>(lParam);
    const char* pBytes = reinterpret_cast<const char*>(pRecord);
    seen.types.push_back(pRecord->iType);
    seen.nHandles = nHandles;
    for (int i = 1; i < nHandles; ++i)
        EXPECT_FALSE((&pTable->objectHandle[0])[i]);
    for (DWORD i = 0; i < pRecord->nSize; ++i)
        seen.nSum += static_cast<BYTE>(pBytes[i]);
    if (pRecord->iType == EMR_GDICOMMENT)
    {
        EXPECT_LE(12 + pRecord->dParm[0], pRecord->nSize);
        seen.comments.emplace_back(pBytes + 12, strnlen(pBytes + 12, pRecord->dParm[0]));
    }
    return seen.types.size() != seen.nStopAfter;
}

CSeen See(HENHMETAFILE hMetaFile, std::size_t nStopAfter = 0)
{
    CSeen seen;
    seen.nStopAfter = nStopAfter;
    if (!hMetaFile)
        return seen;
    seen.bWhole = EnumEnhMetaFile(nullptr, hMetaFile, Look, &seen, nullptr);
    EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
    return seen;
}

HENHMETAFILE Make(const std::string& strBytes)
{
    // An own block of just this size: the sanitizer sees each step over its end.
    return MakeEnhMetaFile(std::vector<BYTE>(strBytes.begin(), strBytes.end()));
}

CSeen SeeWith(std::string strBytes, std::size_t nOffset, DWORD dwValue)
{
    PutDword(strBytes, nOffset, dwValue);
    return See(Make(strBytes));
}

}  // namespace

TEST(MetafileReader, ReadsWhatAnotherProgramWrote)
{
    const CSeen seen = See(LoadEnhMetaFile(MIVORA_TEST_DATA "/other_program.emf"));
    EXPECT_TRUE(seen.bWhole);
    EXPECT_EQ(seen.types, (CTypes{ 1, 70, 17, 70, 43, 14 }));
    EXPECT_EQ(seen.comments, (CComments{ "a comment of another kind", "qvmrza/(b+1)" }));
    EXPECT_EQ(seen.nHandles, 2);
}

TEST(MetafileReader, ShowsRecordsOfAnyKindUntilTheCallerStops)
{
    const CSeen all = See(Make(SampleMetafile()));
    EXPECT_TRUE(all.bWhole);
    EXPECT_EQ(all.types, (CTypes{ 1, 70, 2, 998, 70, 84, 70, 70, 14 }));
    EXPECT_EQ(all.comments, (CComments{ "qvmrzfirst", "EMF+other", "qvmrzx=1", "a" }));
    CSeen some = See(Make(SampleMetafile()), 3);
    EXPECT_FALSE(some.bWhole);
    EXPECT_EQ(some.types.size(), 3U);
    EXPECT_FALSE(EnumEnhMetaFile(nullptr, nullptr, Look, &some, nullptr));
}

TEST(MetafileReader, KnowsTheHeadersOfAllVersions)
{
    for (std::size_t nHeader : { 88, 100, 108 })
    {
        SCOPED_TRACE(nHeader);
        std::string strBytes = DescribedMetafile(nHeader);
        std::fill_n(strBytes.begin() + 88, nHeader - 88, '\x11');
        const HENHMETAFILE hMetaFile = Make(strBytes);
        ENHMETAHEADER header{};
        EXPECT_GE(GetEnhMetaFileHeader(hMetaFile, sizeof header, &header), nHeader);
        EXPECT_EQ(header.nBytes, strBytes.size());
        EXPECT_EQ(header.offDescription, nHeader);
        EXPECT_TRUE(nHeader < 100 || header.bOpenGL == 0x11111111U);
        EXPECT_TRUE(nHeader < 108 || header.szlMicrometers.cx == 0x11111111);
        EXPECT_EQ(GetEnhMetaFileHeader(hMetaFile, 0, nullptr), nHeader + 8);
        EXPECT_EQ(MetafileBytes(hMetaFile), strBytes);
        EXPECT_EQ(See(hMetaFile).comments, CComments{ "abc" });
        EXPECT_EQ(See(Make(MetafileOf({ CommentRecord("x") }, nHeader))).comments,
                  CComments{ "x" });
    }
}

// Whatever is left of a cut file is shown, and nothing else.
TEST(MetafileReader, EndsAtTheLastWholeRecordOfACutFile)
{
    const std::string strWhole = SampleMetafile();
    const CTypes all = See(Make(strWhole)).types;
    CTestFolder folder;
    for (std::size_t nCut = 0; nCut < strWhole.size(); ++nCut)
    {
        SCOPED_TRACE(nCut);
        std::ptrdiff_t nRecords = 0;
        for (std::size_t n = 0; n + 8 <= nCut && (n += GetDword(strWhole, n + 4)) <= nCut;)
            ++nRecords;
        const CTypes left(all.begin(), all.begin() + nRecords);
        WriteFile(folder.File("cut.wmf"), strWhole.substr(0, nCut));
        EXPECT_EQ(See(Make(strWhole.substr(0, nCut))).types, left);
        EXPECT_EQ(See(LoadEnhMetaFile(folder.File("cut.wmf").c_str())).types, left);
    }
}

// Every field and every byte of the file takes every value that could lead astray.
TEST(MetafileReader, BelievesNoDamagedField)
{
    const std::string strWhole = SampleMetafile();
    const DWORD nSize = static_cast<DWORD>(strWhole.size());
    for (DWORD nOffset = 0; nOffset < nSize; nOffset += 4)
    {
        const DWORD dwOld = GetDword(strWhole, nOffset);
        for (DWORD dwNew : std::initializer_list<DWORD>{
                 0U, 1U, 4U, 7U, 8U, 12U, 14U, 70U, dwOld + 1, dwOld + 4, dwOld - 4, nSize,
                 nSize - nOffset + 4, 0x7FFFFFFCU, 0x80000000U, 0xFFFFFFFCU, 0xFFFFFFFFU })
            SeeWith(strWhole, nOffset, dwNew);
        for (int nBit = 0; nBit < 32; ++nBit)
            SeeWith(strWhole, nOffset, dwOld ^ 1U << nBit);
    }
}

TEST(MetafileReader, FindsCommentsInSpiteOfDamage)
{
    // Place and value of the damage; the number of comments, 0: no metafile; the first one. At 108
    // is a comment of 24 bytes, 10 of them data, at 132 the next record.
    const std::tuple<const char*, std::size_t, DWORD, std::size_t, const char*> aCases[] = {
        { "BytesInTheHeader", 48, 4, 4, "qvmrzfirst" },
        { "RecordsInTheHeader", 52, 0xFFFFFFFF, 4, "qvmrzfirst" },
        { "HandlesInTheHeader", 56, 0xFFFF, 4, "qvmrzfirst" },
        { "NoHandles", 56, 0, 4, "qvmrzfirst" },
        { "DescriptionFarAway", 64, 0xFFFFFFF0, 4, "qvmrzfirst" },
        { "CommentLongerThanItsRecord", 108 + 8, 0x7FFFFFFF, 4, "qvmrzfirst" },
        { "CommentShorter", 108 + 8, 6, 4, "qvmrzf" },
        { "RecordReachesOverTheFile", 132 + 4, 0x10000, 1, "qvmrzfirst" },
        { "RecordWithoutSize", 132 + 4, 0, 1, "qvmrzfirst" },
        { "RecordOfOddSize", 132 + 4, 49, 1, "qvmrzfirst" },
        { "FirstRecordOfAnotherType", 0, 2, 0, "" },
        { "OtherSignature", 40, 0x464D4521, 0, "" },
        { "HeaderTooShort", 4, 84, 0, "" },
        { "HeaderOfOddSize", 4, 109, 0, "" },
        { "HeaderReachesOverTheFile", 4, 4096, 0, "" },
        { "PlaceableMetafile", 0, 0x9AC6CDD7, 0, "" },
    };
    for (const auto& [pszName, nOffset, dwValue, nComments, pszFirst] : aCases)
    {
        SCOPED_TRACE(pszName);
        const CSeen seen = SeeWith(SampleMetafile(), nOffset, dwValue);
        EXPECT_EQ(seen.types.empty(), nComments == 0);
        ASSERT_EQ(seen.comments.size(), nComments);
        EXPECT_EQ(seen.comments.empty() ? "" : seen.comments[0], pszFirst);
    }
    // Were odd sizes allowed, the bytes behind would be a sound record.
    std::string strOdd = RawRecord(2, std::string(44, 'p')).substr(0, 49) + CommentRecord("odd");
    PutDword(strOdd, 4, 49);
    EXPECT_EQ(See(Make(MetafileOf({ strOdd + "..." }))).types, CTypes{ 1 });
    // A comment that has not even room for its length.
    EXPECT_EQ(
        See(Make(MetafileOf({ RawRecord(EMR_GDICOMMENT, ""), CommentRecord("next") }))).comments,
        (CComments{ "", "next" }));
}

TEST(MetafileReader, TakesAnyPath)
{
    CTestFolder folder;
    WriteFile(folder.File("empty"), "");
    WriteFile(folder.File("text"), std::string(100000, 'x'));
    for (const char* pszName : { "missing", "missing/x", ".", "empty", "text" })
        EXPECT_FALSE(LoadEnhMetaFile(folder.File(pszName).c_str())) << pszName;
    EXPECT_FALSE(LoadEnhMetaFile("") || LoadEnhMetaFile(nullptr));

    // Four thousand million bytes that are not there.
    WriteFile(folder.File("sparse"), SampleMetafile().substr(0, 108));
    std::filesystem::resize_file(folder.File("sparse"), 4'000'000'000U);
    EXPECT_EQ(See(LoadEnhMetaFile(folder.File("sparse").c_str())).types, CTypes{ 1 });
}

TEST(MetafileReader, ReadsFromAPipeAndStopsBehindTheEnd)
{
    const std::string strBytes =
        MetafileOf({ RawRecord(2, std::string(300000, 'p')), CommentRecord("x") });
    const auto read = [](const std::string& strPath)
    {
        EXPECT_EQ(See(LoadEnhMetaFile(strPath.c_str())).types, (CTypes{ 1, 2, 70, 14 }));
    };
    EXPECT_TRUE(FeedPipe(strBytes, 70000, read));
}
