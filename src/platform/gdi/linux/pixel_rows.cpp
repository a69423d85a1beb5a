// The depths of bitmaps: tables of colours, the nearest colour, packing and unpacking of rows.
#include "platform/gdi/linux/pixel_rows.h"

#include <algorithm>
#include <array>
#include <limits>

namespace
{
constexpr std::array<CPixel, 2> s_aTwo = { 0x000000, 0xFFFFFF };

constexpr std::array<CPixel, 16> s_aSixteen = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

// The system's ten dark and ten light colours; between them a cube of six steps on each axis
// and a wedge of twenty greys that the cube lacks.
constexpr std::array<CPixel, 10> s_aDark = { 0x000000, 0x800000, 0x008000, 0x808000, 0x000080,
                                             0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0 };
constexpr std::array<CPixel, 10> s_aLight = { 0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00,
                                              0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF };
constexpr int CUBE_STEPS = 6;
constexpr int CUBE_STEP = 0x33;
constexpr int GREYS = 20;

constexpr std::array<CPixel, 256> MakeMix()
{
    std::array<CPixel, 256> aMix{};
    std::size_t n = 0;
    for (const CPixel pixel : s_aDark)
        aMix[n++] = pixel;
    for (int nRed = 0; nRed < CUBE_STEPS; ++nRed)
        for (int nGreen = 0; nGreen < CUBE_STEPS; ++nGreen)
            for (int nBlue = 0; nBlue < CUBE_STEPS; ++nBlue)
                aMix[n++] = static_cast<CPixel>(nRed * CUBE_STEP << 16 | nGreen * CUBE_STEP << 8 |
                                                nBlue * CUBE_STEP);
    for (int i = 1; i <= GREYS; ++i)
        aMix[n++] = static_cast<CPixel>(i * 255 / (GREYS + 1)) * 0x010101u;
    for (const CPixel pixel : s_aLight)
        aMix[n++] = pixel;
    return aMix;
}
constexpr std::array<CPixel, 256> s_aMix = MakeMix();

// 5 bits of a channel, spread over 8.
constexpr CPixel Widen5(CPixel value)
{
    return value << 3 | value >> 2;
}

// The 5-bit value that comes nearest to each value of 8 bits once it is spread again.
constexpr std::array<BYTE, 256> MakeNarrow5()
{
    std::array<BYTE, 256> aNarrow{};
    for (int i = 0; i < 256; ++i)
    {
        int nBest = 0;
        for (int j = 1; j < 32; ++j)
        {
            const int nOld = i - static_cast<int>(Widen5(static_cast<CPixel>(nBest)));
            const int nNew = i - static_cast<int>(Widen5(static_cast<CPixel>(j)));
            if (nNew * nNew < nOld * nOld)
                nBest = j;
        }
        aNarrow[static_cast<std::size_t>(i)] = static_cast<BYTE>(nBest);
    }
    return aNarrow;
}
constexpr std::array<BYTE, 256> s_aNarrow5 = MakeNarrow5();

constexpr CPixel Pack555(CPixel pixel)
{
    return static_cast<CPixel>(s_aNarrow5[pixel >> 16 & 0xFF] << 10 |
                               s_aNarrow5[pixel >> 8 & 0xFF] << 5 | s_aNarrow5[pixel & 0xFF]);
}

constexpr CPixel Unpack555(CPixel value)
{
    return Widen5(value >> 10 & 31) << 16 | Widen5(value >> 5 & 31) << 8 | Widen5(value & 31);
}

int Distance(CPixel a, CPixel b)
{
    const int nRed = static_cast<int>(a >> 16 & 0xFF) - static_cast<int>(b >> 16 & 0xFF);
    const int nGreen = static_cast<int>(a >> 8 & 0xFF) - static_cast<int>(b >> 8 & 0xFF);
    const int nBlue = static_cast<int>(a & 0xFF) - static_cast<int>(b & 0xFF);
    return nRed * nRed + nGreen * nGreen + nBlue * nBlue;
}

// Of equal colours the ends of the table win: they are the system's.
BYTE SearchNearest(CPixel pixel, std::span<const CPixel> colours)
{
    std::size_t nBest = 0;
    int nDistance = std::numeric_limits<int>::max();
    const std::size_t nLightEnd = colours.size() - s_aLight.size();
    for (std::size_t i = 0; i < colours.size(); ++i)
    {
        const int nNew = Distance(pixel, colours[i]);
        if (nNew < nDistance || (nNew == nDistance && nBest >= s_aDark.size() && i >= nLightEnd))
        {
            nDistance = nNew;
            nBest = i;
        }
    }
    return static_cast<BYTE>(nBest);
}

// Pictures of text repeat few colours: what was searched is kept in the slot of its hash.
class CNearestCache
{
public:
    explicit CNearestCache(std::span<const CPixel> colours) : m_colours(colours) {}

    BYTE Find(CPixel pixel)
    {
        pixel &= PIXEL_COLOUR;
        CSlot& slot = m_aSlots[pixel * 0x9E3779B1u >> 24];
        if (slot.key != pixel + 1)
            slot = { pixel + 1, SearchNearest(pixel, m_colours) };
        return slot.index;
    }

private:
    struct CSlot
    {
        CPixel key = 0;  // colour + 1; 0 is an empty slot
        BYTE index = 0;
    };
    std::span<const CPixel> m_colours;
    std::array<CSlot, 256> m_aSlots{};
};

BYTE NearestIndex(CPixel pixel, int nBits)
{
    static CNearestCache s_cacheSixteen(s_aSixteen);
    static CNearestCache s_cacheMix(s_aMix);
    switch (nBits)
    {
        case 1:
            // Nearer to white than to black: the sum of the channels decides, and cannot tie.
            return (pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF) > 382;
        case 4:
            return s_cacheSixteen.Find(pixel);
        default:
            return s_cacheMix.Find(pixel);
    }
}

void PackIndices(std::span<const CPixel> pixels, int nBits, BYTE* pRow)
{
    std::fill_n(pRow, RowBytes(pixels.size(), nBits, 1), BYTE{ 0 });
    const std::size_t nPerByte = 8 / static_cast<std::size_t>(nBits);
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        const std::size_t nShift = 8 - static_cast<std::size_t>(nBits) * (i % nPerByte + 1);
        pRow[i / nPerByte] |= static_cast<BYTE>(NearestIndex(pixels[i], nBits) << nShift);
    }
}

void UnpackIndices(const BYTE* pRow, int nBits, std::span<const CPixel> colours,
                   std::span<CPixel> pixels)
{
    const std::size_t nPerByte = 8 / static_cast<std::size_t>(nBits);
    const unsigned nMask = (1u << nBits) - 1;
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        const std::size_t nShift = 8 - static_cast<std::size_t>(nBits) * (i % nPerByte + 1);
        const std::size_t nIndex = pRow[i / nPerByte] >> nShift & nMask;
        pixels[i] = nIndex < colours.size() ? colours[nIndex] : 0;
    }
}

// Wider than 8 bits: the bytes of the value, lowest first.
CPixel ReadValue(const BYTE* p, int nBytes)
{
    CPixel value = 0;
    for (int i = 0; i < nBytes; ++i)
        value |= CPixel{ p[i] } << 8 * i;
    return value;
}

void WriteValue(BYTE* p, int nBytes, CPixel value)
{
    for (int i = 0; i < nBytes; ++i)
        p[i] = static_cast<BYTE>(value >> 8 * i);
}
}  // namespace

bool IsPixelDepth(int nBits)
{
    return nBits == 1 || nBits == 4 || nBits == 8 || nBits == 16 || nBits == 24 || nBits == 32;
}

std::span<const CPixel> DepthColours(int nBits)
{
    switch (nBits)
    {
        case 1:
            return s_aTwo;
        case 4:
            return s_aSixteen;
        case 8:
            return s_aMix;
        default:
            return {};
    }
}

CPixel NearestPixel(CPixel pixel, int nBits)
{
    if (nBits <= 8)
        return DepthColours(nBits)[NearestIndex(pixel, nBits)];
    return nBits == 16 ? Unpack555(Pack555(pixel)) : pixel & PIXEL_COLOUR;
}

void PackRow(std::span<const CPixel> pixels, int nBits, BYTE* pRow)
{
    if (nBits <= 8)
        return PackIndices(pixels, nBits, pRow);
    const int nBytes = nBits / 8;
    for (const CPixel pixel : pixels)
    {
        WriteValue(pRow, nBytes, nBits == 16 ? Pack555(pixel) : pixel & PIXEL_COLOUR);
        pRow += nBytes;
    }
}

void UnpackRow(const BYTE* pRow, int nBits, std::span<const CPixel> colours,
               std::span<CPixel> pixels)
{
    if (nBits <= 8)
        return UnpackIndices(pRow, nBits, colours, pixels);
    const int nBytes = nBits / 8;
    for (CPixel& pixel : pixels)
    {
        const CPixel value = ReadValue(pRow, nBytes);
        pixel = nBits == 16 ? Unpack555(value) : value & PIXEL_COLOUR;
        pRow += nBytes;
    }
}
