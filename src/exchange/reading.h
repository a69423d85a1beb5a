// A tree as a reader takes it: which forms it is made of, whatever node types they come from. The
// writers put words around forms; what belongs together is decided here, once for all of them.
#pragma once

#include "format/node_types.h"

class CNode;

enum EForm : unsigned char
{
    FORM_NOTHING,  // shows nothing

    // Leaves: their own text
    FORM_NAME,
    FORM_NUMBER,
    FORM_LABEL,
    FORM_FUNCTION_NAME,
    FORM_INFINITY,
    FORM_PLANCK,
    FORM_LAMBDA,
    FORM_NABLA,
    FORM_LAPLACE,
    FORM_PLACEHOLDER,
    FORM_SIGN,      // an operator that stands alone
    FORM_BIG_SIGN,  // of a sum, a product, an integral

    // In a row: operand 1, the own sign, operand 2. Any of them can be nothing.
    FORM_LIST,  // two items and a comma
    FORM_PLUS,
    FORM_MINUS,
    FORM_POSITIVE,  // a plus without a left operand
    FORM_NEGATIVE,
    FORM_RELATION,
    FORM_OPERATOR,  // of type OPERATOR: what tends to what
    FORM_ARROW,
    FORM_PRODUCT,  // without a sign
    FORM_TIMES,
    FORM_CROSS,
    FORM_INTEGRAND,  // expression, d, variable
    FORM_FACTORIAL,  // operand 1 and the sign
    FORM_FOLLOWED,   // two parts without a sign between them
    FORM_CALL,       // a name and its argument in brackets
    FORM_FUNCTION,   // a function and its argument
    FORM_APPLIED,    // nabla or Laplace, and what it acts on

    // One above the other
    FORM_FRACTION,
    FORM_SLASH,    // a fraction with a slash
    FORM_BARLESS,  // a fraction without a bar
    FORM_SQUARE_ROOT,
    FORM_ROOT,       // radicand, degree
    FORM_POWER,      // base, exponent
    FORM_SUB,        // base, lower index
    FORM_SUPER,      // base, upper index
    FORM_SUB_SUPER,  // base, lower, upper
    FORM_MARK,       // what is under the mark
    FORM_BINOMIAL,
    FORM_RANGE,  // lower, upper limit without an operator

    FORM_BRACE,  // what is in the brackets

    // A large sign: operand 1 is the sign, operand 2 what it acts on, then lower and upper limit
    FORM_BIG,
    FORM_BIG_LOWER,   // operand 3 is the limit
    FORM_BIG_UPPER,   // operand 3 is the limit
    FORM_BIG_BOTH,    // operand 3 is the lower, operand 4 the upper one
    FORM_LIMIT,       // condition, expression
    FORM_DERIVATIVE,  // variable, expression
    FORM_PARTIAL_DERIVATIVE,

    FORM_MATRIX,  // rows
    FORM_LINES,   // rows
    FORM_ROWS,    // upper and lower rows
    FORM_ROW,     // cells
    FORM_CELLS,   // left and right cells
    FORM_CELL,

    FORM_COUNT
};

// How a node is looked at where it stands.
constexpr unsigned VIEW_WITHOUT_LEFT = 1;
constexpr unsigned VIEW_WITHOUT_RIGHT = 2;
constexpr unsigned VIEW_BIG_SIGN = 4;  // a big operator without limits and expression
constexpr unsigned VIEW_ROWS = 8;      // as rows of a matrix
constexpr unsigned VIEW_CELLS = 16;    // as cells of a row
constexpr unsigned VIEW_LINES = 32;    // with VIEW_ROWS: the rows are lines of text
constexpr unsigned VIEW_UNCUT = 64;    // with VIEW_ROWS: a row is one cell

// A part of the tree. Without a node it is nothing.
struct CPart
{
    const CNode* pNode;
    unsigned nView;  // VIEW_...
};

// Small: deep trees have many of them open at a time.
struct CReading
{
    CPart Operand(int n) const { return { apOperands[n], anViews[n] }; }

    const CNode* pNode;  // whose text is the sign; null for nothing
    const CNode* apOperands[4];
    unsigned char anViews[4];
    EForm nForm;
    ENodeType nType;
};

// Looks at a part, not into its operands, and changes nothing.
CReading ReadPart(const CPart& part);

// Whether a part shows nothing. Does not look below a sign.
bool IsNothing(const CPart& part);
