// The C interface with any bytes and any options: the first bytes choose, the rest is a text, a
// stored formula or a picture. What it gives must be sound: a status of its own, bytes with a NUL
// behind them or none, words for each error.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "mivora/mivora_c.h"

namespace
{
constexpr const char* s_apszFormats[] = { "svg", "png", "bmp", "emf", "gif" };
constexpr const char* s_apszColours[] = { nullptr, "red", "#12f", "currentColor", "reddish" };

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

mivora_status Checked(mivora_status nStatus)
{
    mivora_error error{};
    Require(mivora_last_error(&error) == MIVORA_OK);
    Require(error.status == nStatus && nStatus != MIVORA_FAILED);
    Require((error.message[0] == '\0') == (nStatus == MIVORA_OK));
    return nStatus;
}

// What a call gave, ended here.
struct CGiven
{
    ~CGiven()
    {
        Require(pBytes == nullptr || pBytes[nSize] == '\0');
        mivora_free(pBytes);
    }

    char* pBytes = nullptr;
    size_t nSize = 0;
};

// Options from a few bytes; the picture stays small.
class CChoice
{
public:
    explicit CChoice(std::span<const std::uint8_t>& bytes) : m_rest(bytes) {}

    int Next(int nCount)
    {
        if (m_rest.empty())
            return 0;
        const int n = m_rest.front() % nCount;
        m_rest = m_rest.subspan(1);
        return n;
    }

private:
    std::span<const std::uint8_t>& m_rest;
};

void UseFormula(mivora_formula* pFormula, const char* pszFormat, const mivora_paint& paint)
{
    mivora_error problem{};
    Require(mivora_formula_problem(pFormula, &problem) == MIVORA_OK);
    mivora_size size{};
    CGiven picture;
    if (Checked(mivora_formula_picture(pFormula, pszFormat, &paint, &picture.pBytes, &picture.nSize,
                                       &size)) == MIVORA_OK)
    {
        CGiven source;
        Checked(
            mivora_picture_source(picture.pBytes, picture.nSize, &source.pBytes, &source.nSize));
    }
    for (int nForm = MIVORA_TREE_JSON; nForm <= MIVORA_FORTRAN; ++nForm)
    {
        CGiven text;
        Checked(mivora_formula_write(pFormula, static_cast<mivora_form>(nForm), &text.pBytes,
                                     &text.nSize));
    }
    CGiven stored;
    if (Checked(mivora_formula_fml(pFormula, &stored.pBytes, &stored.nSize)) != MIVORA_OK)
        return;
    mivora_formula* pAgain = nullptr;
    Checked(mivora_formula_from_fml(stored.pBytes, stored.nSize, nullptr, &pAgain));
    Require(pAgain != nullptr);
    mivora_formula_free(pAgain);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    std::span<const std::uint8_t> rest(pData, nSize);
    CChoice choice(rest);
    const int nJob = choice.Next(4);
    mivora_look look{};
    look.struct_size = sizeof look;
    look.greek = choice.Next(2);
    look.points = choice.Next(30);
    mivora_paint paint{};
    paint.struct_size = sizeof paint;
    const char* pszFormat = s_apszFormats[choice.Next(5)];
    paint.color = s_apszColours[choice.Next(5)];
    paint.dpi = choice.Next(120);
    const int nSwitches = choice.Next(32);
    paint.exact = nSwitches & 1;
    paint.boxes = nSwitches & 2;
    paint.grayed = nSwitches & 4;
    paint.transparent = nSwitches & 8;
    paint.no_source = nSwitches & 16;
    const char* pRest = reinterpret_cast<const char*>(rest.data());

    mivora_formula* pFormula = nullptr;
    double dValue = 0;
    CGiven source;
    switch (nJob)
    {
        case 0:
            Checked(mivora_formula_from_text(pRest, rest.size(), &look, &pFormula));
            break;
        case 1:
            Checked(mivora_formula_from_fml(pRest, rest.size(), &look, &pFormula));
            break;
        case 2:
            Checked(mivora_calculate(pRest, rest.size(), &dValue));
            break;
        default:
            Checked(mivora_picture_source(pRest, rest.size(), &source.pBytes, &source.nSize));
    }
    if (pFormula != nullptr)
        UseFormula(pFormula, pszFormat, paint);
    mivora_formula_free(pFormula);
    return 0;
}
