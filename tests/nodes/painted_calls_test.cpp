// Every class of the family paints its own part with the calls that its look is made of.
#include "nodes/painted_calls.h"

// Fonts: 120 tenths of a point are 16 pixels, 160 are 21, 200 are 27, 80 are 11.

TEST(PaintOwn, DrawsFractionsAsLines)
{
    ExpectPainted({
        { "NT_DIVISION", 0, { 100, 200, 150, 205 }, { "move 100 202", "line 150 202" } },
        { "NT_DIVISION", 1, { 100, 200, 104, 216 }, { "move 104 200", "line 100 216" } },
        { "NT_DIVISION", 2, { 100, 200, 104, 216 }, {} },
    });
}

// 29 high: (29 - 2) * 200 / 27 tenths of a point, 29 * 2 / 7 + 5 wide; the line starts at nine
// tenths of the width.
TEST(PaintOwn, StretchesARadicalAndDrawsItsLine)
{
    for (const char* pszType : { "NT_NTHROOT", "NT_ROOT" })
    {
        ExpectPainted({ { pszType,
                          0,
                          { 100, 200, 150, 229 },
                          { "text \xD6 @Symbol 27 13 in 100 200 150 229 924", "move 111 200",
                            "line 150 200" } } });
    }
}

// 26 high: (26 - 2) * 100 / 12 tenths of a point, 26 / 5 + 5 wide.
TEST(PaintOwn, StretchesBrackets)
{
    const CRect rect(100, 200, 160, 226);
    ExpectPainted({
        { "NT_BRACE",
          0,
          rect,
          { "text ( @Symbol 27 10 in 100 200 110 226 B28",
            "text ) @Symbol 27 10 in 150 200 160 226 B2A" } },
        { "NT_BRACE",
          11,
          rect,
          { "text ( @Symbol 27 10 in 100 200 110 226 B28",
            "text   @Symbol 27 10 in 150 200 160 226 B2A" } },
        { "NT_BRACE", 17, rect, { "text ? @Symbol 27 10 in 100 200 110 226 B28" } },
        { "NT_POISON",
          3,
          rect,
          { "text \xE1 @Symbol 27 10 in 100 200 110 226 B28",
            "text \xF1 @Symbol 27 10 in 150 200 160 226 B2A" } },
    });
}

TEST(PaintOwn, PutsSignsIntoTheirRectangles)
{
    const CRect rect(100, 200, 150, 226);
    ExpectPainted({
        { "NT_PLUS", 0, rect, { "text + @Symbol 16 0 in 100 200 150 226 925" } },
        { "NT_TIMES", 0, rect, { "text \xB4 @Symbol 16 0 in 100 200 150 226 925" } },
        { "NT_EQUATION", 1, rect, { "text \xA3 @Symbol 16 0 in 100 200 150 226 925" } },
        { "NT_ARROWS", 0, rect, { "text ? @Symbol 16 0 in 100 200 150 226 929" } },
        { "NT_ARROWS", 5, rect, { "text b @MT Extra 16 0 in 100 200 150 226 929" } },
        { "NT_FUNC", 0, rect, { "text sin @Times New Roman 16 0 in 100 200 150 226 928" } },
        { "NT_FUNC", 20, rect, { "text G @Symbol 16 0 in 100 200 150 226 928" } },
        { "NT_USERFUNC", 0, rect, { "text f @Times New Roman 16 0 in 100 200 150 226 925" } },
        { "NT_LIMES", 0, rect, { "text lim @Times New Roman 16 0 in 100 200 150 226 925" } },
        { "NT_SUM", 0, rect, { "text \xE5 @Symbol 21 0 in 100 200 150 226 929" } },
        { "NT_PROD", 0, rect, { "text ? @Symbol 21 0 in 100 200 150 226 929" } },
        { "NT_INTEGRAL", 3, rect, { "text \xF2\xF2 @Symbol 21 0 in 100 200 150 226 929" } },
        { "NT_INTEGRAND", 0, rect, { "text d @Times New Roman 16 0 in 100 200 150 226 925" } },
        { "NT_LAPLACE", 0, rect, { "text D @Symbol 16 0 in 100 200 150 226 925" } },
        { "NT_PLANCK", 0, rect, { "text h @MT Extra 16 0 in 100 200 150 226 925" } },
    });
}

TEST(PaintOwn, DrawsNothingForArrangements)
{
    const CRect rect(100, 200, 150, 226);
    for (const char* pszType : { "NT_POWERTO", "NT_INDEX", "NT_RANGE", "NT_BINOMIAL", "NT_MATRIX",
                                 "NT_LINE", "NT_ELEMENT" })
        ExpectPainted({ { pszType, 0, rect, {} } });
}

// The bar stands two units below the upper symbol, which is 16 high, the lower one three further.
TEST(PaintOwn, DrawsADerivativeAsAFractionOfSymbols)
{
    const CRect rect(100, 200, 120, 242);
    ExpectPainted({
        { "NT_DERIVE",
          0,
          rect,
          { "text d @Times New Roman 16 0 in 100 200 120 242 921", "move 100 218", "line 120 218",
            "text d @Times New Roman 16 0 in 100 221 120 242 924" } },
        { "NT_PARTDERIVE",
          0,
          rect,
          { "text ? @Symbol 16 0 in 100 200 120 242 921", "move 100 218", "line 120 218",
            "text ? @Symbol 16 0 in 100 221 120 242 924" } },
    });
}

// The height of -80 carries the line 8 units over the right edge.
TEST(PaintOwn, DrawsMarksOverAnExpression)
{
    const CRect rect(100, 200, 120, 208);
    const CCalls lined{ "text ? @Symbol 11 0 in 100 200 120 208 92A", "move 100 205",
                        "line 128 205" };
    CCalls twice(lined);
    twice.insert(twice.end(), { "move 100 209", "line 121 209" });
    ExpectPainted({
        { "NT_VECTOR", 0, rect, { "text ? @Symbol 11 0 in 100 200 120 208 929" } },
        { "NT_VECTOR", 3, rect, lined },
        { "NT_VECTOR", 4, rect, twice },
        { "NT_VECTOR", 5, rect, lined },
        { "NT_VECTOR", 6, rect, { "text ~ @Symbol 11 0 in 100 200 120 208 929" } },
        { "NT_VECTOR", 7, rect, { "text ? @Symbol 11 0 in 100 200 120 208 929" } },
    });
}

TEST(PaintOwn, DrawsATipOnTheNabla)
{
    ExpectPainted({ { "NT_NABLA",
                      0,
                      { 100, 200, 112, 216 },
                      { "text ? @Symbol 16 0 in 100 200 112 216 925", "move 101 202",
                        "line 111 202", "line 109 200", "line 109 202" } } });
}

// A metafile keeps the right and bottom edges that are drawn, one less. 8388608 is dark blue,
// 16777215 the white of marked text, 3 the hatch that rises to the right.
TEST(PaintOwn, HatchesAPlaceholderInOneColour)
{
    for (const UINT nFlags : { 0u, PF_NODE, PF_GRAYED })
    {
        CPaintDC dc;
        Node("NT_PLACEHOLDER")->PaintOwn(&dc, { 100, 200, 110, 214 }, nFlags);
        const char* pszPen = nFlags == 0 ? "pen 8388608" : "pen 16777215";
        const char* pszHatch = nFlags == 0 ? "hatch 8388608 3" : "hatch 16777215 3";
        EXPECT_EQ(dc.TakeCalls(), (CCalls{ pszPen, pszHatch, "rectangle 101 201 108 212" }));
    }
}

// The parent first, over its own part only; then left and right over the parent's fill.
TEST(Paint, FillsAndDrawsEachPartOnce)
{
    const CNodePtr pRoot = Node("NT_DIVISION", Text("a"), Text("b"));
    CPaintDC dc;
    CRect rect(30, 40, 30, 40);
    pRoot->Paint(&dc, rect, nullptr, 0);
    EXPECT_EQ(dc.TakeCalls(), (CCalls{
                                  "fill 30 57 47 62",
                                  "pen 0",
                                  "move 30 59",
                                  "line 47 59",
                                  "fill 33 40 43 56",
                                  "pen 0",
                                  "text a @Times New Roman 16 0 in 33 40 43 56 925",
                                  "fill 33 63 43 79",
                                  "pen 0",
                                  "text b @Times New Roman 16 0 in 33 63 43 79 925",
                              }));
}
