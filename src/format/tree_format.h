// The format table: which record sets which node type, and the font sizes by level.
#pragma once

#include "format/format_info.h"
#include "platform/base/collections.h"
#include "platform/base/cstring.h"
#include "platform/base/object.h"

class CArchive;

// Nodes copy what they need when they are formatted, so that a change shows at the next
// ApplyFormat. A host changes faces, colours and sizes through the public fields; the types that
// share a record change together.
class CBinTreeFormat : public CObject
{
public:
    // The default table.
    CBinTreeFormat();
    ~CBinTreeFormat() override;

    CBinTreeFormat(const CBinTreeFormat&) = delete;
    CBinTreeFormat& operator=(const CBinTreeFormat&) = delete;

    // nIndex below 5, not checked.
    int GetSize(int nIndex) const { return m_nSizes[nIndex]; }

    // Font height in tenths of a point, with the sign of the size: of an ordinary node (levels 0,
    // 1, 2 and deeper) and of a big operator (0, 1 and deeper). A level below 0 counts as 0.
    int GetHeight(int nLevel) const;
    int GetBigHeight(int nLevel) const;

    // The record that sets a type, or null for an unknown name.
    CFormatInfoOb* FindRecord(const CString& strType) const;

    // Records and sizes take the other table's values; the map stays.
    void CopyFormat(const CBinTreeFormat& other);

    // All records but m_pExtra, and the sizes. Loading throws CArchiveException.
    void Serialize(CArchive& ar) override;

    // Owned.
    CFormatInfoOb* m_pText;      // plain structure
    CFormatInfoOb* m_pVariable;  // variables
    CFormatInfoOb* m_pConstant;  // constants
    CFormatInfoOb* m_pNumber;    // numbers
    CFormatInfoOb* m_pFunction;  // function names
    CFormatInfoOb* m_pOperator;  // operators
    CFormatInfoOb* m_pSymbol;    // big symbols and brackets
    CFormatInfoOb* m_pExtra;     // special characters of "MT Extra"

    CTypedPtrMap<CMapStringToOb, CString, CFormatInfoOb*> m_TypeMap;  // not owned

    // Points, negative: levels 0, 1, 2 and deeper; big symbols at level 0, 1 and deeper.
    int m_nSizes[5];
};

// New nodes and new links take their format from it.
extern CBinTreeFormat g_DefaultFormat;
