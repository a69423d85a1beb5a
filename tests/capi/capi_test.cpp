// The C interface, by what its header promises.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <thread>
#include <vector>

#include "capi/c_calls.h"

namespace
{
using namespace std::string_literals;

std::vector<std::string> Formulas()
{
    std::vector<std::string> formulas;
    std::ifstream file(MIVORA_TEST_DATA "/formulas.txt");
    for (std::string strLine; std::getline(file, strLine);)
        formulas.push_back(strLine);
    return formulas;
}

struct CFormatCase
{
    const char* pszName;
    std::string strStart;
    bool bSource;
};
const CFormatCase s_aFormats[] = {
    { "svg", "<svg", true },      { "PNG", "\x89PNG\r\n\x1A\n", true }, { "bmp", "BM", false },
    { "emf", "\1\0\0\0"s, true }, { "wmf", "\1\0\0\0"s, true },
#ifndef _WIN32
    { "pdf", "%PDF-", true },
#endif
};

TEST(CPictures, CarryTheTextAndKeepItWhenTheyAreMadeTwice)
{
    for (const char* pszText : { "a/b+greek p", "str(\xC3\xA4)'" })  // an apostrophe ends a comment
    {
        const CFormulaHandle formula = FromText(pszText);
        for (const CFormatCase& row : s_aFormats)
        {
            SCOPED_TRACE(row.pszName);
            const CAnswer picture = Picture(formula, row.pszName);
            EXPECT_EQ(picture.nStatus, MIVORA_OK) << LastError().message;
            EXPECT_TRUE(picture.strBytes.starts_with(row.strStart));
            EXPECT_EQ(picture, Picture(FromText(pszText), row.pszName));
            const CAnswer none{ MIVORA_NO_SOURCE, "" };
            EXPECT_EQ(SourceOf(picture.strBytes), row.bSource ? CAnswer(MIVORA_OK, pszText) : none);
            const mivora_paint bare{ .struct_size = sizeof bare, .no_source = 1 };
            const CAnswer without = Picture(formula, row.pszName, &bare);
            EXPECT_EQ(SourceOf(without.strBytes).strBytes, "");
        }
    }
}

TEST(CPictures, AreAsLargeAsToldAndGrowWithTheResolution)
{
    const CFormulaHandle formula = FromText("sqr(x)/2");
    mivora_size screen{};
    ASSERT_EQ(mivora_formula_size(formula.get(), nullptr, &screen), MIVORA_OK);
    EXPECT_EQ(screen.em, 16);  // 12 points at 96 dots per inch
    EXPECT_GT(screen.height, screen.axis);
    EXPECT_GT(screen.depth, 0);
    const mivora_paint fine{ .struct_size = sizeof fine, .dpi = 192, .margin = 5 };
    mivora_size size{};
    const std::string strPng = Picture(formula, "png", &fine, &size).strBytes;
    ASSERT_GT(strPng.size(), 24U);
    const auto number = [&](size_t nOffset)
    {
        return static_cast<unsigned char>(strPng[nOffset]) * 256 +
               static_cast<unsigned char>(strPng[nOffset + 1]);
    };
    EXPECT_EQ(number(18), size.width);  // of the header chunk
    EXPECT_EQ(number(22), size.height);
    EXPECT_NEAR(size.width, 2 * screen.width + 10, 3);
    EXPECT_EQ(size.em, 32);
}

TEST(CPictures, DoNotDependOnTheFormulasBesideThem)
{
    // Products with a sign have another gap than those without.
    const CFormulaHandle first = FromText("2*x*y");
    const CAnswer before = Picture(first, "svg");
    const CFormulaHandle second = FromText("2**3");
    const CAnswer beside = Picture(second, "svg");
    EXPECT_EQ(Picture(first, "svg"), before);
    EXPECT_EQ(Picture(second, "svg"), beside);
}

struct CFormCase
{
    mivora_form nForm;
    const char* pszText;
    std::string strWritten;
};
const CFormCase s_aForms[] = {
    { MIVORA_MATHML, "a/b",
      R"(<math xmlns="http://www.w3.org/1998/Math/MathML" display="block"><mfrac><mi>a</mi><mi>b</mi></mfrac></math>)" },
    { MIVORA_LATEX, "a/b", "\\frac{a}{b}" },
    { MIVORA_SPEECH, "x^2", "x squared" },
    { MIVORA_FORTRAN, "a/b", "      (a)/(b)  " },
    { MIVORA_TREE_JSON, "str(\xC3\xA4)+greek p",
      R"({"type":"NT_STANDARD","symbol":"","left":{"type":"NT_PLUS","symbol":"+","left":)"
      R"({"type":"NT_VARIABLE","symbol":"\\xE4","left":null,"right":null},"right":)"
      R"({"type":"NT_VARIABLE","symbol":"p","greek":true,"left":null,"right":null}},"right":null})" },
};

TEST(CForms, AreWritten)
{
    for (const CFormCase& row : s_aForms)
    {
        EXPECT_EQ(Answer(mivora_formula_write, FromText(row.pszText).get(), row.nForm).strBytes,
                  row.strWritten);
    }
    const std::string strLayout =
        Answer(mivora_formula_write, FromText("2x").get(), MIVORA_LAYOUT_JSON).strBytes;
    EXPECT_TRUE(strLayout.starts_with("{\"gap\":")) << strLayout;
    EXPECT_NE(strLayout.find("\"error\":{\"position\":2,"), std::string::npos) << strLayout;
}

struct CTextCase
{
    std::string strText;
    int nGreek;
    mivora_status nStatus;   // of the making
    mivora_status nProblem;  // of what was made
    size_t nPosition;
    std::string strMessage;
    std::string strExcerpt = {};
};
const CTextCase s_aTexts[] = {
    { "a+b", 0, MIVORA_OK, MIVORA_OK, 0, "" },
    { "", 0, MIVORA_OK, MIVORA_OK, 0, "" },
    { "2x", 0, MIVORA_OK, MIVORA_SYNTAX_ERROR, 2, "Error at Position 2", "  2x\n   ^" },
    { " str(\xC3\xA4)+2x", 0, MIVORA_OK, MIVORA_SYNTAX_ERROR, 9, "Error at Position 9",
      "   str(\xC3\xA4)+2x\n           ^" },
    { "a^b^c", 0, MIVORA_OK, MIVORA_TEXT_DROPPED, 3,
      "a part of the text is not in the picture (position 3)", "  a^b^c\n    ^" },
    { "a\0b"s, 0, MIVORA_OK, MIVORA_TEXT_DROPPED, 2, "the text ends at a NUL (position 2)",
      "  a b\n   ^" },
    { "\xCE\xB1+1", 1, MIVORA_OK, MIVORA_OK, 0, "" },
    { "\xCE\xB1+1", 0, MIVORA_INVALID_TEXT, MIVORA_OK, 1,
      "position 1: U+03B1 is not in Windows-1252; write greek a" },
    { "x\xCE\xB1", 1, MIVORA_INVALID_TEXT, MIVORA_OK, 2,
      "position 2: the Greek letter \xCE\xB1 stands beside another letter: write an operator "
      "between them" },
    { "a\xFF", 0, MIVORA_INVALID_TEXT, MIVORA_OK, 2, "position 2: the byte 0xFF is no UTF-8" },
    { std::string(65534, 'a'), 0, MIVORA_OK, MIVORA_OK, 0, "" },
    { std::string(70000, 'a'), 0, MIVORA_INVALID_TEXT, MIVORA_OK, 0,
      "the text is too long: it has 70000 characters, 65534 is the most" },
    { std::string(1000, '+') + "?" + std::string(1000, '+'), 0, MIVORA_OK, MIVORA_SYNTAX_ERROR,
      1001, "Error at Position 1001",
      "  " + std::string(36, '+') + "?" + std::string(35, '+') + "\n" + std::string(38, ' ') +
          "^" },
};

TEST(CTexts, AreFormedOrRefusedWithAPlace)
{
    for (const CTextCase& row : s_aTexts)
    {
        SCOPED_TRACE(row.strText.substr(0, 20));
        const mivora_look look{ .struct_size = sizeof look, .greek = row.nGreek };
        const CFormulaHandle formula = FromText(row.strText, &look);
        mivora_error error = LastError();
        EXPECT_EQ(error.status, row.nStatus);
        ASSERT_EQ(formula != nullptr, row.nStatus == MIVORA_OK);
        if (formula != nullptr)
        {
            ASSERT_EQ(mivora_formula_problem(formula.get(), &error), MIVORA_OK);
        }
        EXPECT_EQ(error.status, formula ? row.nProblem : row.nStatus);
        EXPECT_EQ(error.position, row.nPosition);
        EXPECT_EQ(error.message, row.strMessage);
        EXPECT_EQ(error.excerpt, row.strExcerpt);
    }
}

struct CValueCase
{
    const char* pszText;
    double dValue;
    mivora_status nStatus;
    size_t nPosition;
};
const CValueCase s_aValues[] = {
    { "2*(3+4)", 14, MIVORA_OK, 0 },          { "2^10/4", 256, MIVORA_OK, 0 },
    { "1+2?", 3, MIVORA_SYNTAX_ERROR, 4 },    { "1+2/0", 3, MIVORA_SYNTAX_ERROR, 0 },
    { "\xFF", 4711, MIVORA_INVALID_TEXT, 1 },
};

TEST(CValues, AreCalculated)
{
    for (const CValueCase& row : s_aValues)
    {
        SCOPED_TRACE(row.pszText);
        double dValue = 4711;
        EXPECT_EQ(mivora_calculate(row.pszText, MIVORA_WHOLE, &dValue), row.nStatus);
        EXPECT_EQ(dValue, row.dValue);
        EXPECT_EQ(LastError().position, row.nPosition);
        EXPECT_EQ(LastError().message[0] == '\0', row.nStatus == MIVORA_OK);
    }
}

TEST(CStored, ComeBackAsTheyWere)
{
    const mivora_look look{ .struct_size = sizeof look, .points = 20, .face = "Arial" };
    for (const std::string& strText : Formulas())
    {
        for (const mivora_look* pLook : { static_cast<const mivora_look*>(nullptr), &look })
        {
            const CFormulaHandle formula = FromText(strText, pLook);
            const CAnswer stored = Answer(mivora_formula_fml, formula.get());
            ASSERT_EQ(stored.nStatus, MIVORA_OK);
            const CFormulaHandle read = FromFml(stored.strBytes);
            ASSERT_NE(read, nullptr) << LastError().message;
            EXPECT_EQ(Answer(mivora_formula_text, read.get()), CAnswer(MIVORA_OK, strText));
            EXPECT_EQ(Answer(mivora_formula_fml, read.get()), stored) << strText;
            for (const mivora_form nForm : { MIVORA_MATHML, MIVORA_LATEX, MIVORA_SPEECH })
            {
                EXPECT_EQ(Answer(mivora_formula_write, read.get(), nForm),
                          Answer(mivora_formula_write, formula.get(), nForm));
            }
            mivora_size before{};
            mivora_size after{};
            mivora_formula_size(formula.get(), nullptr, &before);
            mivora_formula_size(read.get(), nullptr, &after);
            EXPECT_EQ(before.height, after.height) << strText;
        }
    }
}

TEST(CStored, AreRefusedWhenTheyAreDamaged)
{
    const std::string strSound = Answer(mivora_formula_fml, FromText("a/b").get()).strBytes;
    const auto check = [](const std::string& strBytes)
    {
        const CFormulaHandle formula = FromFml(strBytes);
        ASSERT_EQ(LastError().status, formula ? MIVORA_OK : MIVORA_INVALID_DATA)
            << LastError().message;
        if (formula)
            Picture(formula, "svg");
    };
    for (size_t n = 0; n < strSound.size(); n += 7)
    {
        check(strSound.substr(0, n));
        std::string strOther = strSound;
        strOther[n] = static_cast<char>(~strOther[n]);
        check(strOther);
    }
}

TEST(CArguments, AreRefused)
{
    const CFormulaHandle formula = FromText("a");
    mivora_formula* pFormula = formula.get();
    mivora_formula* pMade = nullptr;
    char* pBytes = nullptr;
    size_t nSize = 0;
    double dValue = 0;
    mivora_size size{};
    // A word says what is wrong.
    const auto refused = [](const std::string& strWord, mivora_status nStatus)
    {
        EXPECT_EQ(nStatus, MIVORA_INVALID_ARGUMENT) << strWord;
        EXPECT_NE(std::string(LastError().message).find(strWord), std::string::npos)
            << LastError().message;
    };
    refused("pointer", mivora_formula_from_text(nullptr, 0, nullptr, &pMade));
    refused("pointer", mivora_formula_from_text("a", 1, nullptr, nullptr));
    refused("pointer", mivora_formula_from_fml(nullptr, 0, nullptr, &pMade));
    refused("pointer", mivora_formula_fml(nullptr, &pBytes, &nSize));
    refused("pointer", mivora_formula_fml(pFormula, nullptr, &nSize));
    refused("pointer", mivora_formula_text(pFormula, &pBytes, nullptr));
    refused("pointer", mivora_formula_size(pFormula, nullptr, nullptr));
    refused("pointer", mivora_formula_problem(pFormula, nullptr));
    refused("pointer", mivora_calculate(nullptr, 0, &dValue));
    refused("pointer", mivora_calculate("1", 1, nullptr));
    refused("pointer", mivora_picture_source(nullptr, 0, &pBytes, &nSize));
    const auto nNoForm = static_cast<mivora_form>(6);
    refused("there is no form 6", mivora_formula_write(pFormula, nNoForm, &pBytes, &nSize));

    const std::pair<const char*, mivora_look> aLooks[] = {
        { "struct_size", { .struct_size = 1000 } },
        { "struct_size", { .struct_size = 1 } },
        { "points", { .struct_size = sizeof(mivora_look), .points = 3 } },
        { "face", { .struct_size = sizeof(mivora_look), .face = "" } },
        { "face",
          { .struct_size = sizeof(mivora_look),
            .face = "a face of more than thirty-one letters" } },
    };
    for (const auto& [pszWord, look] : aLooks)
        refused(pszWord, mivora_formula_from_text("a", 1, &look, &pMade));

    const auto paint = [&](const char* pszFormat, mivora_paint options)
    {
        options.struct_size = sizeof options;
        return mivora_formula_picture(pFormula, pszFormat, &options, &pBytes, &nSize, nullptr);
    };
    refused("pointer", paint(nullptr, {}));
    refused("gif is none of", paint("gif", {}));
    refused("dpi", paint("png", { .dpi = -1 }));
    refused("dpi", paint("png", { .dpi = 2401 }));
    refused("margin", paint("png", { .margin = -1 }));
    refused("metafile", paint("emf", { .dpi = 96 }));
    refused("color", paint("png", { .color = "reddish" }));
    refused("currentColor", paint("png", { .color = "currentColor" }));
    refused("background", paint("svg", { .transparent = 1, .background = "red" }));
    EXPECT_EQ(pMade, nullptr);
    EXPECT_EQ(pBytes, nullptr);
    EXPECT_EQ(mivora_last_error(nullptr), MIVORA_INVALID_ARGUMENT);
    EXPECT_EQ(SourceOf("no picture").nStatus, MIVORA_INVALID_DATA);
    EXPECT_EQ(mivora_formula_size(pFormula, nullptr, &size), MIVORA_OK);
    EXPECT_STREQ(LastError().message, "");
#ifdef _WIN32
    EXPECT_EQ(paint("pdf", {}), MIVORA_UNSUPPORTED);
#endif
    mivora_formula_free(nullptr);
    mivora_free(nullptr);
}

TEST(CArguments, AreTakenUpToTheirBounds)
{
    const auto sized = [](mivora_paint paint)
    {
        paint.struct_size = sizeof paint;
        mivora_size size{};
        return mivora_formula_size(FromText("a").get(), &paint, &size);
    };
    for (const int nDpi : { 0, 10, 2400 })
        EXPECT_EQ(sized({ .dpi = nDpi }), MIVORA_OK) << nDpi;
    for (const int nDpi : { -1, 9, 2401 })
        EXPECT_EQ(sized({ .dpi = nDpi }), MIVORA_INVALID_ARGUMENT) << nDpi;
    for (const int nMargin : { -1, 10001 })
        EXPECT_EQ(sized({ .margin = nMargin }), MIVORA_INVALID_ARGUMENT) << nMargin;
    EXPECT_EQ(sized({ .margin = 10000 }), MIVORA_OK);
    for (const auto& [nPoints, bTaken] :
         { std::pair(3, false), { 4, true }, { 400, true }, { 401, false }, { -12, false } })
    {
        const mivora_look look{ .struct_size = sizeof look, .points = nPoints };
        EXPECT_EQ(FromText("a", &look) != nullptr, bTaken) << nPoints;
    }
    for (const size_t nLetters : { 0, 1, 31, 32 })
    {
        const std::string strFace(nLetters, 'x');
        const mivora_look look{ .struct_size = sizeof look, .face = strFace.c_str() };
        EXPECT_EQ(FromText("a", &look) != nullptr, nLetters == 1 || nLetters == 31) << nLetters;
    }
}

// Whatever stood in its place before.
TEST(CArguments, AreClearedByCallsThatFail)
{
    using CBytesCall = mivora_status (*)(mivora_formula*, char**, size_t*);
    constexpr CBytesCall apfnBytes[] = {
        [](auto*, auto... out) { return mivora_formula_text(nullptr, out...); },
        [](auto*, auto... out) { return mivora_formula_fml(nullptr, out...); },
        [](auto*, auto... out) { return mivora_formula_write(nullptr, MIVORA_LATEX, out...); },
        [](auto* p, auto... out)
        { return mivora_formula_write(p, static_cast<mivora_form>(6), out...); },
        [](auto* p, auto... out)
        { return mivora_formula_picture(p, "gif", nullptr, out..., nullptr); },
        [](auto*, auto... out) { return mivora_picture_source(nullptr, 0, out...); },
        [](auto*, auto... out) { return mivora_picture_source("BM", 2, out...); },
    };
    const CFormulaHandle formula = FromText("a");
    char chOld = 'x';
    for (const CBytesCall& pfnCall : apfnBytes)
    {
        SCOPED_TRACE(&pfnCall - apfnBytes);
        char* pBytes = &chOld;
        size_t nSize = 4711;
        EXPECT_NE(pfnCall(formula.get(), &pBytes, &nSize), MIVORA_OK);
        EXPECT_EQ(pBytes, nullptr);
        EXPECT_EQ(nSize, 0U);
        nSize = 4711;
        EXPECT_EQ(pfnCall(formula.get(), nullptr, &nSize), MIVORA_INVALID_ARGUMENT);
        EXPECT_EQ(nSize, 0U);
        pBytes = &chOld;
        EXPECT_EQ(pfnCall(formula.get(), &pBytes, nullptr), MIVORA_INVALID_ARGUMENT);
        EXPECT_EQ(pBytes, nullptr);
    }
    const mivora_look look{ .struct_size = 1 };
    using CMakeCall = mivora_status (*)(const mivora_look*, mivora_formula**);
    constexpr CMakeCall apfnMake[] = {
        [](auto* p, auto** pp) { return mivora_formula_from_text("a", 1, p, pp); },
        [](auto*, auto** pp) { return mivora_formula_from_text("\xFF", 1, nullptr, pp); },
        [](auto*, auto** pp) { return mivora_formula_from_fml("a", 1, nullptr, pp); },
    };
    for (const CMakeCall pfnCall : apfnMake)
    {
        mivora_formula* pMade = formula.get();
        EXPECT_NE(pfnCall(&look, &pMade), MIVORA_OK);
        EXPECT_EQ(pMade, nullptr);
    }
}

TEST(CArguments, MayBeThoseOfAnOlderCaller)
{
    // One that knew the first fields and nothing behind them.
    struct
    {
        size_t struct_size;
        int dpi;
        int margin;
    } old = { sizeof old, 192, 0 };
    mivora_size size{};
    EXPECT_EQ(
        mivora_formula_size(FromText("a").get(), reinterpret_cast<mivora_paint*>(&old), &size),
        MIVORA_OK);
    EXPECT_EQ(size.em, 32);
}

// A message has room for 511 bytes, and is cut between characters.
TEST(CErrors, AreCutToTheirRoom)
{
    const std::string strHead = "color is a name, #rgb or #rrggbb, not ";
    const CFormulaHandle formula = FromText("a");
    for (size_t n = 500 - strHead.size(); n < 530 - strHead.size(); ++n)
    {
        std::string strWide(n % 2, 'q');
        while (strWide.size() < n)
            strWide += "\xC3\xA4";
        for (const std::string& strName : { std::string(n, 'q'), strWide })
        {
            const mivora_paint paint{ .struct_size = sizeof paint, .color = strName.c_str() };
            EXPECT_EQ(Picture(formula, "png", &paint).nStatus, MIVORA_INVALID_ARGUMENT);
            size_t nKept = std::min<size_t>(strName.size(), 511 - strHead.size());
            if (nKept < strName.size() && (strName[nKept] & 0xC0) == 0x80)
                --nKept;
            EXPECT_EQ(LastError().message, strHead + strName.substr(0, nKept)) << n;
        }
    }
}

TEST(CErrors, BelongToTheirThread)
{
    double dValue = 0;
    EXPECT_EQ(mivora_calculate("1+?", 3, &dValue), MIVORA_SYNTAX_ERROR);
    std::thread([&] { EXPECT_EQ(LastError().status, MIVORA_OK); }).join();
    EXPECT_EQ(LastError().status, MIVORA_SYNTAX_ERROR);
}
}  // namespace
