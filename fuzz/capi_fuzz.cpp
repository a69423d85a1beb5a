// The C interface with any bytes and any options: the first bytes choose, the rest is a text, a
// stored formula or a picture. What it gives must be sound: a status of its own, bytes with a NUL
// behind them or none, words for each error.
#include <cstdint>
#include <span>

#include "capi/c_calls.h"

namespace
{
constexpr const char* s_apszFormats[] = { "svg", "png", "bmp", "emf", "gif" };
constexpr const char* s_apszColours[] = { nullptr, "red", "#12f", "currentColor", "reddish" };

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

// The last call gave what its status says.
void RequireAnswer(bool bGiven)
{
    const mivora_error error = LastError();
    Require(error.status != MIVORA_FAILED);
    Require((error.status == MIVORA_OK) == bGiven);
    Require((error.message[0] == '\0') == bGiven);
}

CAnswer Checked(CAnswer answer)
{
    RequireAnswer(answer.nStatus == MIVORA_OK);
    return answer;
}

void UseFormula(const CFormulaHandle& formula, const char* pszFormat, const mivora_paint& paint)
{
    RequireAnswer(formula != nullptr);
    if (formula == nullptr)
        return;
    mivora_error problem{};
    Require(mivora_formula_problem(formula.get(), &problem) == MIVORA_OK);
    mivora_size size{};
    const CAnswer picture = Checked(Picture(formula, pszFormat, &paint, &size));
    if (picture.nStatus == MIVORA_OK)
        Checked(SourceOf(picture.strBytes));
    for (int nForm = MIVORA_TREE_JSON; nForm <= MIVORA_FORTRAN; ++nForm)
        Checked(Answer(mivora_formula_write, formula.get(), static_cast<mivora_form>(nForm)));
    const CAnswer stored = Checked(Answer(mivora_formula_fml, formula.get()));
    Require(stored.nStatus != MIVORA_OK || FromFml(stored.strBytes) != nullptr);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    std::span<const std::uint8_t> rest(pData, nSize);
    const auto choice = [&](int nCount)
    {
        if (rest.empty())
            return 0;
        const int n = rest.front() % nCount;
        rest = rest.subspan(1);
        return n;
    };
    const int nJob = choice(4);
    mivora_look look{};
    look.struct_size = sizeof look;
    look.greek = choice(2);
    look.points = choice(30);
    mivora_paint paint{};
    paint.struct_size = sizeof paint;
    const char* pszFormat = s_apszFormats[choice(5)];
    paint.color = s_apszColours[choice(5)];
    paint.dpi = choice(120);  // the picture stays small
    const int nSwitches = choice(32);
    paint.exact = nSwitches & 1;
    paint.boxes = nSwitches & 2;
    paint.grayed = nSwitches & 4;
    paint.transparent = nSwitches & 8;
    paint.no_source = nSwitches & 16;

    const std::string_view strRest(reinterpret_cast<const char*>(rest.data()), rest.size());
    double dValue = 0;
    if (nJob == 0)
        UseFormula(FromText(strRest, &look), pszFormat, paint);
    else if (nJob == 1)
        UseFormula(FromFml(strRest, &look), pszFormat, paint);
    else if (nJob == 2)
        RequireAnswer(mivora_calculate(strRest.data(), strRest.size(), &dValue) == MIVORA_OK);
    else
        Checked(SourceOf(strRest));
    return 0;
}
