// The C interface, by what its header promises.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <thread>
#include <tuple>

#include "capi/c_calls.h"

namespace
{
using namespace std::string_literals;

// Name, how the bytes start, whether the text is found again in them
const std::tuple<const char*, std::string, bool> s_aFormats[] = {
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
        for (const auto& [pszName, strStart, bSource] : s_aFormats)
        {
            SCOPED_TRACE(pszName);
            const CAnswer picture = Picture(formula, pszName);
            EXPECT_EQ(picture.nStatus, MIVORA_OK) << LastError().message;
            EXPECT_TRUE(picture.strBytes.starts_with(strStart));
            EXPECT_EQ(picture, Picture(FromText(pszText), pszName));
            const CAnswer none{ MIVORA_NO_SOURCE, "" };
            EXPECT_EQ(SourceOf(picture.strBytes), bSource ? CAnswer(MIVORA_OK, pszText) : none);
            const mivora_paint bare{ .struct_size = sizeof bare, .no_source = 1 };
            const CAnswer without = Picture(formula, pszName, &bare);
            EXPECT_EQ(SourceOf(without.strBytes).strBytes, "");
        }
    }
}

TEST(CPictures, AreAsLargeAsTold)
{
    const CFormulaHandle formula = FromText("sqr(x)/2");
    mivora_size screen{};
    ASSERT_EQ(mivora_formula_size(formula.get(), nullptr, &screen), MIVORA_OK);
    EXPECT_EQ(screen.em, 16);  // 12 points at 96 dots per inch
    EXPECT_GT(screen.height, screen.axis);
    EXPECT_GT(screen.depth, 0);
    // The options of an older caller, who knew the first fields and nothing behind them.
    struct
    {
        size_t struct_size;
        int dpi;
        int margin;
    } old = { sizeof old, 192, 5 };
    mivora_size size{};
    const std::string strSvg =
        Picture(formula, "svg", reinterpret_cast<mivora_paint*>(&old), &size).strBytes;
    const std::string strWidth = std::to_string(static_cast<int>(size.width));
    const std::string strHeight = std::to_string(static_cast<int>(size.height));
    EXPECT_NE(strSvg.find(" width=\"" + strWidth + "\" height=\"" + strHeight + '"'), strSvg.npos);
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
    const CFormulaHandle stored = FromFml(Answer(mivora_formula_fml, first.get()).strBytes);
    EXPECT_TRUE(Answer(mivora_formula_write, stored.get(), MIVORA_LAYOUT_JSON)
                    .strBytes.starts_with("{\"gap\":2,"));
}

TEST(CForms, AreWritten)
{
    const CFormulaHandle formula = FromText("str(\xC3\xA4)+greek p");
    EXPECT_EQ(
        Answer(mivora_formula_write, formula.get(), MIVORA_TREE_JSON).strBytes,
        R"({"type":"NT_STANDARD","symbol":"","left":{"type":"NT_PLUS","symbol":"+","left":)"
        R"({"type":"NT_VARIABLE","symbol":"\\xE4","left":null,"right":null},"right":)"
        R"({"type":"NT_VARIABLE","symbol":"p","greek":true,"left":null,"right":null}},"right":null})");
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

TEST(CValues, AreCalculated)
{
    constexpr std::tuple<const char*, double, mivora_status, size_t> aRows[] = {
        { "2*(3+4)", 14, MIVORA_OK, 0 },          { "2^10/4", 256, MIVORA_OK, 0 },
        { "1+2?", 3, MIVORA_SYNTAX_ERROR, 4 },    { "1+2/0", 3, MIVORA_SYNTAX_ERROR, 0 },
        { "\xFF", 4711, MIVORA_INVALID_TEXT, 1 },
    };
    for (const auto& [pszText, dExpected, nStatus, nPosition] : aRows)
    {
        SCOPED_TRACE(pszText);
        double dValue = 4711;
        EXPECT_EQ(mivora_calculate(pszText, MIVORA_WHOLE, &dValue), nStatus);
        EXPECT_EQ(dValue, dExpected);
        EXPECT_EQ(LastError().position, nPosition);
        EXPECT_EQ(LastError().message[0] == '\0', nStatus == MIVORA_OK);
    }
}

TEST(CStored, ComeBackAsTheyWere)
{
    const mivora_look look{ .struct_size = sizeof look, .points = 20, .face = "Arial" };
    std::ifstream formulas(MIVORA_TEST_DATA "/formulas.txt");
    for (std::string strText; std::getline(formulas, strText);)
    {
        for (const mivora_look* pLook : { static_cast<const mivora_look*>(nullptr), &look })
        {
            const CFormulaHandle formula = FromText(strText, pLook);
            const CAnswer stored = Answer(mivora_formula_fml, formula.get());
            const CFormulaHandle read = FromFml(stored.strBytes);
            ASSERT_NE(read, nullptr) << LastError().message;
            EXPECT_EQ(Answer(mivora_formula_text, read.get()), CAnswer(MIVORA_OK, strText));
            EXPECT_EQ(Answer(mivora_formula_fml, read.get()), stored) << strText;
            EXPECT_EQ(Answer(mivora_formula_write, read.get(), MIVORA_MATHML),
                      Answer(mivora_formula_write, formula.get(), MIVORA_MATHML));
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
    const std::string strSound = Answer(mivora_formula_fml, FromText("abs(a)").get()).strBytes;
    for (size_t n = 0; n < strSound.size(); ++n)
    {
        std::string strOther = strSound;
        strOther[n] = static_cast<char>(~strOther[n]);
        const CFormulaHandle formula = FromFml(strOther);
        if (formula)
            Answer(mivora_formula_write, formula.get(), MIVORA_MATHML);
        if (LastError().status != MIVORA_OK)
        {
            EXPECT_EQ(LastError().status, MIVORA_INVALID_DATA) << n;
        }
    }
}

// What is refused has a message with a certain word; what is taken has none.
void ExpectAnswer(const std::string& strWord, mivora_status nStatus)
{
    EXPECT_EQ(nStatus, strWord.empty() ? MIVORA_OK : MIVORA_INVALID_ARGUMENT) << strWord;
    EXPECT_NE(std::string(LastError().message).find(strWord), std::string::npos)
        << LastError().message;
    EXPECT_EQ(LastError().message[0] == '\0', strWord.empty());
}

TEST(CArguments, AreTakenOrRefused)
{
    const CFormulaHandle formula = FromText("a");
    mivora_formula* pFormula = formula.get();
    mivora_formula* pMade = nullptr;
    char* pBytes = nullptr;
    size_t nSize = 0;
    double dValue = 0;
    ExpectAnswer("pointer", mivora_formula_from_text(nullptr, 0, nullptr, &pMade));
    ExpectAnswer("pointer", mivora_formula_from_text("a", 1, nullptr, nullptr));
    ExpectAnswer("pointer", mivora_formula_from_fml(nullptr, 0, nullptr, &pMade));
    ExpectAnswer("pointer", mivora_formula_size(pFormula, nullptr, nullptr));
    ExpectAnswer("pointer", mivora_formula_problem(pFormula, nullptr));
    ExpectAnswer("pointer", mivora_calculate(nullptr, 0, &dValue));
    ExpectAnswer("pointer", mivora_calculate("1", 1, nullptr));
    ExpectAnswer("pointer", mivora_picture_source(nullptr, 0, &pBytes, &nSize));
    const auto nNoForm = static_cast<mivora_form>(6);
    ExpectAnswer("there is no form 6", mivora_formula_write(pFormula, nNoForm, &pBytes, &nSize));

    const std::string strLongest(31, 'x');
    const std::string strTooLong(32, 'x');
    const std::pair<const char*, mivora_look> aLooks[] = {
        { "struct_size", { .struct_size = 1000 } },
        { "struct_size", { .struct_size = 1 } },
        { "points", { .struct_size = sizeof(mivora_look), .points = -12 } },
        { "points", { .struct_size = sizeof(mivora_look), .points = 3 } },
        { "", { .struct_size = sizeof(mivora_look), .points = 4 } },
        { "", { .struct_size = sizeof(mivora_look), .points = 400 } },
        { "points", { .struct_size = sizeof(mivora_look), .points = 401 } },
        { "face", { .struct_size = sizeof(mivora_look), .face = "" } },
        { "", { .struct_size = sizeof(mivora_look), .face = "x" } },
        { "", { .struct_size = sizeof(mivora_look), .face = strLongest.c_str() } },
        { "face", { .struct_size = sizeof(mivora_look), .face = strTooLong.c_str() } },
    };
    for (const auto& [pszWord, look] : aLooks)
    {
        const bool bMade = FromText("a", &look) != nullptr;
        EXPECT_EQ(bMade, *pszWord == '\0');
        ExpectAnswer(pszWord, LastError().status);
    }

    const auto paint = [&](const char* pszFormat, mivora_paint options)
    {
        options.struct_size = sizeof options;
        return mivora_formula_picture(pFormula, pszFormat, &options, &pBytes, &nSize, nullptr);
    };
    ExpectAnswer("pointer", paint(nullptr, {}));
    ExpectAnswer("gif is none of", paint("gif", {}));
    ExpectAnswer("metafile", paint("emf", { .dpi = 96 }));
    ExpectAnswer("color", paint("png", { .color = "reddish" }));
    ExpectAnswer("currentColor", paint("png", { .color = "currentColor" }));
    ExpectAnswer("background", paint("svg", { .transparent = 1, .background = "red" }));
#ifdef _WIN32
    EXPECT_EQ(paint("pdf", {}), MIVORA_UNSUPPORTED);
#endif
    EXPECT_EQ(pMade, nullptr);
    EXPECT_EQ(pBytes, nullptr);
    EXPECT_EQ(SourceOf("no picture").nStatus, MIVORA_INVALID_DATA);
    EXPECT_EQ(mivora_last_error(nullptr), MIVORA_INVALID_ARGUMENT);
    mivora_formula_free(nullptr);
    mivora_free(nullptr);

    const auto sized = [&](mivora_paint options)
    {
        options.struct_size = sizeof options;
        mivora_size size{};
        return mivora_formula_size(pFormula, &options, &size);
    };
    for (const auto& [nDpi, pszWord] : { std::pair(-1, "dpi"),
                                         { 0, "" },
                                         { 9, "dpi" },
                                         { 10, "" },
                                         { 2400, "" },
                                         { 2401, "dpi" } })
        ExpectAnswer(pszWord, sized({ .dpi = nDpi }));
    for (const auto& [nMargin, pszWord] :
         { std::pair(-1, "margin"), { 0, "" }, { 10000, "" }, { 10001, "margin" } })
        ExpectAnswer(pszWord, sized({ .margin = nMargin }));
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

// A message has room for 511 bytes, and is cut between characters.
TEST(CErrors, AreCutToTheirRoom)
{
    const std::string strHead = "color is a name, #rgb or #rrggbb, not ";
    const CFormulaHandle formula = FromText("a");
    for (size_t n = 500 - strHead.size(); n < 530 - strHead.size(); ++n)
    {
        std::string strName(n % 2, 'q');
        while (strName.size() < n)
            strName += "\xC3\xA4";
        const mivora_paint paint{ .struct_size = sizeof paint, .color = strName.c_str() };
        EXPECT_EQ(Picture(formula, "png", &paint).nStatus, MIVORA_INVALID_ARGUMENT);
        size_t nKept = std::min<size_t>(strName.size(), 511 - strHead.size());
        if (nKept < strName.size() && (strName[nKept] & 0xC0) == 0x80)
            --nKept;
        EXPECT_EQ(LastError().message, strHead + strName.substr(0, nKept)) << n;
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
