// The format's structures, followed with limits that come from the file's real size.
#include "platform/doc/win32/compound_check.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

namespace
{

constexpr BYTE s_abSignature[8] = { 0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1 };
constexpr DWORD s_nEndOfChain = 0xFFFFFFFE;
constexpr DWORD s_nNoEntry = 0xFFFFFFFF;
constexpr std::size_t s_nHeaderBytes = 512;
constexpr std::size_t s_nHeaderTable = 109;  // places of the first sectors of the allocation table
constexpr std::size_t s_nEntryBytes = 128;
constexpr std::size_t s_nMiniSector = 64;
constexpr BYTE s_nTypeStream = 2;

// Places in the header.
constexpr std::size_t s_nAtSectorShift = 30;
constexpr std::size_t s_nAtMiniShift = 32;
constexpr std::size_t s_nAtTableCount = 44;
constexpr std::size_t s_nAtDirectory = 48;
constexpr std::size_t s_nAtMiniLimit = 56;  // streams below it lie in the mini stream
constexpr std::size_t s_nAtMiniTable = 60;
constexpr std::size_t s_nAtMiniTableCount = 64;
constexpr std::size_t s_nAtMore = 68;  // sectors with further places of the table
constexpr std::size_t s_nAtMoreCount = 72;
constexpr std::size_t s_nAtTable = 76;

// Places in an entry of the directory.
constexpr std::size_t s_nAtType = 66;
constexpr std::size_t s_nAtLeft = 68;
constexpr std::size_t s_nAtRight = 72;
constexpr std::size_t s_nAtChild = 76;
constexpr std::size_t s_nAtStart = 116;
constexpr std::size_t s_nAtSize = 120;

using CChain = std::vector<DWORD>;

class CCompoundFile
{
public:
    explicit CCompoundFile(std::span<const BYTE> bytes) : m_bytes(bytes) {}

    bool IsSound()
    {
        return ReadHeader() && ReadTable() && ReadDirectory() && ReadMiniTable() && CheckTree();
    }

private:
    template <class T = DWORD>
    T At(std::size_t nOffset) const
    {
        T value{};
        if (nOffset < m_bytes.size())
        {
            std::memcpy(&value, m_bytes.data() + nOffset,
                        std::min(sizeof value, m_bytes.size() - nOffset));
        }
        return value;
    }

    bool IsSector(DWORD nSector) const { return nSector < m_nSectors; }
    std::size_t Place(DWORD nSector) const { return (std::size_t{ nSector } + 1) * m_nSector; }

    bool ReadHeader()
    {
        if (m_bytes.size() < s_nHeaderBytes ||
            std::memcmp(m_bytes.data(), s_abSignature, sizeof s_abSignature) != 0 ||
            At<WORD>(s_nAtMiniShift) != 6)
            return false;
        const WORD nShift = At<WORD>(s_nAtSectorShift);
        if (nShift != 9 && nShift != 12)
            return false;
        m_nSector = std::size_t{ 1 } << nShift;
        // The last sector may be cut.
        m_nSectors = (std::max(m_bytes.size(), m_nSector) - m_nSector + m_nSector - 1) / m_nSector;
        return true;
    }

    // The numbers in a sector.
    void AppendSector(DWORD nSector, CChain& numbers) const
    {
        for (std::size_t n = 0; n < m_nSector; n += sizeof(DWORD))
            numbers.push_back(At(Place(nSector) + n));
    }

    // Places of the allocation table: the header's, then those of the sectors that hold more.
    std::optional<CChain> TablePlaces() const
    {
        CChain places;
        for (std::size_t n = 0; n < s_nHeaderTable; ++n)
            places.push_back(At(s_nAtTable + n * sizeof(DWORD)));
        const DWORD nMore = At(s_nAtMoreCount);
        DWORD nSector = At(s_nAtMore);
        if (nMore > m_nSectors)
            return std::nullopt;
        for (DWORD n = 0; n < nMore; ++n)
        {
            if (!IsSector(nSector))
                return std::nullopt;
            AppendSector(nSector, places);
            nSector = places.back();
            places.pop_back();
        }
        return places;
    }

    bool ReadTable()
    {
        const DWORD nCount = At(s_nAtTableCount);
        const std::optional<CChain> places = TablePlaces();
        if (!places || nCount > m_nSectors || nCount > places->size())
            return false;
        for (DWORD n = 0; n < nCount; ++n)
        {
            if (!IsSector((*places)[n]))
                return false;
            AppendSector((*places)[n], m_table);
        }
        return true;
    }

    // The sectors from nStart on; nothing if they run in a circle or out of the file.
    std::optional<CChain> Chain(DWORD nStart) const
    {
        CChain chain;
        for (DWORD nSector = nStart; nSector != s_nEndOfChain; nSector = m_table[nSector])
        {
            if (!IsSector(nSector) || nSector >= m_table.size() || chain.size() >= m_nSectors)
                return std::nullopt;
            chain.push_back(nSector);
        }
        return chain;
    }

    bool ReadDirectory()
    {
        const std::optional<CChain> chain = Chain(At(s_nAtDirectory));
        if (!chain || chain->empty())
            return false;
        for (const DWORD nSector : *chain)
        {
            for (std::size_t n = 0; n < m_nSector; n += s_nEntryBytes)
                m_entries.push_back(Place(nSector) + n);
        }
        return true;
    }

    bool ReadMiniTable()
    {
        const std::optional<CChain> chain = Chain(At(s_nAtMiniTable));
        if (At(s_nAtMiniTableCount) == 0)
            return !chain || chain->empty();
        if (!chain)
            return false;
        for (const DWORD nSector : *chain)
            AppendSector(nSector, m_miniTable);
        // The first entry is the root; its stream is the one of the mini sectors.
        const auto nSize = At<std::uint64_t>(m_entries[0] + s_nAtSize);
        m_nMiniSectors = (nSize + s_nMiniSector - 1) / s_nMiniSector;
        return HoldsInSectors(At(m_entries[0] + s_nAtStart), nSize);
    }

    bool HoldsInSectors(DWORD nStart, std::uint64_t nSize) const
    {
        if (nSize == 0)
            return true;
        const std::optional<CChain> chain = Chain(nStart);
        return chain && nSize <= std::uint64_t{ chain->size() } * m_nSector;
    }

    bool HoldsInMiniSectors(DWORD nStart, std::uint64_t nSize) const
    {
        std::uint64_t nHeld = 0;
        for (DWORD nMini = nStart; nMini != s_nEndOfChain; nMini = m_miniTable[nMini])
        {
            if (nMini >= m_miniTable.size() || nMini >= m_nMiniSectors ||
                nHeld >= std::uint64_t{ m_miniTable.size() } * s_nMiniSector)
                return false;
            nHeld += s_nMiniSector;
        }
        return nSize <= nHeld;
    }

    bool HoldsStream(std::size_t nEntry) const
    {
        const auto nSize = At<std::uint64_t>(nEntry + s_nAtSize);
        const DWORD nStart = At(nEntry + s_nAtStart);
        if (nSize == 0)
            return true;
        return nSize < At(s_nAtMiniLimit) ? HoldsInMiniSectors(nStart, nSize)
                                          : HoldsInSectors(nStart, nSize);
    }

    bool CheckTree() const
    {
        std::vector<bool> seen(m_entries.size());
        CChain open{ 0 };
        while (!open.empty())
        {
            const DWORD nIndex = open.back();
            open.pop_back();
            if (nIndex == s_nNoEntry)
                continue;
            if (nIndex >= m_entries.size() || seen[nIndex])
                return false;
            seen[nIndex] = true;
            const std::size_t nEntry = m_entries[nIndex];
            if (At<BYTE>(nEntry + s_nAtType) == s_nTypeStream && !HoldsStream(nEntry))
                return false;
            for (const std::size_t nAt : { s_nAtLeft, s_nAtRight, s_nAtChild })
                open.push_back(At(nEntry + nAt));
        }
        return true;
    }

    std::span<const BYTE> m_bytes;
    std::size_t m_nSector = s_nHeaderBytes;  // bytes
    std::size_t m_nSectors = 0;              // behind the header
    CChain m_table;                          // by sector: the next one of its chain
    std::vector<std::size_t> m_entries;      // places of the directory's entries
    CChain m_miniTable;
    std::uint64_t m_nMiniSectors = 0;
};

}  // namespace

bool IsSoundCompoundFile(std::span<const BYTE> bytes)
{
    return CCompoundFile(bytes).IsSound();
}
