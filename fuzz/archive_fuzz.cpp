// Any bytes as a stored formula: the bare archive of a tree, and, where they look like one, a
// compound file. What loads is measured, painted, written as text and stored again.
#include <cstdint>

#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/doc/compound_file.h"
#include "platform/gdi/dc.h"
#include "quiet_host.h"
#include "service/formula_out.h"

namespace
{
void Store(CFormulaOut& formula)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    formula.SaveTree(archive);
    archive.Close();
}

// A kind outside its table is refused where it is used: that is an answer.
void Use(CFormulaOut& formula)
{
    try
    {
        CClientDC screen(nullptr);
        formula.GetFormulaRect(&screen);
        formula.DrawTree(&screen, CRect(0, 0, 0, 0));
        formula.m_Tree.GetFormulaText(0);
    }
    catch (CInvalidArgException* pException)
    {
        pException->Delete();
    }
    Store(formula);
}

void Load(CMemFile& file)
{
    CFormulaOut formula;
    try
    {
        CArchive archive(&file, CArchive::load);
        formula.SaveTree(archive);
        archive.Close();
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
    Use(formula);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    CMemFile bare(const_cast<BYTE*>(pData), static_cast<UINT>(nSize));
    Load(bare);
    if (nSize > 8 && pData[0] == 0xD0 && pData[1] == 0xCF)
    {
        CMemFile compound(const_cast<BYTE*>(pData), static_cast<UINT>(nSize));
        CMemFile content;
        if (UnpackCompoundFile(compound, "Contents", content))
            Load(content);
    }
    return 0;
}
