// Stored formulas as bytes, and the document behind them.
#pragma once

#include <string>
#include <string_view>

#include "service/formula_doc.h"

class CFormulaOut;

// Text, tree and table of a formula. Reads an empty tree together with the three bytes that the
// tree itself leaves in front of the format table. What is read of the text stays here.
class CStoredFormulaDoc : public CFormulaDoc
{
public:
    // The formula outlives the document.
    explicit CStoredFormulaDoc(CFormulaOut& formula);

    void Serialize(CArchive& ar) override;
};

// What SaveToFML writes; drops the selection. Exceptions of the class library reach the caller.
std::string StoredBytes(CFormulaOut& formula);

// Takes text, tree and table out of such bytes; nothing is parsed or reformatted. What is damaged
// throws CArchiveException.
void LoadStoredBytes(CFormulaOut& formula, std::string_view bytes);
