// Formulas in English.
#include "exchange/spoken_language.h"

namespace
{
// clang-format off
constexpr CFormRow s_aRows[] = {
    { FORM_NOTHING,       RANK_LEAF,   {}, "" },
    { FORM_NAME,          RANK_LEAF,   {}, "%n" },
    { FORM_NUMBER,        RANK_LEAF,   {}, "%d" },
    { FORM_LABEL,         RANK_LEAF,   {}, "the label %n" },
    { FORM_FUNCTION_NAME, RANK_LEAF,   {}, "%f" },
    { FORM_INFINITY,      RANK_LEAF,   {}, "%n" },
    { FORM_PLANCK,        RANK_LEAF,   {}, "%n" },
    { FORM_LAMBDA,        RANK_LEAF,   {}, "%n" },
    { FORM_NABLA,         RANK_LEAF,   {}, "%n" },
    { FORM_LAPLACE,       RANK_LEAF,   {}, "%n" },
    { FORM_PLACEHOLDER,   RANK_LEAF,   {}, "blank" },
    { FORM_SIGN,          RANK_LEAF,   {}, "the sign %s" },
    { FORM_BIG_SIGN,      RANK_LEAF,   {}, "%b" },

    { FORM_LIST,      RANK_LIST,   { RANK_LIST, RANK_SUM },    "%1 comma %2" },
    { FORM_PLUS,      RANK_SUM,    { RANK_SUM, RANK_TERM },    "%1 %s %2" },
    { FORM_MINUS,     RANK_SUM,    { RANK_SUM, RANK_TERM },    "%1 %s %2" },
    { FORM_POSITIVE,  RANK_PREFIX, { RANK_ANY, RANK_PREFIX },  "positive %2" },
    { FORM_NEGATIVE,  RANK_PREFIX, { RANK_ANY, RANK_PREFIX },  "negative %2" },
    { FORM_RELATION,  RANK_SUM,    { RANK_SUM, RANK_TERM },    "%1 %s %2" },
    { FORM_OPERATOR,  RANK_SUM,    { RANK_SUM, RANK_TERM },    "%1 %s %2" },
    { FORM_ARROW,     RANK_SUM,    { RANK_SUM, RANK_TERM },    "%1 %s %2" },
    { FORM_PRODUCT,   RANK_TERM,   { RANK_TERM, RANK_PREFIX }, "%1 times %2" },
    { FORM_TIMES,     RANK_TERM,   { RANK_TERM, RANK_PREFIX }, "%1 %s %2" },
    { FORM_CROSS,     RANK_TERM,   { RANK_TERM, RANK_PREFIX }, "%1 %s %2" },
    { FORM_INTEGRAND, RANK_PREFIX, { RANK_POWER, RANK_POWER }, "%1 with respect to %2" },
    { FORM_FACTORIAL, RANK_POWER,  { RANK_CLOSED },            "%1 factorial" },
    { FORM_FOLLOWED,  RANK_TERM,   { RANK_TERM, RANK_PREFIX }, "%1 followed by %2" },
    { FORM_CALL,      RANK_PREFIX, { RANK_LEAF, RANK_CLOSED }, "%1 of %2" },
    { FORM_FUNCTION,  RANK_PREFIX, { RANK_LEAF, RANK_PREFIX }, "%1 of %2" },
    { FORM_APPLIED,   RANK_PREFIX, { RANK_LEAF, RANK_PREFIX }, "%1 applied to %2" },

    { FORM_FRACTION,    RANK_CLOSED, {}, "the fraction with numerator %1 and denominator %2 end fraction" },
    { FORM_SLASH,       RANK_CLOSED, {}, "the slash fraction with numerator %1 and denominator %2 end fraction" },
    { FORM_BARLESS,     RANK_CLOSED, {}, "the fraction without bar with numerator %1 and denominator %2 end fraction" },
    { FORM_SQUARE_ROOT, RANK_PREFIX, { RANK_PREFIX }, "the square root of %1" },
    { FORM_ROOT,        RANK_PREFIX, { RANK_PREFIX, RANK_LEAF }, "the root of degree %2 of %1" },
    { FORM_POWER,       RANK_POWER,  { RANK_CLOSED }, "%1 raised to the power %2 end power" },
    { FORM_SUB,         RANK_POWER,  { RANK_CLOSED }, "%1 with subscript %2 end subscript" },
    { FORM_SUPER,       RANK_POWER,  { RANK_CLOSED }, "%1 with superscript %2 end superscript" },
    { FORM_SUB_SUPER,   RANK_POWER,  { RANK_CLOSED }, "%1 with subscript %2 and superscript %3 end superscript" },
    { FORM_MARK,        RANK_POWER,  { RANK_CLOSED }, "%1 with %m above" },
    { FORM_BINOMIAL,    RANK_CLOSED, {}, "the binomial with upper part %1 and lower part %2 end binomial" },
    { FORM_RANGE,       RANK_CLOSED, {}, "the range with lower limit %1 upper limit %2 end range" },

    { FORM_BRACE, RANK_CLOSED, {}, "%l %1 %r" },

    { FORM_BIG,       RANK_PREFIX, { RANK_ANY, RANK_PREFIX }, "%1 of %2" },
    { FORM_BIG_LOWER, RANK_PREFIX, { RANK_ANY, RANK_PREFIX }, "%1 with lower limit %3 end limits of %2" },
    { FORM_BIG_UPPER, RANK_PREFIX, { RANK_ANY, RANK_PREFIX }, "%1 with upper limit %3 end limits of %2" },
    { FORM_BIG_BOTH,  RANK_PREFIX, { RANK_ANY, RANK_PREFIX }, "%1 with lower limit %3 upper limit %4 end limits of %2" },
    { FORM_LIMIT,     RANK_PREFIX, { RANK_ANY, RANK_PREFIX }, "%b with condition %1 end condition of %2" },
    { FORM_DERIVATIVE,         RANK_PREFIX, { RANK_LEAF, RANK_PREFIX }, "%b with respect to %1 of %2" },
    { FORM_PARTIAL_DERIVATIVE, RANK_PREFIX, { RANK_LEAF, RANK_PREFIX }, "%b with respect to %1 of %2" },

    { FORM_MATRIX, RANK_CLOSED, {}, "the matrix row %1 row %2 end matrix" },
    { FORM_LINES,  RANK_CLOSED, {}, "the lines row %1 row %2 end lines" },
    { FORM_ROWS,   RANK_CLOSED, {}, "%1 row %2" },
    { FORM_ROW,    RANK_CLOSED, {}, "%1" },
    { FORM_CELLS,  RANK_CLOSED, {}, "%1 next %2" },
    { FORM_CELL,   RANK_CLOSED, {}, "%1" },
};
static_assert(RowsAreForms(s_aRows));

constexpr CFormRow s_aShortRows[] = {
    { FORM_FRACTION,  RANK_OVER,   { RANK_POWER, RANK_POWER },  "%1 over %2" },
    { FORM_POWER,     RANK_POWER,  { RANK_CLOSED },             "%1 squared" },
    { FORM_POWER,     RANK_POWER,  { RANK_CLOSED },             "%1 cubed" },
    { FORM_POWER,     RANK_POWER,  { RANK_CLOSED },             "%1 to the power %2" },
    { FORM_SUB,       RANK_POWER,  { RANK_CLOSED },             "%1 sub %2" },
    { FORM_SUPER,     RANK_POWER,  { RANK_CLOSED },             "%1 superscript %2" },
    { FORM_SUB_SUPER, RANK_POWER,  { RANK_CLOSED },             "%1 sub %2 superscript %3" },
    { FORM_CALL,      RANK_PREFIX, { RANK_LEAF, RANK_LEAF },    "%1 of %2" },
    { FORM_ROOT,      RANK_PREFIX, { RANK_PREFIX },             "the %o root of %1" },
    { FORM_BIG_LOWER, RANK_PREFIX, { RANK_ANY, RANK_PREFIX },   "%1 over %3 of %2" },
    { FORM_BIG_UPPER, RANK_PREFIX, { RANK_ANY, RANK_PREFIX },   "%1 to %3 of %2" },
    { FORM_BIG_BOTH,  RANK_PREFIX, { RANK_ANY, RANK_PREFIX },   "%1 from %3 to %4 of %2" },
    { FORM_LIMIT,     RANK_PREFIX, { RANK_ANY, RANK_PREFIX },   "%b as %1 of %2" },
    { FORM_BRACE,     RANK_CLOSED, {},                          "the absolute value of %1 end absolute value" },
    { FORM_POSITIVE,  RANK_PREFIX, { RANK_ANY, RANK_PREFIX },   "the sign %s followed by %2" },
    { FORM_INTEGRAND, RANK_TERM,   { RANK_TERM, RANK_PREFIX },  "%1 followed by the sign %s followed by %2" },
};
static_assert(std::size(s_aShortRows) == SHORT_COUNT);

constexpr CSpokenName s_aFunctions[] = {
    { "sin", "sine" },
    { "cos", "cosine" },
    { "tan", "tangent" },
    { "cot", "cotangent" },
    { "arcsin", "arc sine" },
    { "arccos", "arc cosine" },
    { "arctan", "arc tangent" },
    { "arccot", "arc cotangent" },
    { "sinh", "hyperbolic sine" },
    { "cosh", "hyperbolic cosine" },
    { "tanh", "hyperbolic tangent" },
    { "coth", "hyperbolic cotangent" },
    { "arsinh", "inverse hyperbolic sine" },
    { "arcosh", "inverse hyperbolic cosine" },
    { "artanh", "inverse hyperbolic tangent" },
    { "arcoth", "inverse hyperbolic cotangent" },
    { "exp", "exponential" },
    { "ln", "natural logarithm" },
    { "log2", "logarithm base 2" },
    { "lg", "logarithm base 10" },
};

constexpr std::string_view s_aSymbols[] = {
    "space", "exclamation mark", "for all", "number sign", "there exists", "percent", "ampersand", "contains",  // 20
    "left paren", "right paren", "asterisk", "plus", "comma", "minus", "point", "slash",                      // 28
    "0", "1", "2", "3", "4", "5", "6", "7",                                                                   // 30
    "8", "9", "colon", "semicolon", "is less than", "equals", "is greater than", "question mark",             // 38
    "is congruent to", "capital alpha", "capital beta", "capital chi",                                        // 40
    "capital delta", "capital epsilon", "capital phi", "capital gamma",
    "capital eta", "capital iota", "variant theta", "capital kappa",                                          // 48
    "capital lambda", "capital mu", "capital nu", "capital omicron",
    "capital pi", "capital theta", "capital rho", "capital sigma",                                            // 50
    "capital tau", "capital upsilon", "final sigma", "capital omega",
    "capital xi", "capital psi", "capital zeta", "left bracket", "therefore", "right bracket", "perpendicular", "underscore",  // 58
    "overline", "alpha", "beta", "chi", "delta", "epsilon", "phi", "gamma",                                   // 60
    "eta", "iota", "variant phi", "kappa", "lambda", "mu", "nu", "omicron",                                   // 68
    "pi", "theta", "rho", "sigma", "tau", "upsilon", "variant pi", "omega",                                   // 70
    "xi", "psi", "zeta", "left brace", "bar", "right brace", "similar", "",                                   // 78
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",                                           // 80
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",                                           // 90
    "", "hooked capital upsilon", "prime", "is less than or equal to", "fraction slash", "infinity", "florin", "club",  // A0
    "diamond", "heart", "spade", "left right arrow", "left arrow", "up arrow", "right arrow", "down arrow",   // A8
    "degrees", "plus or minus", "double prime", "is greater than or equal to",                                // B0
    "cross", "is proportional to", "partial d", "bullet",
    "divided by", "is not equal to", "is identical to", "is approximately equal to",                          // B8
    "ellipsis", "vertical line", "horizontal line", "return arrow",
    "aleph", "imaginary part", "real part", "weierstrass p",                                                  // C0
    "circled times", "circled plus", "empty set", "intersection",
    "union", "superset", "superset or equal", "not a subset", "subset", "subset or equal", "in", "not in",    // C8
    "angle", "nabla", "registered", "copyright", "trademark", "product sign", "root sign", "dot",             // D0
    "not", "and sign", "or sign", "double left right arrow",                                                  // D8
    "double left arrow", "double up arrow", "double right arrow", "double down arrow",
    "lozenge", "left angle", "registered", "copyright", "trademark", "sum sign", "paren top left", "paren left",  // E0
    "paren bottom left", "bracket top left", "bracket left", "bracket bottom left",                           // E8
    "brace top left", "brace middle left", "brace bottom left", "brace line",
    "", "right angle", "integral sign", "integral top", "integral line", "integral bottom", "paren top right", "paren right",  // F0
    "paren bottom right", "bracket top right", "bracket right", "bracket bottom right",                       // F8
    "brace top right", "brace middle right", "brace bottom right", "",
};
static_assert(std::size(s_aSymbols) == 0x100 - 0x20);

constexpr CSpokenName s_aExtras[] = {
    { " ", "space" },
    { "h", "h bar" },
    { "D", "lambda bar" },
    { "b", "up down arrow" },
    { "c", "double up down arrow" },
};

constexpr CSpokenName s_aPunctuation[] = {
    { " ", "space" },           { "!", "exclamation mark" }, { "\"", "quote" },        { "#", "number sign" },
    { "$", "dollar" },          { "%", "percent" },          { "&", "ampersand" },     { "'", "prime" },
    { "(", "left paren" },      { ")", "right paren" },      { "*", "asterisk" },      { "+", "plus" },
    { ",", "comma" },           { "-", "minus" },            { ".", "point" },         { "/", "slash" },
    { ":", "colon" },           { ";", "semicolon" },        { "<", "is less than" },  { "=", "equals" },
    { ">", "is greater than" }, { "?", "question mark" },    { "@", "at" },            { "[", "left bracket" },
    { "\\", "backslash" },      { "]", "right bracket" },    { "^", "caret" },         { "_", "underscore" },
    { "`", "backquote" },       { "{", "left brace" },       { "|", "bar" },           { "}", "right brace" },
    { "~", "tilde" },           { "\x80", "euro" },          { "\x95", "bullet" },     { "\x96", "dash" },
    { "\xA3", "pound" },        { "\xA5", "yen" },           { "\xA7", "section" },    { "\xA9", "copyright" },
    { "\xAC", "not" },          { "\xAE", "registered" },    { "\xB0", "degrees" },    { "\xB1", "plus or minus" },
    { "\xB7", "dot" },          { "\xD7", "cross" },         { "\xF7", "divided by" },
};

constexpr CSpokenMeaning s_aMeanings[] = {
    { NTI_INFINITY, "infinity" },    { NTI_NABLA, "nabla" },           { NTI_CROSS, "cross product" },
    { NTI_OPERATOR, "approaches" },  { NTI_ARROWS, "arrow" },          { NTI_EQUATION, "is related to" },
};

constexpr std::string_view s_aOrdinals[] = {
    "second", "third", "fourth", "fifth", "sixth", "seventh", "eighth", "ninth", "tenth",
};

constexpr std::string_view s_aMarks[] = {
    "dot", "two dots", "three dots", "bar", "double bar", "vector arrow", "tilde", "double tilde",
};

constexpr CSpokenName s_aBrackets[] = {
    { "()", "paren" }, { "[]", "bracket" }, { "{}", "brace" }, { "\xE1\xF1", "angle bracket" },
};
// clang-format on

constexpr CSpokenLanguage s_english = {
    .pRows = s_aRows,
    .pShortRows = s_aShortRows,
    .strEnd = " end ",
    .strNothing = "empty",
    .strOpenGroup = "the quantity ",
    .strCloseGroup = " end quantity",
    .aFunctions = s_aFunctions,
    .aSymbols = s_aSymbols,
    .aExtras = s_aExtras,
    .aPunctuation = s_aPunctuation,
    .aMeanings = s_aMeanings,
    .aOrdinals = s_aOrdinals,
    .aMarks = s_aMarks,
    .strCapital = "capital ",
    .strPrime = " prime",
    .strSign = "the sign ",
    .strName = "the name ",
    .strText = "the text ",
    .strEndText = " end text",
    .strUnknown = "unknown",
    .strFunction = "function ",
    .strLaplacian = "Laplacian",
    .strSum = "the sum",
    .strProduct = "the product",
    .strIntegral = "the integral",
    .strDoubleIntegral = "the double integral",
    .strTripleIntegral = "the triple integral",
    .strLimit = "the limit",
    .strDerivative = "the derivative",
    .strPartialDerivative = "the partial derivative",
    .strOperator = "the operator ",
    .strOpen = "open ",
    .strClose = "close ",
    .strTurned = "reversed ",
    .strNoBracket = "without bracket",
    .aBrackets = s_aBrackets,
};
}  // namespace

const CSpokenLanguage& SpokenEnglish()
{
    return s_english;
}
