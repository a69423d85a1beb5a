// Which form a node is, by its type and by what hangs on it.
#include "exchange/reading.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "exchange/signs.h"
#include "nodes/typed_node.h"

namespace
{
constexpr CPart s_nothing = { nullptr, 0 };

CReading Reading(EForm nForm, ENodeType nType, const CNode* pNode, CPart first = s_nothing,
                 CPart second = s_nothing, CPart third = s_nothing, CPart fourth = s_nothing)
{
    const auto view = [](const CPart& part)
    {
        return static_cast<unsigned char>(part.nView);
    };
    return { pNode,
             { first.pNode, second.pNode, third.pNode, fourth.pNode },
             { view(first), view(second), view(third), view(fourth) },
             nForm,
             nType };
}

CReading Nothing()
{
    return Reading(FORM_NOTHING, NTI_STANDARD, nullptr);
}

// A name that no type has is a plain node, as everywhere.
ENodeType TypeOf(const CNode& node)
{
    const ENodeType nType = FindNodeType(node.m_strType);
    return nType == NTI_COUNT ? NTI_STANDARD : nType;
}

bool IsOfType(const CNode* pNode, ENodeType nType)
{
    return pNode != nullptr && TypeOf(*pNode) == nType;
}

CPart Left(const CNode& node)
{
    return { node.GetLeft(), 0 };
}

CPart Right(const CNode& node)
{
    return { node.GetRight(), 0 };
}

// Shows nothing and has nothing below it.
bool IsEmptyLeaf(const CNode* pNode)
{
    return pNode == nullptr ||
           (pNode->GetLeft() == nullptr && pNode->GetRight() == nullptr &&
            IsOfType(pNode, NTI_STANDARD) && ShownTextOf(*pNode, NTI_STANDARD).text.empty());
}

// Goes through nodes that show nothing but one child. A loop: chains of them can be long.
const CNode* SkipWrappers(const CNode* pNode)
{
    while (IsOfType(pNode, NTI_STANDARD) && ShownTextOf(*pNode, NTI_STANDARD).text.empty())
    {
        if (IsEmptyLeaf(pNode->GetRight()))
            pNode = pNode->GetLeft();
        else if (IsEmptyLeaf(pNode->GetLeft()))
            pNode = pNode->GetRight();
        else
            break;
    }
    return pNode;
}

// What one type of node is read by.
struct CTypeRow
{
    ENodeType nType;
    CReading (*pfnRead)(const CNode& node, const CTypeRow& row, unsigned nView);
    EForm nForm;       // of the whole
    EForm nOtherForm;  // where a function needs a second one
};

// The index columns at the right of a node that is read without them.
CReading ReadIndex(const CPart& base, const CNode& index)
{
    const CPart upper = Left(index);
    const CPart lower = Right(index);
    const bool bUpper = !IsNothing(upper);
    const bool bLower = !IsNothing(lower);
    if (bUpper && bLower)
        return Reading(FORM_SUB_SUPER, NTI_INDEX, &index, base, lower, upper);
    if (!bUpper && !bLower)
        return ReadPart(base);
    return Reading(bUpper ? FORM_SUPER : FORM_SUB, NTI_INDEX, &index, base, bUpper ? upper : lower);
}

CReading ReadIndexAlone(const CNode& node, const CTypeRow&, unsigned)
{
    return ReadIndex(s_nothing, node);
}

// A node that has no place for children, or none on the right: what hangs there all the same
// follows it, or is an index. Says whether that is so.
std::optional<CReading> ReadSurroundings(const CNode& node, unsigned nView, bool bLeftIsOwn)
{
    const unsigned nBare = VIEW_WITHOUT_RIGHT | (bLeftIsOwn ? 0U : VIEW_WITHOUT_LEFT);
    if (!bLeftIsOwn && (nView & VIEW_WITHOUT_LEFT) == 0 && !IsNothing(Left(node)))
    {
        return Reading(FORM_FOLLOWED, NTI_STANDARD, &node, Left(node),
                       { &node, nView | VIEW_WITHOUT_LEFT });
    }
    if ((nView & VIEW_WITHOUT_RIGHT) != 0 || IsNothing(Right(node)))
        return std::nullopt;
    if (IsOfType(node.GetRight(), NTI_INDEX))
        return ReadIndex({ &node, nBare }, *node.GetRight());
    return Reading(FORM_FOLLOWED, NTI_STANDARD, &node, { &node, nBare }, Right(node));
}

bool IsBrace(const CNode* pNode)
{
    return IsOfType(pNode, NTI_BRACE) || IsOfType(pNode, NTI_POISON);
}

CReading ReadLeaf(const CNode& node, const CTypeRow& row, unsigned nView)
{
    const CNode* pRight = (nView & VIEW_WITHOUT_RIGHT) != 0 ? nullptr : node.GetRight();
    const bool bLeft = (nView & VIEW_WITHOUT_LEFT) == 0 && !IsNothing(Left(node));
    if (bLeft && row.nType == NTI_VARIABLE && ShownTextOf(node, row.nType).text == ",")
        return Reading(FORM_LIST, row.nType, &node, Left(node), { pRight, 0 });
    if (!bLeft && IsBrace(pRight))
    {
        return Reading(FORM_CALL, row.nType, &node,
                       { &node, VIEW_WITHOUT_LEFT | VIEW_WITHOUT_RIGHT }, { pRight, 0 });
    }
    if (bLeft || pRight != nullptr)
    {
        if (const auto reading = ReadSurroundings(node, nView, false))
            return *reading;
    }
    const bool bEmpty = row.nForm != FORM_PLACEHOLDER && ShownTextOf(node, row.nType).text.empty();
    return bEmpty ? Nothing() : Reading(row.nForm, row.nType, &node);
}

// A function or an operator that stands in front of what it acts on.
CReading ReadPrefix(const CNode& node, const CTypeRow& row, unsigned nView)
{
    const bool bLeft = (nView & VIEW_WITHOUT_LEFT) == 0 && !IsNothing(Left(node));
    const bool bRight = (nView & VIEW_WITHOUT_RIGHT) == 0 && node.GetRight() != nullptr;
    if (bLeft || (bRight && IsOfType(node.GetRight(), NTI_INDEX)))
    {
        if (const auto reading = ReadSurroundings(node, nView, false))
            return *reading;
    }
    const CPart bare = { &node, VIEW_WITHOUT_LEFT | VIEW_WITHOUT_RIGHT };
    return bRight ? Reading(row.nOtherForm, row.nType, &node, bare, Right(node))
                  : Reading(row.nForm, row.nType, &node);
}

CReading ReadOperator(const CNode& node, const CTypeRow& row, unsigned)
{
    const bool bPrefix = row.nOtherForm != FORM_NOTHING && IsNothing(Left(node));
    return Reading(bPrefix ? row.nOtherForm : row.nForm, row.nType, &node, Left(node), Right(node));
}

// A product shows a sign or none.
CReading ReadProduct(const CNode& node, const CTypeRow& row, unsigned)
{
    const bool bSign = !ShownTextOf(node, row.nType).text.empty();
    return Reading(bSign ? row.nForm : row.nOtherForm, row.nType, &node, Left(node), Right(node));
}

// A plain node is what stands between its children, a factorial sign for example.
CReading ReadStandard(const CNode& node, const CTypeRow& row, unsigned nView)
{
    const bool bLeft = (nView & VIEW_WITHOUT_LEFT) == 0 && !IsNothing(Left(node));
    const bool bRight = (nView & VIEW_WITHOUT_RIGHT) == 0 && !IsNothing(Right(node));
    const std::string_view sign = ShownTextOf(node, row.nType).text;
    if (sign.empty())
        return Reading(FORM_FOLLOWED, row.nType, &node, Left(node), Right(node));
    if (bRight)
    {
        return Reading(FORM_FOLLOWED, row.nType, &node, { &node, nView | VIEW_WITHOUT_RIGHT },
                       Right(node));
    }
    if (bLeft && sign == "!")
        return Reading(FORM_FACTORIAL, row.nType, &node, Left(node));
    return bLeft ? Reading(FORM_FOLLOWED, row.nType, &node, Left(node),
                           { &node, nView | VIEW_WITHOUT_LEFT })
                 : Reading(FORM_SIGN, row.nType, &node);
}

CReading ReadDivision(const CNode& node, const CTypeRow& row, unsigned)
{
    constexpr int nBar = 0;
    constexpr int nSlash = 1;
    const auto* pTyped = dynamic_cast<const CTypedNode*>(&node);
    const int nKind = pTyped != nullptr ? pTyped->GetKind() : nBar;
    const EForm nForm = nKind == nBar ? row.nForm : nKind == nSlash ? FORM_SLASH : FORM_BARLESS;
    return Reading(nForm, row.nType, &node, Left(node), Right(node));
}

CReading ReadRoot(const CNode& node, const CTypeRow& row, unsigned)
{
    return Reading(IsNothing(Right(node)) ? FORM_SQUARE_ROOT : FORM_ROOT, row.nType, &node,
                   Left(node), Right(node));
}

CReading ReadPair(const CNode& node, const CTypeRow& row, unsigned)
{
    return Reading(row.nForm, row.nType, &node, Left(node), Right(node));
}

// The upper limit is on the left.
CReading ReadRange(const CNode& node, const CTypeRow& row, unsigned)
{
    return Reading(row.nForm, row.nType, &node, Right(node), Left(node));
}

// Something around its left child, with no place for a right one.
CReading ReadEnclosing(const CNode& node, const CTypeRow& row, unsigned nView)
{
    if (node.GetRight() != nullptr)
    {
        if (const auto reading = ReadSurroundings(node, nView, true))
            return *reading;
    }
    return Reading(row.nForm, row.nType, &node, Left(node));
}

CReading ReadBig(const CNode& node, const CTypeRow& row, unsigned nView)
{
    if ((nView & VIEW_BIG_SIGN) != 0)
        return Reading(FORM_BIG_SIGN, row.nType, &node);
    const CNode* pRange = node.GetLeft();
    const bool bRange = IsOfType(pRange, NTI_RANGE);
    const CPart lower = bRange ? Right(*pRange) : Left(node);
    const CPart upper = bRange ? Left(*pRange) : s_nothing;
    const bool bLower = !IsNothing(lower);
    const bool bUpper = !IsNothing(upper);
    const CPart sign = { &node, VIEW_BIG_SIGN };
    if (bLower && bUpper)
        return Reading(FORM_BIG_BOTH, row.nType, &node, sign, Right(node), lower, upper);
    return Reading(bLower   ? FORM_BIG_LOWER
                   : bUpper ? FORM_BIG_UPPER
                            : FORM_BIG,
                   row.nType, &node, sign, Right(node), bLower ? lower : upper);
}

// Whether all rows have the same number of cells, more than one. Looks at rows and cells only: what
// is in a cell is not looked at.
bool HasColumns(const CNode& matrix, ENodeType nType)
{
    int nColumns = 0;  // of the rows so far
    int nCells = 0;    // of this row
    struct CStep
    {
        const CNode* pNode;
        bool bInRow;
        bool bEnd;  // of a row
    };
    std::vector<CStep> steps = { { matrix.GetRight(), false, false },
                                 { matrix.GetLeft(), false, false } };
    while (!steps.empty())
    {
        const CStep step = steps.back();
        steps.pop_back();
        if (step.bEnd)
        {
            if (nColumns != 0 && nColumns != nCells)
                return false;
            nColumns = std::exchange(nCells, 0);
        }
        else if (IsOfType(step.pNode, NTI_ELEMENT))
        {
            if (!step.bInRow)
                steps.push_back({ nullptr, false, true });
            steps.push_back({ step.pNode->GetRight(), true, false });
            steps.push_back({ step.pNode->GetLeft(), true, false });
        }
        else if (!step.bInRow && IsOfType(step.pNode, nType))
        {
            steps.push_back({ step.pNode->GetRight(), false, false });
            steps.push_back({ step.pNode->GetLeft(), false, false });
        }
        else
        {
            ++nCells;
            if (!step.bInRow)
                steps.push_back({ nullptr, false, true });
        }
    }
    return nColumns > 1;
}

// Upper rows first: in a matrix they are the left child, in lines of text the right one.
CReading ReadRows(EForm nForm, const CNode& node, ENodeType nType, unsigned nView)
{
    CPart upper = { node.GetLeft(), nView };
    CPart lower = { node.GetRight(), nView };
    if (nType == NTI_LINE)
        std::swap(upper, lower);
    return Reading(nForm, nType, &node, upper, lower);
}

CReading ReadTable(const CNode& node, const CTypeRow& row, unsigned)
{
    const unsigned nKind = row.nType == NTI_LINE ? VIEW_LINES : 0U;
    const unsigned nCut = HasColumns(node, row.nType) ? 0U : VIEW_UNCUT;
    return ReadRows(row.nForm, node, row.nType, VIEW_ROWS | nKind | nCut);
}

CReading ReadTablePart(const CPart& part)
{
    if ((part.nView & VIEW_ROWS) != 0)
    {
        const ENodeType nRows = (part.nView & VIEW_LINES) != 0 ? NTI_LINE : NTI_MATRIX;
        if (IsOfType(part.pNode, nRows))
            return ReadRows(FORM_ROWS, *part.pNode, nRows, part.nView);
        const unsigned nCells = VIEW_CELLS | (part.nView & VIEW_UNCUT);
        return Reading(FORM_ROW, nRows, part.pNode, { part.pNode, nCells });
    }
    if ((part.nView & VIEW_UNCUT) == 0 && IsOfType(part.pNode, NTI_ELEMENT))
    {
        return Reading(FORM_CELLS, NTI_ELEMENT, part.pNode, { part.pNode->GetLeft(), VIEW_CELLS },
                       { part.pNode->GetRight(), VIEW_CELLS });
    }
    return Reading(FORM_CELL, NTI_ELEMENT, part.pNode, { part.pNode, 0 });
}

// clang-format off
constexpr CTypeRow s_aRows[] = {
    { NTI_STANDARD,    ReadStandard,   FORM_SIGN,               FORM_NOTHING },
    { NTI_DIVISION,    ReadDivision,   FORM_FRACTION,           FORM_NOTHING },
    { NTI_NTHROOT,     ReadRoot,       FORM_ROOT,               FORM_NOTHING },
    { NTI_ROOT,        ReadRoot,       FORM_ROOT,               FORM_NOTHING },
    { NTI_POWERTO,     ReadPair,       FORM_POWER,              FORM_NOTHING },
    { NTI_PLACEHOLDER, ReadLeaf,       FORM_PLACEHOLDER,        FORM_NOTHING },
    { NTI_BRACE,       ReadEnclosing,  FORM_BRACE,              FORM_NOTHING },
    { NTI_EQUATION,    ReadOperator,   FORM_RELATION,           FORM_NOTHING },
    { NTI_PLUS,        ReadOperator,   FORM_PLUS,               FORM_POSITIVE },
    { NTI_MINUS,       ReadOperator,   FORM_MINUS,              FORM_NEGATIVE },
    { NTI_TIMES,       ReadProduct,    FORM_TIMES,              FORM_PRODUCT },
    { NTI_NUMBER,      ReadLeaf,       FORM_NUMBER,             FORM_NOTHING },
    { NTI_PARTDERIVE,  ReadPair,       FORM_PARTIAL_DERIVATIVE, FORM_NOTHING },
    { NTI_DERIVE,      ReadPair,       FORM_DERIVATIVE,         FORM_NOTHING },
    { NTI_SUM,         ReadBig,        FORM_BIG,                FORM_NOTHING },
    { NTI_PROD,        ReadBig,        FORM_BIG,                FORM_NOTHING },
    { NTI_RANGE,       ReadRange,      FORM_RANGE,              FORM_NOTHING },
    { NTI_INTEGRAL,    ReadBig,        FORM_BIG,                FORM_NOTHING },
    { NTI_INTEGRAND,   ReadOperator,   FORM_INTEGRAND,          FORM_NOTHING },
    { NTI_FUNC,        ReadPrefix,     FORM_FUNCTION_NAME,      FORM_FUNCTION },
    { NTI_USERFUNC,    ReadPrefix,     FORM_FUNCTION_NAME,      FORM_FUNCTION },
    { NTI_EXTFUNC,     ReadPrefix,     FORM_FUNCTION_NAME,      FORM_FUNCTION },
    { NTI_POISON,      ReadEnclosing,  FORM_BRACE,              FORM_NOTHING },
    { NTI_INDEX,       ReadIndexAlone, FORM_SUB_SUPER,          FORM_NOTHING },
    { NTI_VECTOR,      ReadEnclosing,  FORM_MARK,               FORM_NOTHING },
    { NTI_CONSTANT,    ReadLeaf,       FORM_NAME,               FORM_NOTHING },
    { NTI_VARIABLE,    ReadLeaf,       FORM_NAME,               FORM_NOTHING },
    { NTI_LIMES,       ReadPair,       FORM_LIMIT,              FORM_NOTHING },
    { NTI_OPERATOR,    ReadOperator,   FORM_OPERATOR,           FORM_NOTHING },
    { NTI_ARROWS,      ReadOperator,   FORM_ARROW,              FORM_NOTHING },
    { NTI_BINOMIAL,    ReadPair,       FORM_BINOMIAL,           FORM_NOTHING },
    { NTI_MATRIX,      ReadTable,      FORM_MATRIX,             FORM_NOTHING },
    { NTI_LINE,        ReadTable,      FORM_LINES,              FORM_NOTHING },
    { NTI_ELEMENT,     ReadPair,       FORM_FOLLOWED,           FORM_NOTHING },
    { NTI_NABLA,       ReadPrefix,     FORM_NABLA,              FORM_APPLIED },
    { NTI_LAPLACE,     ReadPrefix,     FORM_LAPLACE,            FORM_APPLIED },
    { NTI_INFINITY,    ReadLeaf,       FORM_INFINITY,           FORM_NOTHING },
    { NTI_PLANCK,      ReadLeaf,       FORM_PLANCK,             FORM_NOTHING },
    { NTI_LAMBDA,      ReadLeaf,       FORM_LAMBDA,             FORM_NOTHING },
    { NTI_CROSS,       ReadOperator,   FORM_CROSS,              FORM_NOTHING },
    { NTI_LABEL,       ReadLeaf,       FORM_LABEL,              FORM_NOTHING },
};
// clang-format on

static_assert(IsInOrder(s_aRows, &CTypeRow::nType, NTI_COUNT), "the row number is the type");
}  // namespace

bool IsNothing(const CPart& part)
{
    return SkipWrappers(part.pNode) == nullptr;
}

CReading ReadPart(const CPart& part)
{
    if ((part.nView & (VIEW_ROWS | VIEW_CELLS)) != 0)
        return ReadTablePart(part);
    const CNode* pNode = part.nView == 0 ? SkipWrappers(part.pNode) : part.pNode;
    if (pNode == nullptr)
        return Nothing();
    const CTypeRow& row = s_aRows[TypeOf(*pNode)];
    return row.pfnRead(*pNode, row, part.nView);
}
