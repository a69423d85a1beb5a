// Compound files: what is packed comes out again, and damage of any kind is answered in time.
#include "platform/doc/compound_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <tuple>

#include "archived.h"
#include "platform/doc/ole_document.h"
#include "platform/gdi/raw_metafile.h"

namespace
{

constexpr std::size_t s_nSector = 512;

#ifdef _WIN32
constexpr bool s_bRefusesDamage = true;  // the system's reader gets sound files only
#else
constexpr bool s_bRefusesDamage = false;  // the library gives what it can still read
#endif

std::string Pack(std::string strContent)
{
    CMemFile content(reinterpret_cast<BYTE*>(strContent.data()),
                     static_cast<UINT>(strContent.size()));
    CMemFile file;
    PackCompoundFile(file, "Contents", content);
    return BytesOf(file);
}

// The content of the stream; nothing if the file is refused.
std::optional<std::string> Unpack(std::string strFile)
{
    CMemFile file(reinterpret_cast<BYTE*>(strFile.data()), static_cast<UINT>(strFile.size()));
    CMemFile content;
    if (!UnpackCompoundFile(file, "Contents", content))
        return std::nullopt;
    return BytesOf(content);
}

// Text that is nowhere like another part of itself.
std::string Content(std::size_t nBytes)
{
    std::string str;
    for (int n = 0; str.size() < nBytes; ++n)
        str += std::to_string(n) + ' ';
    return str.substr(0, nBytes);
}

// Where a sector begins in the file.
std::size_t Place(DWORD nSector)
{
    return (std::size_t{ nSector } + 1) * s_nSector;
}

}  // namespace

TEST(CompoundFiles, GiveBackWhatWasPacked)
{
    // In the mini stream, at its limit, and with a table of more than one sector.
    for (std::size_t nBytes : { 0, 1, 63, 64, 65, 4095, 4096, 4097, 200000 })
    {
        SCOPED_TRACE(nBytes);
        const std::string strContent = Content(nBytes);
        const std::string strFile = Pack(strContent);
        EXPECT_EQ(Unpack(strFile), strContent);
        EXPECT_EQ(Pack(strContent), strFile) << "equal bytes each time";
    }
}

// Chains of the table, of the directory and of the mini stream that run in a circle or out of the
// file, and a directory that is no tree.
TEST(CompoundFiles, CirclesAndPlacesOutsideLeadNowhere)
{
    const std::string strSmall = Pack(Content(300));
    const std::string strLarge = Pack(Content(20000));
    for (const std::string& strFile : { strSmall, strLarge })
    {
        const std::size_t nTable = Place(GetDword(strFile, 76));
        const DWORD nDirectory = GetDword(strFile, 48);
        const std::size_t nStream = Place(nDirectory) + 128;  // the root's only child
        ASSERT_EQ(strFile[nStream + 66], 2);
        const DWORD nStart = GetDword(strFile, nStream + 116);
        const bool bMini = GetDword(strFile, nStream + 120) < 4096;
        const std::size_t nChain = bMini ? Place(GetDword(strFile, 60)) : nTable;
        const std::tuple<const char*, std::size_t, DWORD> aCases[] = {
            { "DirectoryInACircle", nTable + 4 * nDirectory, nDirectory },
            { "DirectoryOutside", nTable + 4 * nDirectory, 0x00FFFFFF },
            { "DirectoryNowhere", 48, 0xFFFFFFF0 },
            { "StreamInACircle", nChain + 4 * nStart, nStart },
            { "StreamOutside", nChain + 4 * nStart, 0x7FFFFFFF },
            { "StreamStartsOutside", nStream + 116, 0x10000000 },
            { "StreamTooLong", nStream + 120, bMini ? 4000U : 30000U },
            { "StreamMuchTooLong", nStream + 120, 0x7FFFFFFF },
            { "TableOutside", 76, 0x00FFFFFF },
            { "TableOfAnyLength", 44, 0xFFFFFFFF },
            { "MoreTableOfAnyLength", 72, 0xFFFFFFFF },
            { "SiblingOfItself", nStream + 68, 1 },
            { "ChildOfTheRootsOwn", nStream + 76, 0 },
            { "SiblingThatIsNotThere", nStream + 72, 4000 },
        };
        for (const auto& [pszName, nOffset, nValue] : aCases)
        {
            SCOPED_TRACE(testing::Message() << pszName << ' ' << strFile.size());
            std::string strDamaged = strFile;
            PutDword(strDamaged, nOffset, nValue);
            const std::optional<std::string> content = Unpack(strDamaged);
            EXPECT_FALSE(content.has_value() && s_bRefusesDamage);
            EXPECT_LE(content.value_or("").size(), strDamaged.size());
        }
    }
}

// Numbers that lead astray, at places that hold numbers; cuts; bits that fall over. Each answer is
// a refusal, an exception of the platform's or a content no longer than the file.
TEST(CompoundFiles, AnswerThousandsOfDamagedOnesInTime)
{
    std::mt19937 random(20);
    const auto below = [&](std::size_t n)
    {
        return static_cast<DWORD>(random() % n);
    };
    const std::string aFiles[] = { Pack(Content(300)), Pack(Content(5000)), Pack(Content(70000)) };
    const auto start = std::chrono::steady_clock::now();
    std::set<bool> answers;
    for (int n = 0; n < 6000; ++n)
    {
        SCOPED_TRACE(n);
        std::string strDamaged = aFiles[n % 3];
        const auto nSectors = static_cast<DWORD>(strDamaged.size() / s_nSector);
        for (std::size_t nHits = 1 + below(3); nHits > 0; --nHits)
        {
            const DWORD anWild[] = {
                0,          1,          below(nSectors),       nSectors,
                0x7FFFFFFF, 0x80000000, 0xFFFFFFFA + below(6), static_cast<DWORD>(random())
            };
            // The header, and sectors that are not the stream's, are hit most.
            const std::size_t nPart = below(4) == 0 ? strDamaged.size() : 4 * s_nSector;
            const std::size_t nPlace =
                std::min<std::size_t>(below(nPart), strDamaged.size() - 4) / 4 * 4;
            PutDword(strDamaged, nPlace, anWild[below(std::size(anWild))]);
        }
        if (n % 7 == 0)
            strDamaged.resize(below(strDamaged.size()));
        if (n % 5 == 0 && !strDamaged.empty())
            strDamaged[below(strDamaged.size())] ^= static_cast<char>(1 << below(8));
        try
        {
            const std::optional<std::string> content = Unpack(strDamaged);
            answers.insert(content.has_value());
            EXPECT_LE(content.value_or("").size(), strDamaged.size());
        }
        catch (CException* pException)
        {
            pException->Delete();
        }
    }
    EXPECT_EQ(answers.size(), 2U) << "some open, some do not";
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(2));
}

TEST(Documents, ANewOneIsEmptied)
{
    struct CEmptied : COleDocument
    {
        void DeleteContents() override { ++nTimes; }
        int nTimes = 0;
    } document;
    EXPECT_TRUE(document.OnNewDocument());
    EXPECT_EQ(document.nTimes, 1);
}
