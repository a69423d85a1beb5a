// The format's structures, followed with limits that come from the file's real size.
#include "platform/doc/compound_check.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

namespace
{

constexpr BYTE s_abSignature[8] = { 0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1 };
constexpr DWORD END_OF_CHAIN = 0xFFFFFFFE;
constexpr DWORD NO_ENTRY = 0xFFFFFFFF;
constexpr std::size_t HEADER_BYTES = 512;
constexpr std::size_t HEADER_TABLE = 109;  // places of the first sectors of the allocation table
constexpr std::size_t ENTRY_BYTES = 128;
constexpr std::size_t MINI_SECTOR = 64;
constexpr BYTE TYPE_STREAM = 2;

// Places in the header.
constexpr std::size_t AT_SECTOR_SHIFT = 30;
constexpr std::size_t AT_MINI_SHIFT = 32;
constexpr std::size_t AT_TABLE_COUNT = 44;
constexpr std::size_t AT_DIRECTORY = 48;
constexpr std::size_t AT_MINI_LIMIT = 56;  // streams below it lie in the mini stream
constexpr std::size_t AT_MINI_TABLE = 60;
constexpr std::size_t AT_MINI_TABLE_COUNT = 64;
constexpr std::size_t AT_MORE = 68;  // sectors with further places of the table
constexpr std::size_t AT_MORE_COUNT = 72;
constexpr std::size_t AT_TABLE = 76;

// Places in an entry of the directory.
constexpr std::size_t AT_TYPE = 66;
constexpr std::size_t AT_LEFT = 68;
constexpr std::size_t AT_RIGHT = 72;
constexpr std::size_t AT_CHILD = 76;
constexpr std::size_t AT_START = 116;
constexpr std::size_t AT_SIZE = 120;

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
            std::memcpy(&value, m_bytes.data() + nOffset,
                        std::min(sizeof value, m_bytes.size() - nOffset));
        return value;
    }

    bool IsSector(DWORD nSector) const { return nSector < m_nSectors; }
    std::size_t Place(DWORD nSector) const { return (std::size_t{ nSector } + 1) * m_nSector; }

    bool ReadHeader()
    {
        if (m_bytes.size() < HEADER_BYTES ||
            std::memcmp(m_bytes.data(), s_abSignature, sizeof s_abSignature) != 0 ||
            At<WORD>(AT_MINI_SHIFT) != 6)
            return false;
        const WORD nShift = At<WORD>(AT_SECTOR_SHIFT);
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
        for (std::size_t n = 0; n < HEADER_TABLE; ++n)
            places.push_back(At(AT_TABLE + n * sizeof(DWORD)));
        const DWORD nMore = At(AT_MORE_COUNT);
        DWORD nSector = At(AT_MORE);
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
        const DWORD nCount = At(AT_TABLE_COUNT);
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
        for (DWORD nSector = nStart; nSector != END_OF_CHAIN; nSector = m_table[nSector])
        {
            if (!IsSector(nSector) || nSector >= m_table.size() || chain.size() >= m_nSectors)
                return std::nullopt;
            chain.push_back(nSector);
        }
        return chain;
    }

    bool ReadDirectory()
    {
        const std::optional<CChain> chain = Chain(At(AT_DIRECTORY));
        if (!chain || chain->empty())
            return false;
        for (const DWORD nSector : *chain)
            for (std::size_t n = 0; n < m_nSector; n += ENTRY_BYTES)
                m_entries.push_back(Place(nSector) + n);
        return true;
    }

    bool ReadMiniTable()
    {
        const std::optional<CChain> chain = Chain(At(AT_MINI_TABLE));
        if (At(AT_MINI_TABLE_COUNT) == 0)
            return !chain || chain->empty();
        if (!chain)
            return false;
        for (const DWORD nSector : *chain)
            AppendSector(nSector, m_miniTable);
        // The first entry is the root; its stream is the one of the mini sectors.
        const auto nSize = At<std::uint64_t>(m_entries[0] + AT_SIZE);
        m_nMiniSectors = (nSize + MINI_SECTOR - 1) / MINI_SECTOR;
        return HoldsInSectors(At(m_entries[0] + AT_START), nSize);
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
        for (DWORD nMini = nStart; nMini != END_OF_CHAIN; nMini = m_miniTable[nMini])
        {
            if (nMini >= m_miniTable.size() || nMini >= m_nMiniSectors ||
                nHeld >= std::uint64_t{ m_miniTable.size() } * MINI_SECTOR)
                return false;
            nHeld += MINI_SECTOR;
        }
        return nSize <= nHeld;
    }

    bool HoldsStream(std::size_t nEntry) const
    {
        const auto nSize = At<std::uint64_t>(nEntry + AT_SIZE);
        const DWORD nStart = At(nEntry + AT_START);
        if (nSize == 0)
            return true;
        return nSize < At(AT_MINI_LIMIT) ? HoldsInMiniSectors(nStart, nSize)
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
            if (nIndex == NO_ENTRY)
                continue;
            if (nIndex >= m_entries.size() || seen[nIndex])
                return false;
            seen[nIndex] = true;
            const std::size_t nEntry = m_entries[nIndex];
            if (At<BYTE>(nEntry + AT_TYPE) == TYPE_STREAM && !HoldsStream(nEntry))
                return false;
            for (const std::size_t nAt : { AT_LEFT, AT_RIGHT, AT_CHILD })
                open.push_back(At(nEntry + nAt));
        }
        return true;
    }

    std::span<const BYTE> m_bytes;
    std::size_t m_nSector = HEADER_BYTES;  // bytes
    std::size_t m_nSectors = 0;            // behind the header
    CChain m_table;                        // by sector: the next one of its chain
    std::vector<std::size_t> m_entries;    // places of the directory's entries
    CChain m_miniTable;
    std::uint64_t m_nMiniSectors = 0;
};

}  // namespace

bool IsSoundCompoundFile(std::span<const BYTE> bytes)
{
    return CCompoundFile(bytes).IsSound();
}
