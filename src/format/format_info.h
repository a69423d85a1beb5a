// One format record: how the nodes of some types are set.
#pragma once

#include "platform/base/cstring.h"
#include "platform/base/object.h"
#include "platform/base/types.h"

class CArchive;

class CFormatInfoOb : public CObject
{
    DECLARE_SERIAL(CFormatInfoOb)

public:
    // "Times New Roman", black, upright and light.
    CFormatInfoOb();
    CFormatInfoOb(CString strFontName, COLORREF crColour, int nBold, int nItalic, BYTE nCharSet);
    ~CFormatInfoOb() override;

    void Assign(const CFormatInfoOb& other);

    void Serialize(CArchive& ar) override;

    bool IsBold() const { return m_Style[0] == 1; }
    bool IsItalic() const { return m_Style[1] == 1; }

    CString m_strFontName;
    COLORREF m_crColour;
    int m_Style[2];   // bold, italic; 1 is on, anything else off
    BYTE m_nCharSet;  // 0 ANSI, 2 symbol
};
