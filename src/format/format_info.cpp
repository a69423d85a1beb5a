// One format record.
#include "format/format_info.h"

#include "platform/base/archive.h"

IMPLEMENT_SERIAL(CFormatInfoOb, CObject, 1)

CFormatInfoOb::CFormatInfoOb()
    : CFormatInfoOb(CString::Immortal("Times New Roman"), RGB(0, 0, 0), 0, 0, 0)
{
}

CFormatInfoOb::CFormatInfoOb(CString strFontName, COLORREF crColour, int nBold, int nItalic,
                             BYTE nCharSet)
    : m_strFontName(strFontName),
      m_crColour(crColour),
      m_Style{ nBold, nItalic },
      m_nCharSet(nCharSet)
{
}

CFormatInfoOb::~CFormatInfoOb() = default;

void CFormatInfoOb::Assign(const CFormatInfoOb& other)
{
    m_strFontName = other.m_strFontName;
    m_crColour = other.m_crColour;
    m_Style[0] = other.m_Style[0];
    m_Style[1] = other.m_Style[1];
    m_nCharSet = other.m_nCharSet;
}

void CFormatInfoOb::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        ar << m_strFontName << m_crColour << m_Style[0] << m_Style[1] << m_nCharSet;
    else
        ar >> m_strFontName >> m_crColour >> m_Style[0] >> m_Style[1] >> m_nCharSet;
}
