// The words of one language for formulas: all that a translation has to bring.
#pragma once

#include <span>
#include <string_view>

#include "exchange/form_writer.h"
#include "format/node_types.h"

// Shorter words where the operands are simple.
enum EShortForm
{
    SHORT_OVER,     // of FORM_FRACTION: operands are leaves, perhaps with an index or exponent
    SHORT_SQUARED,  // of FORM_POWER
    SHORT_CUBED,
    SHORT_TO_THE,  // exponent is a leaf
    SHORT_SUB,     // indices are leaves
    SHORT_SUPER,
    SHORT_SUB_SUPER,
    SHORT_CALL,       // round brackets around a leaf; operand 2 is the leaf
    SHORT_ROOT,       // %o is the ordinal of the degree
    SHORT_BIG_LOWER,  // limits are leaves or say that one leaf equals another
    SHORT_BIG_UPPER,
    SHORT_BIG_BOTH,
    SHORT_LIMIT,           // one leaf tends to another
    SHORT_ABSOLUTE_VALUE,  // of FORM_BRACE: bars
    SHORT_OTHER_PREFIX,    // of a sign in front that is not the usual one of its type
    SHORT_OTHER_INTEGRAND,
    SHORT_COUNT
};

struct CSpokenName
{
    std::string_view text;
    std::string_view words;
};

struct CSpokenMeaning
{
    ENodeType nType;
    std::string_view words;
};

struct CSpokenLanguage
{
    // Pieces that begin with strEnd close something; at the very end of the words they are left
    // out.
    const CFormRow* pRows;       // by EForm
    const CFormRow* pShortRows;  // by EShortForm
    std::string_view strEnd;
    std::string_view strNothing;
    std::string_view strOpenGroup;
    std::string_view strCloseGroup;

    std::span<const CSpokenName> aFunctions;     // by what is shown
    std::span<const std::string_view> aSymbols;  // "Symbol", from code 0x20 on; empty: no such sign
    std::span<const CSpokenName> aExtras;        // "MT Extra"
    std::span<const CSpokenName> aPunctuation;   // other faces: what is no letter
    std::span<const CSpokenMeaning> aMeanings;   // of signs that show as a question mark
    std::span<const std::string_view> aOrdinals;  // from 2 on
    std::span<const std::string_view> aMarks;     // by kind of a mark

    std::string_view strCapital;  // in front of a letter
    std::string_view strPrime;    // behind a name
    std::string_view strSign;     // in front of a sign in the place of a name
    std::string_view strName;     // in front of a name that is one of these words
    std::string_view strText;     // around a name of other characters
    std::string_view strEndText;
    std::string_view strUnknown;   // a code that shows nothing known
    std::string_view strFunction;  // in front of the name of a function of the user
    std::string_view strLaplacian;

    // Large signs; strOperator is in front of a sign that has no words here.
    std::string_view strSum;
    std::string_view strProduct;
    std::string_view strIntegral;
    std::string_view strDoubleIntegral;
    std::string_view strTripleIntegral;
    std::string_view strLimit;
    std::string_view strDerivative;
    std::string_view strPartialDerivative;
    std::string_view strOperator;

    // Brackets: strOpen or strClose, then the word of the shape; strTurned in between if it is that
    // of the other side.
    std::string_view strOpen;
    std::string_view strClose;
    std::string_view strTurned;
    std::string_view strNoBracket;           // of a side without one
    std::span<const CSpokenName> aBrackets;  // two characters: left and right, in "Symbol"
};

const CSpokenLanguage& SpokenEnglish();
