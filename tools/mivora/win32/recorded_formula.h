// A formula as the calls that draw it on the screen, to be repeated in any resolution: every sign
// keeps its place.
#pragma once

#include <string>

#include "platform/gdi/dc.h"
#include "service/formula_out.h"

class CRecordedFormula
{
public:
    // Throws CFailure; strPath is for its text only.
    CRecordedFormula(CFormulaOut& formula, const std::string& strPath);
    ~CRecordedFormula();
    CRecordedFormula(const CRecordedFormula&) = delete;
    CRecordedFormula& operator=(const CRecordedFormula&) = delete;

    // Draws it at the origin of a context in memory.
    void Play(CDC& dc, int nDpi) const;

private:
    CSize m_screen;  // pixels
    HENHMETAFILE m_hRecords = nullptr;
};
