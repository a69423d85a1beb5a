// A recording that ends with the object.
#include "platform/gdi/dc.h"

IMPLEMENT_DYNAMIC(CMetaFileDC, CDC)

CMetaFileDC::~CMetaFileDC()
{
    if (m_hDC)
        ::DeleteEnhMetaFile(::CloseEnhMetaFile(Detach()));
}

BOOL CMetaFileDC::CreateEnhanced(CDC* pReference, LPCSTR pszFile, LPCRECT pBounds,
                                 LPCSTR pszDescription)
{
    return Attach(::CreateEnhMetaFileA(pReference ? pReference->m_hAttribDC : nullptr, pszFile,
                                       pBounds, pszDescription));
}

HENHMETAFILE CMetaFileDC::CloseEnhanced()
{
    return ::CloseEnhMetaFile(Detach());
}
