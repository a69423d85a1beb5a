// Every class of the family paints its own part with the calls that its look is made of.
#include "nodes/painted_calls.h"

namespace
{
struct CPaintCase
{
    const char* pszTypes;
    CRect rect;  // of the own part
    CCalls calls;
};

constexpr CRect s_bracket(100, 200, 160, 226);
constexpr CRect s_sign(100, 200, 150, 226);
constexpr CRect s_fraction(100, 200, 120, 242);
constexpr CRect s_mark(100, 200, 120, 208);

// Fonts: 120 tenths of a point are 16 pixels, 160 are 21 and 200 are 27.
// clang-format off
const CPaintCase s_aRows[] = {
    { "DIVISION[0]", { 100, 200, 150, 205 }, { "move 100 202", "line 150 202" } },
    { "DIVISION[1]", { 100, 200, 104, 216 }, { "move 104 200", "line 100 216" } },
    { "DIVISION[2]", { 100, 200, 104, 216 }, {} },

    // 29 high: (29 - 2) * 200 / 27 tenths of a point, 29 * 2 / 7 + 5 wide; the line starts at nine
    // tenths of the width.
    { "NTHROOT ROOT", { 100, 200, 150, 229 },
      { "text \xD6 @Symbol 27 13 in 100 200 150 229 924", "move 111 200", "line 150 200" } },

    // 26 high: (26 - 2) * 100 / 12 tenths of a point, 26 / 5 + 5 wide.
    { "BRACE[11]", s_bracket,
      { "text ( @Symbol 27 10 in 100 200 110 226 B28", "text   @Symbol 27 10 in 150 200 160 226 B2A" } },
    { "BRACE[17]", s_bracket, { "text ? @Symbol 27 10 in 100 200 110 226 B28" } },
    { "POISON[3]", s_bracket,
      { "text \xE1 @Symbol 27 10 in 100 200 110 226 B28", "text \xF1 @Symbol 27 10 in 150 200 160 226 B2A" } },

    { "PLUS",        s_sign, { "text + @Symbol 16 0 in 100 200 150 226 925" } },
    { "TIMES",       s_sign, { "text \xB4 @Symbol 16 0 in 100 200 150 226 925" } },
    { "EQUATION[1]", s_sign, { "text \xA3 @Symbol 16 0 in 100 200 150 226 925" } },
    { "ARROWS[0]",   s_sign, { "text ? @Symbol 16 0 in 100 200 150 226 929" } },
    { "ARROWS[5]",   s_sign, { "text b @MT Extra 16 0 in 100 200 150 226 929" } },
    { "FUNC[0]",     s_sign, { "text sin @Times New Roman 16 0 in 100 200 150 226 928" } },
    { "FUNC[20]",    s_sign, { "text G @Symbol 16 0 in 100 200 150 226 928" } },
    { "USERFUNC",    s_sign, { "text f @Times New Roman 16 0 in 100 200 150 226 925" } },
    { "LIMES",       s_sign, { "text lim @Times New Roman 16 0 in 100 200 150 226 925" } },
    { "SUM",         s_sign, { "text \xE5 @Symbol 21 0 in 100 200 150 226 929" } },
    { "PROD",        s_sign, { "text ? @Symbol 21 0 in 100 200 150 226 929" } },
    { "INTEGRAL[3]", s_sign, { "text \xF2\xF2 @Symbol 21 0 in 100 200 150 226 929" } },
    { "INTEGRAND",   s_sign, { "text d @Times New Roman 16 0 in 100 200 150 226 925" } },
    { "LAPLACE",     s_sign, { "text D @Symbol 16 0 in 100 200 150 226 925" } },
    { "PLANCK",      s_sign, { "text h @MT Extra 16 0 in 100 200 150 226 925" } },
    { "POWERTO INDEX RANGE BINOMIAL MATRIX LINE ELEMENT", s_sign, {} },

    // The bar stands two units below the upper symbol, which is 16 high, the lower one three further.
    { "DERIVE", s_fraction,
      { "text d @Times New Roman 16 0 in 100 200 120 242 921", "move 100 218", "line 120 218",
        "text d @Times New Roman 16 0 in 100 221 120 242 924" } },
    { "PARTDERIVE", s_fraction,
      { "text ? @Symbol 16 0 in 100 200 120 242 921", "move 100 218", "line 120 218",
        "text ? @Symbol 16 0 in 100 221 120 242 924" } },

    // A height of -120 carries the line 12 units over the right edge.
    { "VECTOR[0] VECTOR[7]", s_mark, { "text ? @Symbol 16 0 in 100 200 120 208 929" } },
    { "VECTOR[3] VECTOR[5]", s_mark,
      { "text ? @Symbol 16 0 in 100 200 120 208 92A", "move 100 205", "line 132 205" } },
    { "VECTOR[4]", s_mark,
      { "text ? @Symbol 16 0 in 100 200 120 208 92A", "move 100 205", "line 132 205",
        "move 100 209", "line 121 209" } },
    { "VECTOR[6]", s_mark, { "text ~ @Symbol 16 0 in 100 200 120 208 929" } },

    { "NABLA", { 100, 200, 112, 216 },
      { "text ? @Symbol 16 0 in 100 200 112 216 925", "move 101 202", "line 111 202", "line 109 200",
        "line 109 202" } },
};
// clang-format on
}  // namespace

// Of nodes that nobody measured: painting chooses the sign of the kind by itself.
TEST(PaintOwn, MakesTheCallsOfTheTable)
{
    for (const CPaintCase& row : s_aRows)
    {
        for (const std::string& strType : Words(row.pszTypes))
        {
            const CNodePtr pNode = Sketch("(" + strType + ")");
            CPaintDC dc;
            pNode->PaintOwn(&dc, row.rect, 0);
            EXPECT_EQ(dc.TakeCalls(), row.calls) << strType;
        }
    }
}

// A metafile keeps the right and bottom edges that are drawn, one less. 8388608 is dark blue,
// 16777215 the white of marked text, 3 the hatch that rises to the right.
TEST(PaintOwn, HatchesAPlaceholderInOneColour)
{
    for (const UINT nFlags : { 0u, PF_NODE, PF_GRAYED })
    {
        CPaintDC dc;
        Sketch("(PLACEHOLDER)")->PaintOwn(&dc, { 100, 200, 110, 214 }, nFlags);
        const std::string strColour = nFlags == 0 ? "8388608" : "16777215";
        EXPECT_EQ(dc.TakeCalls(), (CCalls{ "pen " + strColour, "hatch " + strColour + " 3",
                                           "rectangle 101 201 108 212" }));
    }
}

// The parent first, over its own part only; then left and right over the parent's fill.
TEST(Paint, FillsAndDrawsEachPartOnce)
{
    CPaintDC dc;
    CRect rect(30, 40, 30, 40);
    Sketch("(DIVISION a b)")->Paint(&dc, rect, nullptr, 0);
    const CCalls calls{ "fill 30 57 47 62",
                        "pen 0",
                        "move 30 59",
                        "line 47 59",
                        "fill 33 40 43 56",
                        "pen 0",
                        "text a @Times New Roman 16 0 in 33 40 43 56 925",
                        "fill 33 63 43 79",
                        "pen 0",
                        "text b @Times New Roman 16 0 in 33 63 43 79 925" };
    EXPECT_EQ(dc.TakeCalls(), calls);
}
